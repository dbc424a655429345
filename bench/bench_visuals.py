"""What a visualisation costs, measured on the real system on a virtual display of 800x480, once beside a sound server of
its own and once without any: from the key to its picture, pictures a second, processor time of its program in each
scene, the player's memory before, meanwhile and after, and whether the sound has a gap when it comes and goes.
bench_visuals.py [SECONDS]: how long a scene is looked at; 20 without.  Needs ./run demo and the package pulseaudio.
"""

import array
import math
import os
import pathlib
import random
import shutil
import statistics
import subprocess
import sys
import time
import wave
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools"))
from demo_system import DemoSystem  # noqa: E402

RATE = 44100
LENGTH = 60  # seconds of the tune, which is played again and again
WINDOW = RATE * 5 // 1000  # samples that may not be silent
SILENT = 300  # of 32767
STARTS = 5
GROUND = bytes((14, 7, 5))  # blue, green, red of the first pixel in the scene of the spectrum
SCENES = ("spectrum", "scope", "cover", "aurora")
TICK = os.sysconf("SC_CLK_TCK")


def write_tune(path):
    """Chords that swell and fade over a noise that never stops."""
    rng = random.Random(7)
    samples = array.array("h")
    for i in range(RATE * LENGTH):
        t = i / RATE
        swell = 0.6 + 0.4 * math.sin(2 * math.pi * 1.7 * t)
        tones = sum(math.sin(2 * math.pi * f * t) / n for n, f in enumerate((55, 220, 554, 1318, 4186), 1))
        samples.append(int(swell * 5000 * tones + rng.uniform(-2500, 2500)))
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(samples.tobytes())


def gaps(recorded):
    """Those of the silences that have sound before and behind them, milliseconds."""
    samples = array.array("h", recorded[:len(recorded) // 2 * 2])
    loud = [max(map(abs, samples[at:at + WINDOW])) > SILENT for at in range(0, len(samples) - WINDOW, WINDOW)]
    if True not in loud:
        return None
    found, run = [], 0
    for sounds in loud[loud.index(True):]:
        if sounds and run:
            found.append(5 * run)
        run = 0 if sounds else run + 1
    return found


def spent(process):
    """Processor time of all its threads, seconds."""
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / TICK


def memory(process):
    lines = pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()[1:]
    size = {name.rstrip(":"): int(value) / 1024 for name, value, *_ in map(str.split, lines)}
    return f"{size['Rss']:.1f} MB ({size['Private_Clean'] + size['Private_Dirty']:.1f} private)"


class Visuals(DemoSystem):
    server = None

    def start_server(self):
        self.server = subprocess.Popen(
            ["pulseaudio", "--daemonize=no", "--exit-idle-time=-1", "-n", "-L", "module-null-sink sink_name=out", "-L",
             "module-native-protocol-unix"], env=self.alone.env, stderr=subprocess.DEVNULL)
        self.wait_for("the sound server", lambda: subprocess.run(
            ["pactl", "info"], env=self.alone.env, capture_output=True, check=False).returncode == 0)

    def running(self):
        return self.system is None or super().running()

    def begin(self):
        self.fresh()
        folder = self.alone.folder / "tune"
        (folder / "Playlists").mkdir(parents=True)
        shutil.copy(ROOT / "build" / "bench_visuals" / "tune.wav", folder / "01_Nobody - Tune.wav")
        self.set_setting("main", "MediaDir", folder)
        self.set_setting("main", "CurrentSelectID", 2)
        self.set_setting("main", "PlayListDir", folder / "Playlists")
        subprocess.run([self.vkini, "set", self.app / "kb.ini", "keyboard", "startvis", "86"], check=True)
        self.start_with_catalogue()
        self.choose("spectrum")
        self.keys("Return", "Up")  # the browser, its last row
        self.press("Return")
        self.wait_for_music()
        self.answer_message()
        self.wait_for_music(2000)

    def choose(self, scene):
        subprocess.run([self.vkini, "set", self.app / "winamp.ini", "Winamp", "visplugin_name", f"vis_{scene}.dll"], check=True)

    def program(self):
        return self.alone.processes(self.app / "visuals")

    def shown(self):
        """Of the spectrum."""
        first = len(self.display.screen) - 4 * self.width * self.height
        return self.display.screen[first:first + 3] == GROUND

    def toggle(self):
        """From the key until its picture is there, milliseconds; and back."""
        begin = time.monotonic()
        self.press("v")
        while not self.shown():
            assert time.monotonic() < begin + 20, "it never came"
            time.sleep(0.001)
        took = (time.monotonic() - begin) * 1000
        time.sleep(4)
        return took

    def leave(self):
        self.press("Escape")
        self.wait_for("its end", lambda: not self.program() and not self.shown())
        time.sleep(1)

    def pictures(self):
        """A second, as far as they differ."""
        lines = 4 * self.width
        middle = len(self.display.screen) - lines * (self.height // 2)
        seen, last, begin = 0, None, time.monotonic()
        while time.monotonic() < begin + 3:
            now = zlib.crc32(self.display.screen[middle - 40 * lines:middle + 40 * lines:7])
            seen, last = seen + (now != last), now
            time.sleep(0.002)
        return seen / 3

    def scene(self, name, seconds):
        self.choose(name)
        time.sleep(3)  # that it is read and faded in
        process, before, begin = self.program()[0], spent(self.program()[0]), time.monotonic()
        time.sleep(seconds)
        used = (spent(process) - before) / (time.monotonic() - begin)
        print(f"  {name}: processor {100 * used:.1f} % of a core, {self.pictures():.0f} pictures a second")

    def measure(self, seconds):
        self.begin()
        player = self.player()[0]
        print(f"  the player before: {memory(player)}")
        out = self.alone.folder / "recorded"
        recorder = self.server and subprocess.Popen(
            ["parec", "-d", "out.monitor", "--format=s16le", "--channels=1", f"--rate={RATE}", "--raw", out], env=self.alone.env)
        taken = []
        for _ in range(STARTS):
            taken.append(self.toggle())
            self.leave()
        print(f"  key to picture: median {statistics.median(taken):.0f} ms, longest {max(taken):.0f} ms")
        self.toggle()
        print(f"  the player meanwhile: {memory(player)}; the visualisation: {memory(self.program()[0])}")
        for name in SCENES:
            self.scene(name, seconds)
        self.choose("spectrum")
        self.leave()
        print(f"  the player after: {memory(player)}")
        if recorder:
            recorder.terminate()
            recorder.wait()
            print(f"  silences in the recorded sound: {gaps(out.read_bytes()) or 'none'}")
        self.end()
        if self.server:
            self.server.terminate()
            self.server.wait()


def main():
    seconds = int(sys.argv[1]) if len(sys.argv) > 1 else 20
    tune = ROOT / "build" / "bench_visuals" / "tune.wav"
    tune.parent.mkdir(parents=True, exist_ok=True)
    if not tune.exists():
        write_tune(tune)
    for with_server in (True, False):
        print("beside a sound server" if with_server else "without one")
        with Visuals("800x480") as visuals:
            if with_server:
                visuals.start_server()
            visuals.measure(seconds)


main()
