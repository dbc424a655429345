#!/usr/bin/env python3
"""Makes a folder of invented, tagged music with pictures and playlists and of two films, to try the system with.

Needs ffmpeg. What is there already is kept, so that an interrupted run can be taken up again.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import random
import subprocess
import sys

from demo_library import catalogue, films, id3, pictures, synth, voices

VERSION = 1  # raise it when the files' content changes: folders made before are made anew
STAMP = ".demo_library"  # in the media folder: what was made, written last
PROCESSES = 2
SECONDS = (20, 36)
ENCODERS = {
    "mp3": ("-c:a", "libmp3lame", "-b:a", "64k", "-id3v2_version", "0", "-f", "mp3"),
    "ogg": ("-c:a", "libvorbis", "-q:a", "2", "-f", "ogg"),
    "flac": ("-c:a", "flac", "-f", "flac"),
    "wav": ("-f", "wav"),
}


def ffmpeg(arguments, data):
    """Runs ffmpeg with data as its input and gives its output."""
    command = ["ffmpeg", "-nostdin", "-v", "error", "-threads", "1", *arguments, "pipe:1"]
    return subprocess.run(command, input=data, stdout=subprocess.PIPE, check=True).stdout


def write_whole(path, data):
    """Writes a file under another name first, so that a half-made one never has the true name."""
    path.parent.mkdir(parents=True, exist_ok=True)
    temporary = path.with_name(path.name + ".part")
    temporary.write_bytes(data)
    os.replace(temporary, path)


def jpeg(seed):
    """The picture of a seed."""
    size = f"{pictures.SIZE}x{pictures.SIZE}"
    source = ("-f", "rawvideo", "-pix_fmt", "rgb24", "-s", size, "-i", "pipe:0")
    target = ("-frames:v", "1", "-pix_fmt", "yuvj420p", "-q:v", "4", "-f", "mjpeg")
    return ffmpeg(source + target, pictures.draw(seed))


def comments(track):
    """ffmpeg's arguments for the tags of the containers that have their own."""
    if track.album.tags != "comment":
        return ("-map_metadata", "-1", "-fflags", "+bitexact")
    tags = {"title": track.title, "artist": track.album.artist, "album": track.album.name,
            "track": track.number, "genre": track.album.genre, "date": track.album.year}
    return tuple(word for key, value in tags.items() for word in ("-metadata", f"{key}={value}"))


def genre_text(track):
    """The three ways in which taggers write a genre, one an album track in turn."""
    album = track.album
    forms = (album.genre, f"({album.genre_number})", f"({album.genre_number}){album.genre}")
    return forms[track.number % len(forms)]


def with_tags(track, audio):
    """The audio of an mp3 file between the tags that its album has."""
    album = track.album
    if "v2" in album.tags:
        version = int(album.tags[3])
        texts = (track.title, album.artist, album.name, f"{track.number}/{len(album.titles)}",
                 genre_text(track))
        cover = jpeg(album.name) if "embedded" in album.pictures else b""
        audio = id3.v2(version, texts, cover) + audio
    if "v1" in album.tags:
        audio += id3.v1(track.title, album.artist, album.name, album.year, track.number,
                        album.genre_number)
    return audio


def make_track(folder, track):
    """Composes, encodes and tags one file unless it is there."""
    path = folder / track.path
    if path.exists():
        return 0
    seconds = random.Random(track.seed).uniform(*SECONDS)
    samples = synth.render(track.seed, track.album.style, seconds)
    if sys.byteorder == "big":
        samples.byteswap()
    source = ("-f", "s16le", "-ar", str(voices.RATE), "-ac", "1", "-i", "pipe:0")
    encoded = ffmpeg(source + comments(track) + ENCODERS[track.album.extension], samples.tobytes())
    write_whole(path, with_tags(track, encoded))
    return 1


def make_pictures(folder, tracks):
    """Draws the albums' picture files; an album's second picture is another one."""
    for album in {track.album for track in tracks}:
        for name in album.pictures:
            path = folder / album.artist / album.name / name
            if name != "embedded" and not path.exists():
                first = name == "folder.jpg"
                write_whole(path, jpeg(album.name if first else f"{album.name}/{name}"))


def make_playlists(folder, tracks):
    """Writes the playlists, every second one with the comment line of the extended format."""
    for n, (name, belongs) in enumerate(catalogue.PLAYLISTS):
        lines = ["#EXTM3U"] if n % 2 else []
        lines += [str(folder / track.path) for track in tracks if belongs(track)]
        write_whole(folder / "Playlists" / f"{name}.m3u", "".join(f"{s}\n" for s in lines).encode())


def stamped(folder):
    """What a finished run noted in the folder."""
    try:
        return json.loads((folder / STAMP).read_text())
    except (OSError, ValueError):
        return {}


def remove_outdated(folder):
    """Takes away the tracks of a library that an older version of this program made."""
    if stamped(folder).get("version", VERSION) != VERSION:
        for track in catalogue.tracks():
            (folder / track.path).unlink(missing_ok=True)


def make_library(folder, count):
    """Makes the library of the first count tracks and says in one line what was done."""
    tracks = catalogue.tracks(count)
    stamp = {"version": VERSION, "tracks": len(tracks), "folder": str(folder), "films": count is None}
    if stamped(folder) == stamp:
        return f"{folder}: {len(tracks)} tracks, all there"
    remove_outdated(folder)
    with concurrent.futures.ProcessPoolExecutor(PROCESSES) as pool:
        made = sum(pool.map(make_track, [folder] * len(tracks), tracks))
    make_pictures(folder, tracks)
    make_playlists(folder, tracks)
    if count is None:
        films.make(folder / "Films")
    write_whole(folder / STAMP, json.dumps(stamp).encode())
    return f"{folder}: {len(tracks)} tracks, {made} of them new"


def main():
    """The command line."""
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("outdir", type=pathlib.Path, help="the media folder to make or complete")
    parser.add_argument("--tracks", type=int, metavar="N", help="only the first N tracks")
    options = parser.parse_args()
    if options.tracks is not None and options.tracks < 1:
        parser.error("--tracks must be at least 1")
    try:
        print(make_library(options.outdir.absolute(), options.tracks))
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"make_demo_library: {error}")


if __name__ == "__main__":
    main()
