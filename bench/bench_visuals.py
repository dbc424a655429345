"""What a visualisation costs, measured on the real system on a virtual display of 800x480, once beside a sound server of
its own and once without any: from the key to its picture, pictures a second, processor time of its program in each
scene, whether the sound has a hole when it comes, changes and goes, and the player's memory before, meanwhile and
after, and at the same seconds of the same song without any.  bench_visuals.py [SECONDS]: how long a scene is looked
at; 20 without.  Needs ./run demo and the package pulseaudio.
"""

import array
import math
import operator
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
BLOCK = 10  # seconds of the tune, in which all its tones have whole periods
LENGTH = 360  # seconds: it is not over before what is measured
WINDOW = RATE * 5 // 1000  # samples that may not be silent
SILENT = 300  # of 32767
TONES = (55, 220, 554, 1318, 4186)  # Hz; no hole but one of some 22,000 samples is whole periods of each
LOOK = RATE // 20  # samples in which the phase of a tone is read
TURN = 0.6  # radians that it may be off, four times what the noise does
STARTS, CHANGES = 5, 5
GROUND = bytes((14, 7, 5))  # blue, green, red of the first pixel in the scene of the spectrum
SCENES = ("spectrum", "scope", "cover", "aurora")
TICK = os.sysconf("SC_CLK_TCK")


