"""What a film costs, measured on the real system on a virtual display of 800x480: from the choice to the first picture,
key to pause, seek, frames lost in a minute, processor time against libVLC's own X11 output on the same film in the same
run, and memory before and after; then how long a disc's menu takes.  bench_films.py [SECONDS]: how long frames are
counted; 60 without.

Each picture of the films bears its number as a row of twelve white and black boxes, which is read from the display's
memory.  Needs ./run demo and, for the peer, `cmake --preset bench && cmake --build --preset bench`.
"""

import pathlib
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools"))
from demo_system import DemoSystem  # noqa: E402

BITS = 12
LENGTH = 90  # seconds of a film
PAUSES, SEEKS, MENUS = 5, 5, 5
NO_BEGINNING = 16  # seconds
DARK, BRIGHT = 60, 190
CORNERS = ((60, 60), (740, 60), (60, 420), (740, 420))  # beside the loading picture and beside a message
FRAME = (160, 108)  # where the marked button of the tests' disc has its yellow frame
PEER = ROOT / "build" / "bench" / "bench" / "vlc_window"
KINDS = (
    ("mpeg2-576p25.mpg", "720x576", 25, ["-aspect", "16:9", "-c:v", "mpeg2video", "-b:v", "4M", "-c:a", "mp2", "-f", "mpeg"]),
    ("mpeg2-576p50.mpg", "720x576", 50, ["-aspect", "16:9", "-c:v", "mpeg2video", "-b:v", "6M", "-c:a", "mp2", "-f", "mpeg"]),
    ("h264-720p25.mp4", "1280x720", 25, ["-c:v", "libx264", "-preset", "veryfast", "-b:v", "3M", "-c:a", "aac"]),
    ("h264-720p50.mp4", "1280x720", 50, ["-c:v", "libx264", "-preset", "veryfast", "-b:v", "5M", "-c:a", "aac"]),
)


def make(folder, name, size, rate, encoding):
    path = folder / name
    if path.exists():
        return
    width, height = map(int, size.split("x"))
    box = width // (BITS + 2)
    boxes = [f"drawbox=x=0:y={height * 3 // 8}:w={width}:h={height // 4}:color=black:t=fill"]
    boxes += [f"drawbox=x={box * (bit + 1)}:y={height * 3 // 8}:w={box}:h={height // 4}:color=white:t=fill:"
              f"enable='gt(mod(floor(n/{2 ** bit}),2),0)'" for bit in range(BITS)]
    source = f"testsrc2=size={size}:rate={rate}:duration={LENGTH}," + ",".join(boxes)
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-f", "lavfi", "-i", source, "-f", "lavfi", "-i",
                    f"sine=frequency=330:sample_rate=48000:duration={LENGTH}", "-pix_fmt", "yuv420p", "-g", "50", *encoding, path],
                   check=True)


def pixel(display, width, height, x, y):
    """Red, green and blue."""
    at = len(display.screen) - 4 * (width * (height - y) - x)
    blue, green, red = display.screen[at:at + 3]
    return red, green, blue


def boxes(display, width, height, y):
    """Which are white; None where there is anything else."""
    points = [pixel(display, width, height, int((box + 0.5) * width / (BITS + 2)), y) for box in range(BITS + 2)]
    if any(DARK < colour < BRIGHT for point in points for colour in point):
        return None
    return [point[1] > BRIGHT for point in points]


