"""Short films of moving colours, in the shapes and codecs that films come in."""

import os
import subprocess

QUIET = ("ffmpeg", "-nostdin", "-v", "error", "-y", "-threads", "2")
SOUND = "aevalsrc=0.12*(sin({0}*PI*t)+sin({1}*PI*t)+sin({2}*PI*t))*(0.6+0.4*sin(PI*t/2)):s=48000:d={3}"
H264 = ("-c:v", "libx264", "-preset", "veryfast", "-crf", "28", "-pix_fmt", "yuv420p", "-c:a", "aac", "-b:a", "96k")
MPEG2 = ("-aspect", "4:3", "-c:v", "mpeg2video", "-b:v", "1500k", "-c:a", "mp2", "-b:a", "128k", "-f", "mpeg")

# Name, seconds, picture, chord, encoding.
FILMS = (
    ("Evening Drive.mp4", 24, "gradients=s=1280x720:r=25:d=24:n=5:seed=3:speed=0.02:c0=0x0B2545:c1=0xE76F51:"
     "c2=0x8D0801:c3=0xF4A261:c4=0x13315C", (440, 554, 660), H264),
    ("Old Harbour.mpg", 16, "gradients=s=720x576:r=25:d=16:n=4:seed=8:speed=0.03:c0=0x264653:c1=0x2A9D8F:"
     "c2=0xE9C46A:c3=0x1D3557", (330, 415, 494), MPEG2),
)


def make(folder):
    """Makes the films that are not there yet, and says how many those were."""
    made = 0
    folder.mkdir(parents=True, exist_ok=True)
    for name, seconds, picture, chord, encoding in FILMS:
        if (folder / name).exists():
            continue
        part = folder / f".{name}"
        # A box that crosses the picture shows what moves, and how smoothly.
        scene = f"{picture}[ground];color=white@0.6:s=90x90:r=25:d={seconds},format=rgba[box];" \
                f"[ground][box]overlay=x='mod(t*160,W)':y='H/2+H/4*sin(t)'"
        subprocess.run([*QUIET, "-f", "lavfi", "-i", scene, "-f", "lavfi", "-i", SOUND.format(*chord, seconds),
                        *encoding, "-map_metadata", "-1", part], check=True)
        os.replace(part, folder / name)
        made += 1
    return made
