"""A virtual display that is looked at, pressed and touched as a driver would do it."""

import mmap
import os
import pathlib
import subprocess
import time
import zlib

PATIENCE = 60  # seconds for any one thing, on a slow and busy machine
# The system is deaf for a quarter of a second when another screen has come; seconds without a change.
SETTLED = 0.3
STEP = 0.02
# What has a timer is found at work now and then, the more often the longer it waits for a processor; a part of the looks.
OFTEN = 1 / 3


def wait_for(what, condition, alive=lambda: True):
    """Until `condition` holds; an end of what it depends on ends the wait."""
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"never happened: {what}")
        if not alive():
            raise AssertionError(f"ended before: {what}")
        time.sleep(STEP)


class Display:
    """An X server of its own in the environment `env`, which gets its name, with or without a window manager."""

    def __init__(self, env, folder, size, manager=False):
        self.env = env
        self.folder = pathlib.Path(folder)
        self.size = tuple(map(int, size.split("x")))
        reading, writing = os.pipe()
        self.processes = [subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{size}x24", "-dpi", "96", "-nolisten", "tcp",
             "-fbdir", str(self.folder)],
            env=env, pass_fds=(writing,), stderr=subprocess.DEVNULL)]
        os.close(writing)
        # To its line end: the server would die of writing to a closed pipe.
        with os.fdopen(reading) as answer:
            env["DISPLAY"] = ":" + answer.readline().strip()
        env["QT_QPA_PLATFORM"] = "xcb"
        with open(self.folder / "Xvfb_screen0", "rb") as file:
            self.screen = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        if manager:
            self.start_manager()

    def start_manager(self):
        """Until it looks after windows: those that come while it is starting it forgets."""
        ready = self.folder / "manager_ready"
        self.processes.append(subprocess.Popen(["openbox", "--startup", f"touch {ready}"], env=self.env,
                                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        wait_for("the window manager", ready.exists)

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()

    def find(self, colour, width):
        """Where the first line of that many pixels of a colour begins, given as 0xRRGGBB; None without one."""
        at = self.screen.find((colour | 0xFF000000).to_bytes(4, "little") * width)
        across, down = self.size
        pixel = (at - len(self.screen)) // 4 + across * down
        return (pixel % across, pixel // across) if at >= 0 else None

    def shows(self, colour, width):
        return self.find(colour, width) is not None

    def look(self):
        """A number that another picture does not have."""
        return zlib.crc32(self.screen)

    def settle(self, what, before=None, busy=lambda: False, alive=lambda: True):
        """Until the picture is another one than `before` and stands still, and nothing works."""
        wait_for(what, lambda: self.look() != before, alive)
        seen, since, looks, worked = self.look(), time.monotonic(), 0, 0

        def still():
            nonlocal seen, since, looks, worked
            now, works = self.look(), busy()
            looks, worked = looks + 1, worked + works
            over = time.monotonic() >= since + SETTLED
            if now == seen and over and not works and worked <= looks * OFTEN:
                return True
            if now != seen or over:
                seen, since, looks, worked = now, time.monotonic(), 0, 0
            return False

        wait_for(what + " to stand still", still, alive)

    def send(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.env, check=True)

    def picture(self, target):
        """Keeps what is shown as a file in PNG."""
        raw = self.folder / "picture.xwd"
        raw.write_bytes(self.screen)
        subprocess.run(["mogrify", "-format", "png", str(raw)], check=True)
        pathlib.Path(target).write_bytes(raw.with_suffix(".png").read_bytes())