def number(display, width, height):
    """Of the picture that is shown; None while there is none, or one without boxes."""
    rows = [boxes(display, width, height, y) for y in (height * 42 // 100, height // 2, height * 58 // 100)]
    row = rows[0]
    if row is None or rows.count(row) != len(rows) or row[0] or row[-1] or not any(row):
        return None
    return sum(white << bit for bit, white in enumerate(row[1:-1]))


def ticks(process):
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return int(fields[11]) + int(fields[12])


def memory(process):
    lines = pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()[1:]
    size = {name.rstrip(":"): int(value) / 1024 for name, value, *_ in map(str.split, lines)}
    return size["Rss"], size["Private_Clean"] + size["Private_Dirty"]


class Films(DemoSystem):
    def now(self):
        return number(self.display, self.width, self.height)

    def corners(self):
        return any(any(pixel(self.display, self.width, self.height, x, y)) for x, y in CORNERS)

    def until(self, what, condition, limit=20):
        begin = time.monotonic()
        while not condition():
            if time.monotonic() > begin + limit:
                raise AssertionError(f"never happened: {what}")
            time.sleep(0.001)
        return (time.monotonic() - begin) * 1000

    def enter(self, film):
        """The menu's tile goes on with a list of that film alone, from its beginning."""
        (self.app / "vk_video.m3u").write_text(f"{film}\n")
        self.set_setting("video_player", "CurrentPosition", 0)
        self.set_setting("main", "CurrentSelectID", 3)
        self.set_setting("main", "ButtonsTold", "velkorandum playmovie")  # it would hide the numbers for a while

    def measure(self, film, rate, seconds):
        self.enter(film)
        self.start_to_menu()
        self.settle("the menu")
        before = memory(self.system.pid)
        self.press("Return")
        pressed = time.monotonic()
        self.until("the films' screen", lambda: not self.corners())
        self.until("a picture", self.corners)
        print(f"  tile to first picture: {(time.monotonic() - pressed) * 1000:.0f} ms")
        self.answer_message()
        time.sleep(2)
        used = self.frames(rate, seconds)
        self.pause()
        self.seek(rate)
        self.press("Escape")
        time.sleep(5)
        after = memory(self.system.pid)
        print(f"  memory: {before[0]:.1f} MB ({before[1]:.1f} private) before, {after[0]:.1f} MB ({after[1]:.1f} private) after")
        self.end()
        return used

    def frames(self, rate, seconds):
        seen, last, gap, at = 0, self.now(), 0.0, time.monotonic()
        spent, begin, first = ticks(self.system.pid), time.monotonic(), self.now()
        while time.monotonic() < begin + seconds:
            shown = self.now()
            if shown is not None and shown != last:
                seen, last = seen + 1, shown
                gap, at = max(gap, time.monotonic() - at), time.monotonic()
            time.sleep(0.002)
        due = (last - first) % 2 ** BITS
        used = (ticks(self.system.pid) - spent) / seconds
        print(f"  frames: {seen} of {due} in {seconds} s, longest gap {gap * 1000:.0f} ms, processor {used:.1f} %")
        return used

    def pause(self):
        """From the moment at which the key is let go, when it acts, to the last new picture."""
        took = []
        for turn in range(PAUSES):
            self.display.send("keydown", "Return")
            time.sleep(0.1)
            shown, begin = self.now(), time.monotonic()
            last = begin
            self.display.send("keyup", "Return")
            while time.monotonic() < begin + 1:
                if self.now() != shown:
                    shown, last = self.now(), time.monotonic()
                time.sleep(0.001)
            took.append((last - begin) * 1000)
            self.press("Return")
            time.sleep(1 + turn * 0.04 / PAUSES)  # at another moment between two pictures each time
        print(f"  key to pause: median {sorted(took)[PAUSES // 2]:.0f} ms, longest {max(took):.0f} ms, with the sender's start")

    def seek(self, rate):
        """Back and forth, each a little behind a whole number of seconds in which key pictures come, and far from the
        beginning, where a way back is shorter, or none in its first seconds."""
        self.until("the middle of the film", lambda: (self.now() or 0) > NO_BEGINNING * rate, 60)
        took = []
        for name in ("Left", "Right") * SEEKS:
            before = self.until_number()
            begin = time.monotonic()
            self.press(name)
            self.until("the seek", lambda: abs((self.now() or before) - before) > 5 * rate)
            took.append((time.monotonic() - begin) * 1000)
            time.sleep(1.3)
        print(f"  seek: median {sorted(took)[SEEKS]:.0f} ms, longest {max(took):.0f} ms")

    def until_number(self):
        self.until("a picture", lambda: self.now() is not None)
        return self.now()

    def marked(self):
        red, green, blue = pixel(self.display, self.width, self.height, *FRAME)
        return red > DARK and abs(red - green) < 10 and blue < DARK // 3  # darker behind a message

    def menu(self, disc):
        """From the tile to the disc's menu, again and again in one run of the system."""
        self.enter(disc)
        self.start_to_menu()
        took = []
        for _ in range(MENUS):
            self.press("Return")
            took.append(self.until("the menu of the disc", self.marked))
            if len(took) == 1:
                self.answer_message()
            time.sleep(2)
            self.press("Escape")
            self.until("the menu", lambda: not self.marked())
            time.sleep(3)
        print(f"  tile to the disc's menu: first {took[0]:.0f} ms, median {sorted(took)[MENUS // 2]:.0f} ms, "
              f"longest {max(took):.0f} ms")
        self.end()

    def peer(self, film, seconds, ours):
        if not PEER.exists():
            return
        process = subprocess.Popen([PEER, film, str(self.width), str(self.height)], env=self.alone.env,
                                   stderr=subprocess.DEVNULL)
        time.sleep(3)
        spent = ticks(process.pid)
        time.sleep(seconds)
        used = (ticks(process.pid) - spent) / seconds
        print(f"  libVLC's X11 output: processor {used:.1f} %; the system needs {ours / max(used, 0.1):.2f} of that")
        process.terminate()
        process.wait()


def main():
    seconds = int(sys.argv[1]) if len(sys.argv) > 1 else 60
    folder = ROOT / "build" / "bench_films"
    folder.mkdir(parents=True, exist_ok=True)
    for name, size, rate, encoding in KINDS:
        make(folder, name, size, rate, encoding)
    with Films("800x480") as films:
        films.fresh()
        films.start_with_catalogue()
        films.end()
        for name, _, rate, _ in KINDS:
            print(name)
            used = films.measure(folder / name, rate, min(seconds, LENGTH - 25))
            films.peer(folder / name, min(seconds, 20), used)
        subprocess.run([sys.executable, ROOT / "tests" / "films" / "make_films.py", folder / "tests"], check=True)
        print("disc.iso")
        films.menu(folder / "tests" / "disc.iso")


main()
