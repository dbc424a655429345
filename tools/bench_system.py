"""bench.sh: what a user waits for and pays for, on the demo, as figures."""

import re
import statistics
import sys
import time
from pathlib import Path

from demo_system import ROOT, DemoSystem, alone

STARTS = 10
MEASURED = 10  # seconds of playing
KEYS = ROOT / "build" / "bench" / "bench" / "bench_keys"


def memory(process):
    lines = Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()[1:]
    size = {name.rstrip(":"): int(value) / 1024 for name, value, *_ in map(str.split, lines)}
    return f"{size['Rss']:.1f} MB, {size['Private_Clean'] + size['Private_Dirty']:.1f} MB private"


def ticks(process):
    fields = Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return int(fields[11]) + int(fields[12])


def starts(demo):
    demo.start_with_catalogue()
    for _ in range(STARTS - 1):
        demo.end()
        demo.start_to_menu()
    painted = [int(text) for text in re.findall(r"Main menu painted (\d+)", demo.log())]
    print(f"menu painted: {statistics.median(painted):.0f} ms, median of {painted}")


def both(demo):
    return {"velkorandum": demo.system.pid, "winamp": demo.player()[0]}


def play(demo):
    demo.press("Return")
    demo.wait_for_music(3000)
    demo.answer_message()
    demo.wait_for_music(6000)


def use_of_processor(demo):
    before = {name: ticks(process) for name, process in both(demo).items()}
    time.sleep(MEASURED)
    after = {name: ticks(process) for name, process in both(demo).items()}
    return ", ".join(f"{name} {(after[name] - before[name]) / MEASURED:.1f} %" for name in before)


def prepare(demo):
    """The list that is resumed: a folder with pictures, from its track whose title is too long for its line."""
    demo.fresh()
    songs = sorted((demo.demo / "media").glob("**/The Last Boat Home/*.mp3"))
    (demo.app / "vk_audio.m3u").write_text("".join(f"{song}\n" for song in songs))
    long = next(index for index, song in enumerate(songs) if "The Very Long Way" in song.name)
    demo.set_setting("audio_player", "currenttrack", long)
    demo.set_setting("main", "CurrentSelectID", 0)


with DemoSystem("800x480") as system:
    prepare(system)
    starts(system)
    for program, number in both(system).items():
        print(f"memory at the menu: {program} {memory(number)}")
    play(system)
    print(f"processor while playing, of one core: {use_of_processor(system)}")
    for program, number in both(system).items():
        print(f"memory while playing: {program} {memory(number)}")
    system.display.picture(ROOT / "build" / "log" / "bench.png")  # what was measured
    system.end()
if not KEYS.exists():
    sys.exit("key to paint: cmake --preset bench && cmake --build --preset bench, then again")
sys.exit(alone.main([KEYS]))
