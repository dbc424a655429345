#!/usr/bin/env python3
"""Writes the table of letters that searches and sorting take apart: each of U+0080 to U+30FF as its decomposition
without case, in UTF-8. Usage: make_folding.py OUTPUT.cpp
"""

import sys
import unicodedata

# Letters that Unicode does not decompose, though people look for them under a base letter.
BASES = {
    0xDF: "ss\u0334", 0x1E9E: "ss\u0334", 0xE6: "ae\u0334", 0xC6: "ae\u0334", 0x153: "oe\u0334", 0x152: "oe\u0334",
    0xF8: "o\u0338", 0xD8: "o\u0338", 0x142: "l\u0338", 0x141: "l\u0338", 0x111: "d\u0338", 0x110: "d\u0338",
    0xF0: "d\u0334", 0xD0: "d\u0334", 0xFE: "th\u0334", 0xDE: "th\u0334", 0x131: "i\u0338",
}
LONGEST = 11  # bytes of an entry without the NUL at its end


def folded(letter):
    text = BASES.get(letter) or unicodedata.normalize("NFD", chr(letter)).casefold()
    data = text.encode()
    return data if len(data) <= LONGEST else chr(letter).encode()


def literal(data):
    return '"' + "".join(f"\\{byte:03o}" for byte in data) + '"'


with open(sys.argv[1], "w", encoding="ascii") as out:
    out.write('#include "library/text/folding.h"\n\nnamespace vk {\n\nconst FoldedLetter FoldedLetters[] = {\n')
    for code in range(0x80, 0x3100):
        out.write(f"    {{{literal(folded(code))}}},\n")
    out.write("};\n\n} // namespace vk\n")
