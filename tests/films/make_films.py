#!/usr/bin/env python3
"""make_films.py FOLDER: makes the films and discs that the tests of the movie player play, once.

Small and always the same: pictures are plain colours and boxes, so that a test can tell by a pixel what it sees. The
folder is complete when its file `made` holds the mark of this script; else all is made anew.
"""

import hashlib
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import discs  # noqa: E402  (beside this file)

QUIET = ["ffmpeg", "-nostdin", "-hide_banner", "-loglevel", "error", "-y"]
SMALL = "320x240"
EXACT = ["-fflags", "+bitexact", "-flags:v", "+bitexact", "-flags:a", "+bitexact", "-map_metadata", "-1"]
TONE = ["-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000"]

# Name, size, seconds, what encodes the picture and the sound. Every picture is 25 a second.
PLAIN = [
    ("mpeg2.mpg", SMALL, 3, ["-c:v", "mpeg2video", "-c:a", "mp2", "-f", "mpeg"]),
    ("mpeg4.avi", SMALL, 3, ["-c:v", "mpeg4", "-c:a", "mp2"]),
    ("theora.mkv", SMALL, 3, ["-c:v", "libtheora", "-c:a", "libvorbis"]),
    ("h264.mp4", SMALL, 3, ["-c:v", "libx264", "-preset", "ultrafast", "-g", "12", "-pix_fmt", "yuv420p", "-c:a", "aac"]),
    ("h265.mkv", SMALL, 2, ["-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=none", "-c:a", "aac"]),
    ("vp9.webm", SMALL, 2, ["-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-c:a", "libopus"]),
    ("h264.ts", SMALL, 3, ["-c:v", "libx264", "-preset", "ultrafast", "-g", "12", "-bf", "2", "-pix_fmt", "yuv420p", "-c:a", "mp2"]),
    ("anamorphic.mpg", "720x576", 2, ["-aspect", "16:9", "-c:v", "mpeg2video", "-c:a", "mp2", "-f", "mpeg"]),
    ("portrait.mp4", "240x320", 2, ["-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-c:a", "aac"]),
    ("scope.mkv", "640x272", 2, ["-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p", "-c:a", "aac"]),
    ("interlaced.mpg", "720x576", 2, ["-vf", "tinterlace=interleave_top", "-flags", "+ildct+ilme", "-top", "1",
                                      "-c:v", "mpeg2video", "-c:a", "mp2", "-f", "mpeg"]),
    ("silent.avi", SMALL, 2, ["-an", "-c:v", "mpeg4"]),
    ("soundonly.mp4", SMALL, 2, ["-vn", "-c:a", "aac"]),
    ("oneframe.avi", SMALL, 2, ["-an", "-frames:v", "1", "-c:v", "mpeg4"]),
]


def run(*command):
    subprocess.run([str(part) for part in command], check=True, stdout=subprocess.DEVNULL)


def picture(size, seconds):
    return ["-f", "lavfi", "-i", f"testsrc2=size={size}:rate=25:duration={seconds}"]


def plain_films(folder):
    for name, size, seconds, encoding in PLAIN:
        run(*QUIET, *picture(size, seconds), *TONE, "-t", seconds, "-threads", "1", *encoding, *EXACT, folder / name)


def subtitle(text):
    return f"1\n00:00:00,000 --> 00:00:20,000\n{text}\n"


def many_tracks(folder):
    """A film of two sound tracks and two subtitles in it, and another with a file of subtitles beside it."""
    (folder / "one.srt").write_text(subtitle("First subtitle"))
    (folder / "two.srt").write_text(subtitle("Second subtitle"))
    black = ["-f", "lavfi", "-i", f"color=black:size={SMALL}:rate=25:duration=20"]
    low = ["-f", "lavfi", "-i", "sine=frequency=220:sample_rate=48000"]
    run(*QUIET, *black, *TONE, *low, "-i", folder / "one.srt", "-i", folder / "two.srt", "-t", 20,
        "-map", "0", "-map", "1", "-map", "2", "-map", "3", "-map", "4",
        "-threads", "1", "-c:v", "libx264", "-preset", "ultrafast", "-c:a", "aac", "-c:s", "srt", *EXACT,
        "-metadata:s:a:0", "language=ger", "-metadata:s:a:1", "language=eng",
        "-metadata:s:s:0", "language=ger", "-metadata:s:s:1", "language=eng", "-disposition:s:0", "0",
        folder / "tracks.mkv")
    run(*QUIET, *black, *TONE, "-t", 20, "-threads", "1", "-c:v", "libx264", "-preset", "ultrafast", "-c:a", "aac",
        *EXACT, folder / "beside.mp4")
    (folder / "beside.srt").write_text(subtitle("Beside the film"))
    for name in ("one.srt", "two.srt"):
        (folder / name).unlink()


def long_films(folder):
    """Each of one colour for five minutes, with words that can be chosen: new ones every two seconds, as who chooses them
    does not get those that have begun; and so many lines of them that some stand above the bar of buttons."""
    words, text = folder / "words.srt", "\n".join(["Words"] * 6)
    times = [f"00:{second // 60:02}:{second % 60:02}" for second in range(0, 302, 2)]
    words.write_text("".join(f"{number}\n{begin},000 --> {end},000\n{text}\n\n"
                             for number, (begin, end) in enumerate(zip(times, times[1:]), 1)))
    for name, colour in (("red.mkv", "red"), ("green.mkv", "green")):
        run(*QUIET, "-f", "lavfi", "-i", f"color={colour}:size=640x480:rate=5:duration=300", *TONE, "-i", words, "-t", 300,
            "-map", "0", "-map", "1", "-map", "2", "-threads", "1", "-c:v", "libx264", "-preset", "ultrafast",
            "-pix_fmt", "yuv420p", "-g", "5", "-c:a", "mp2", "-b:a", "32k", "-c:s", "srt", "-disposition:s:0", "0", *EXACT,
            folder / name)
    words.unlink()


def broken(folder):
    """What is no film, or not all of one."""
    whole = (folder / "h264.mp4").read_bytes()
    (folder / "cutindex.mp4").write_bytes(whole[: len(whole) // 2])  # the index is at its end
    for name in ("theora.mkv", "mpeg2.mpg"):
        film = (folder / name).read_bytes()
        (folder / f"cut{pathlib.Path(name).suffix}").write_bytes(film[: len(film) // 2])
    shutil.copyfile(folder / "theora.mkv", folder / "wrongname.mpg")
    block = b"velkorandum"
    noise = b""
    while len(noise) < 100_000:
        block = hashlib.sha256(block).digest()
        noise += block
    (folder / "noise.avi").write_bytes(noise)
    (folder / "empty.avi").write_bytes(b"")


def make(folder, mark):
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    plain_films(folder)
    many_tracks(folder)
    long_films(folder)
    broken(folder)
    discs.make(folder, run)
    (folder / "made").write_text(mark)


def main():
    folder = pathlib.Path(sys.argv[1])
    here = pathlib.Path(__file__).resolve().parent
    mark = hashlib.sha256(b"".join(file.read_bytes() for file in sorted(here.glob("*.py")))).hexdigest()
    if not (folder / "made").exists() or (folder / "made").read_text() != mark:
        make(folder, mark)


if __name__ == "__main__":
    main()
