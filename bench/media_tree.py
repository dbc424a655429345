"""A tree of small tagged audio files, the same for the same number of files."""

import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
from demo_library import id3  # noqa: E402

FILES_AN_ALBUM = 12
SECONDS = 0.4
WIDTH = 40  # of the texts in an Ogg template, which are overwritten in place
FIELDS = ("title", "artist", "album")


def body(folder, name, *options):
    """The bytes of a short sound as ffmpeg encodes it."""
    path = folder / name
    subprocess.run(
        ["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", f"sine=440:duration={SECONDS}",
         "-map_metadata", "-1", "-fflags", "+bitexact", *options, str(path)], check=True)
    return path.read_bytes()


def crc_table():
    """Of Ogg's check sum (https://xiph.org/ogg/doc/framing.html)."""
    table = []
    for value in range(256):
        value <<= 24
        for _ in range(8):
            value = (value << 1) ^ (0x04C11DB7 if value & 0x80000000 else 0)
        table.append(value & 0xFFFFFFFF)
    return table


CRC = crc_table()


def with_check_sum(page):
    page = page[:22] + bytes(4) + page[26:]
    crc = 0
    for byte in page:
        crc = ((crc << 8) & 0xFFFFFFFF) ^ CRC[(crc >> 24) ^ byte]
    return page[:22] + crc.to_bytes(4, "little") + page[26:]


def ogg(template, texts):
    """The template with its texts; only the page of the comments changes."""
    start = template.index(b"OggS", 4)
    segments = template[start + 26]
    end = start + 27 + segments + sum(template[start + 27:start + 27 + segments])
    page = template[start:end]
    for field, text in zip(FIELDS, texts):
        page = page.replace(field[0].encode() * WIDTH, text.encode()[:WIDTH].ljust(WIDTH))
    return template[:start] + with_check_sum(page) + template[end:]


def flac(template, texts):
    """The template's stream header, our comments and its sound."""
    at, sound = 4, template
    while True:
        last, length = template[at] & 0x80, int.from_bytes(template[at + 1:at + 4], "big")
        at += 4 + length
        if last:
            sound = template[at:]
            break
    comments = [f"{field}={text}".encode() for field, text in zip(FIELDS, texts)]
    block = (0).to_bytes(4, "little") + len(comments).to_bytes(4, "little")
    block += b"".join(len(c).to_bytes(4, "little") + c for c in comments)
    stream = template[4] & 0x7F
    return (b"fLaC" + bytes([stream]) + template[5:42] + b"\x84"
            + len(block).to_bytes(3, "big") + block + sound)


def mp3(sound, texts, track, genre, album):
    """The sound with the tags that its album's tagger writes."""
    frames = (*texts, str(track), f"({genre})")
    old = id3.v1(*texts, 1999, track, genre)
    kind = album % 10
    if kind < 5:
        return id3.v2(3, frames) + sound
    if kind < 7:
        return id3.v2(4, frames) + sound
    if kind == 7:
        return id3.v2(2, frames) + sound
    return (id3.v2(3, frames) if kind == 8 else b"") + sound + old


def kind_of(album):
    """Of 25 albums 22 are in MP3, one each in Ogg Vorbis, FLAC and WMA."""
    return {22: "ogg", 23: "flac", 24: "wma"}.get(album % 25, "mp3")


def make(root, count, only=None):
    """Writes `count` files below the folder `root`, of mixed kinds or of `only` one."""
    root.mkdir(parents=True)
    places = sum((("-metadata", f"{f}={f[0] * WIDTH}") for f in FIELDS), ())
    bodies = {
        "mp3": body(root, "x.mp3", "-id3v2_version", "0", "-b:a", "64k"),
        "ogg": body(root, "x.ogg", "-c:a", "libvorbis", *places),
        "flac": body(root, "x.flac"),
        "wma": body(root, "x.wma", "-c:a", "wmav2"),
        "m4a": body(root, "x.m4a", "-c:a", "aac", *places),
    }
    for kind in bodies:
        (root / f"x.{kind}").unlink()
    for number in range(count):
        album, track = number // FILES_AN_ALBUM, number % FILES_AN_ALBUM + 1
        kind = only or kind_of(album)
        texts = (f"Some Title {number}", f"Artist Number {album // 4}", f"The Album {album}")
        sound = bodies[kind]
        if kind == "mp3":
            sound = mp3(sound, texts, track, album % 80, album)
        elif kind in ("ogg", "flac"):
            sound = (ogg if kind == "ogg" else flac)(sound, texts)
        folder = root / texts[1] / texts[2]
        if track == 1:
            folder.mkdir(parents=True)
        (folder / f"{track:02} - {texts[0]}.{kind}").write_bytes(sound)