def write_tune(path):
    """Chords that swell and fade over a noise that never stops."""
    rng = random.Random(7)
    samples = array.array("h")
    for i in range(RATE * BLOCK):
        t = i / RATE
        swell = 0.8 + 0.2 * math.sin(2 * math.pi * 1.7 * t)
        tones = sum(math.sin(2 * math.pi * f * t) / n for n, f in enumerate(TONES, 1))
        samples.append(int(swell * 5000 * tones + rng.uniform(-2500, 2500)))
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(samples.tobytes() * (LENGTH // BLOCK))


def silences(samples):
    """Those that have sound before and behind them, milliseconds."""
    loud = [max(map(abs, samples[at:at + WINDOW])) > SILENT for at in range(0, len(samples) - WINDOW, WINDOW)]
    found, run = [], 0
    for sounds in loud[loud.index(True):]:
        if sounds and run:
            found.append(5 * run)
        run = 0 if sounds else run + 1
    return found


def phases(samples, tone):
    """Of a tone, look by look; radians."""
    turns = [2 * math.pi * tone * i / RATE for i in range(LOOK)]
    shape = [1 - math.cos(2 * math.pi * i / LOOK) for i in range(LOOK)]
    real = [math.cos(turn) * part for turn, part in zip(turns, shape)]
    imaginary = [-math.sin(turn) * part for turn, part in zip(turns, shape)]
    looks = (samples[at:at + LOOK] for at in range(0, len(samples) - LOOK, LOOK))
    return [math.atan2(sum(map(operator.mul, look, imaginary)), sum(map(operator.mul, look, real))) for look in looks]


def holes(samples):
    """Where sound is missing, or there twice, however short: from there on the tones are out of step. Seconds."""
    found = []
    for tone in TONES:
        seen = phases(samples, tone)
        due = 2 * math.pi * tone * 2 * LOOK / RATE
        off = [abs(math.remainder(after - before - due, 2 * math.pi)) for before, after in zip(seen, seen[2:])]
        found += [(at + 1) * LOOK / RATE for at, turn in enumerate(off) if turn > TURN]
    found.sort()
    return [round(at, 1) for at, before in zip(found, [-1, *found]) if at - before > 3 * LOOK / RATE]


def sounding(recorded):
    """From the first sound on to the last."""
    samples = array.array("h", recorded[:len(recorded) // 2 * 2])
    loud = [at for at in range(0, len(samples) - WINDOW, WINDOW) if max(map(abs, samples[at:at + WINDOW])) > SILENT]
    return samples[loud[1]:loud[-1]]


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
    begun = 0.0  # when the song did

    def start_server(self):
        self.server = subprocess.Popen(
            ["pulseaudio", "--daemonize=no", "--exit-idle-time=-1", "-n", "-L", "module-null-sink sink_name=out", "-L",
             "module-native-protocol-unix"], env=self.alone.env, stderr=subprocess.DEVNULL)
        self.wait_for("the sound server", lambda: subprocess.run(
            ["pactl", "info"], env=self.alone.env, capture_output=True, check=False).returncode == 0)

    def stop_server(self):
        if self.server:
            self.server.terminate()
            self.server.wait()

    def running(self):
        return self.system is None or super().running()

    def begin(self):
        self.fresh()
        folder = self.alone.folder / "tune"
        (folder / "Playlists").mkdir(parents=True, exist_ok=True)
        shutil.copy(ROOT / "build" / "bench_visuals" / "chords.wav", folder / "01_Nobody - Tune.wav")
        self.set_setting("main", "MediaDir", folder)
        self.set_setting("main", "CurrentSelectID", 2)
        self.set_setting("main", "PlayListDir", folder / "Playlists")
        subprocess.run([self.vkini, "set", self.app / "kb.ini", "keyboard", "startvis", "86"], check=True)
        subprocess.run([self.vkini, "set", self.app / "kb.ini", "keyboard", "nextvis", "78"], check=True)
        self.start_with_catalogue()
        self.choose("spectrum")
        self.keys("Return", "Up")  # the browser, its last row
        self.press("Return")
        self.wait_for_music()
        self.answer_message()
        self.wait_for_music(2000)
        self.begun = time.monotonic() - self.position() / 1000

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

    def change(self):
        """By the key, which chooses the next one."""
        for _ in range(CHANGES):
            self.press("n")
            time.sleep(1.5)
        self.choose("spectrum")
        time.sleep(2)

    def record(self):
        out = self.alone.folder / "recorded"
        recorder = subprocess.Popen(
            ["parec", "-d", "out.monitor", "--format=s16le", "--channels=1", f"--rate={RATE}", "--raw", out], env=self.alone.env)

        def end():
            recorder.terminate()
            recorder.wait()
            sound = sounding(out.read_bytes())
            print(f"  in {len(sound) / RATE:.0f} s of recorded sound: silences {silences(sound) or 'none'}, "
                  f"holes {holes(sound) or 'none'}")

        return end

    def note(self, what):
        """The player's memory, and at which second of the song."""
        at = time.monotonic() - self.begun
        print(f"  the player {what}: {memory(self.player()[0])}")
        return what, at

    def measure(self, seconds):
        self.begin()
        notes = [self.note("before")]
        heard = self.record() if self.server else lambda: None
        taken = []
        for _ in range(STARTS):
            taken.append(self.toggle())
            self.leave()
        print(f"  key to picture: median {statistics.median(taken):.0f} ms, longest {max(taken):.0f} ms")
        self.toggle()
        self.change()
        notes.append(self.note("meanwhile"))
        print(f"  the visualisation: {memory(self.program()[0])}")
        for name in SCENES:
            self.scene(name, seconds)
        self.choose("spectrum")
        self.leave()
        notes.append(self.note("after"))
        heard()
        self.end()
        return notes

    def compare(self, notes):
        """The same song as far, and nothing beside it."""
        print("  without a visualisation:")
        self.begin()
        heard = self.record() if self.server else lambda: None
        for what, at in notes:
            time.sleep(max(0.0, self.begun + at - time.monotonic()))
            self.note(f"at the time of '{what}'")
        heard()
        self.end()


def main():
    seconds = int(sys.argv[1]) if len(sys.argv) > 1 else 20
    tune = ROOT / "build" / "bench_visuals" / "chords.wav"
    tune.parent.mkdir(parents=True, exist_ok=True)
    if not tune.exists():
        write_tune(tune)
    for with_server in (True, False):
        print("beside a sound server" if with_server else "without one")
        with Visuals("800x480") as visuals:
            if with_server:
                visuals.start_server()
            visuals.compare(visuals.measure(seconds))
            visuals.stop_server()


main()
