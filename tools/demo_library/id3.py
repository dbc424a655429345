"""ID3 tags as bytes. Layouts: id3.org, "ID3v1", "id3v2-00", "id3v2.3.0", "id3v2.4.0"."""

PADDING = 256  # bytes of room that taggers leave at a tag's end
LATIN, UTF8 = 0, 3  # text encodings of a frame
FRONT_COVER = 3


def v1(title, artist, album, year, track, genre):
    """An ID3v1.1 tag: the last 128 bytes of a file."""

    def field(text, size):
        return text.encode("cp1252", "replace")[:size].ljust(size, b"\0")

    comment = field("Velkorandum demo", 28) + bytes([0, track])
    texts = field(title, 30) + field(artist, 30) + field(album, 30) + field(str(year), 4)
    return b"TAG" + texts + comment + bytes([genre])


def _safe(size):
    """A size in four bytes of seven bits each."""
    return bytes((size >> shift) & 0x7F for shift in (21, 14, 7, 0))


def _frame(version, name, body):
    if version == 2:
        return name + len(body).to_bytes(3, "big") + body
    size = _safe(len(body)) if version == 4 else len(body).to_bytes(4, "big")
    return name + size + b"\0\0" + body


def _text(version, value):
    if version == 4:
        return bytes([UTF8]) + value.encode()
    return bytes([LATIN]) + value.encode("cp1252", "replace")


def _picture(version, jpeg):
    if version == 2:
        return bytes([LATIN]) + b"JPG" + bytes([FRONT_COVER]) + b"\0" + jpeg
    return bytes([LATIN]) + b"image/jpeg\0" + bytes([FRONT_COVER]) + b"Front\0" + jpeg


NAMES = {
    2: (b"TT2", b"TP1", b"TAL", b"TRK", b"TCO", b"PIC"),
    3: (b"TIT2", b"TPE1", b"TALB", b"TRCK", b"TCON", b"APIC"),
    4: (b"TIT2", b"TPE1", b"TALB", b"TRCK", b"TCON", b"APIC"),
}


def v2(version, texts, jpeg=b""):
    """An ID3v2 tag for the start of a file; version is 2, 3 or 4.

    texts are title, artist, album, track and genre. A picture is added if there is one.
    """
    *names, picture = NAMES[version]
    frames = b"".join(_frame(version, n, _text(version, t)) for n, t in zip(names, texts))
    if jpeg:
        frames += _frame(version, picture, _picture(version, jpeg))
    frames += bytes(PADDING)
    return b"ID3" + bytes([version, 0, 0]) + _safe(len(frames)) + frames
