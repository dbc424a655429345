"""The real system on a virtual display, for tests that drive it by keys and touches.

The programs that use this take the arguments APPDIR VKINI CARD: APPDIR holds the built programs and skins, VKINI is
the settings tool, CARD the sound card that ALSA is given. Real time passes here; nothing waits longer than it has to.
"""

import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import wave

APPDIR, VKINI, CARD = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3]
PICTURES = os.environ.get("VK_PICTURES")
PATIENCE = 40  # seconds for any one thing, on a slow and busy machine
PROGRAMS = ("velkorandum", "winamp", "DB_UPDATE", "tags_empty.mdb")


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if condition():
            return
        time.sleep(0.05)
    raise AssertionError(f"never happened: {what}")


def write_tone(path, seconds):
    path.parent.mkdir(parents=True, exist_ok=True)
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(8000)
        out.writeframes(b"\0\0\x10\x10" * (4000 * seconds))


class Display:
    """A virtual display with or without a window manager."""

    def __init__(self, manager, size):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{size}x24", "-dpi", "96", "-nolisten", "tcp"],
            pass_fds=(writing,), stderr=subprocess.DEVNULL)
        os.close(writing)
        # To its line end: the server would die of writing to a closed pipe.
        with os.fdopen(reading) as answer:
            self.name = ":" + answer.readline().strip()
        self.manager = manager and subprocess.Popen(
            ["openbox"], env={**os.environ, "DISPLAY": self.name},
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def close(self):
        for process in (self.manager, self.server):
            if process:
                process.terminate()
                process.wait()


class Driven(unittest.TestCase):
    """One system in a fresh application directory; the tests are in the classes made of it."""

    manager = False
    size = "800x480"

    def setUp(self):
        self.display = Display(self.manager, self.size)
        self.addCleanup(self.display.close)
        self.work = pathlib.Path(tempfile.mkdtemp(prefix="velkorandum-test-"))
        self.addCleanup(shutil.rmtree, self.work, ignore_errors=True)
        self.app = self.work / "app"
        self.app.mkdir()
        for program in PROGRAMS:
            shutil.copy(APPDIR / program, self.app)
        os.symlink(APPDIR / "skins", self.app / "skins")
        self.env = {**os.environ, "DISPLAY": self.display.name, "QT_QPA_PLATFORM": "xcb",
                    "XDG_RUNTIME_DIR": str(self.work), "HOME": str(self.work / "home"),
                    "XDG_CONFIG_HOME": str(self.work / "config")}
        os.chmod(self.work, 0o700)
        self.make_card()
        self.album = self.work / "home" / "Music" / "Album"
        for number, title in enumerate(("One", "Two", "Three"), 1):
            write_tone(self.album / f"0{number}_Somebody - {title}.wav", 30)
        (self.work / "home" / "Music" / "Zlists").mkdir()
        subprocess.run([self.app / "DB_UPDATE"], env=self.env, check=True)
        self.system = None
        self.addCleanup(self.end)

    def make_card(self):
        """The system's configuration with a card of our own; a missing file of its numbers is a missing card."""
        self.card = self.work / "card"
        self.card.write_bytes(struct.pack("4i", 50, 1, 50, 1))
        configuration = self.work / "asound.conf"
        configuration.write_text(
            "</usr/share/alsa/alsa.conf>\n"
            f'ctl_type.fake {{ lib "{CARD}" }}\n'
            f'ctl.!default {{ type fake state "{self.card}" elements [ "Master Playback" "PCM Playback" ] }}\n')
        self.env["ALSA_CONFIG_PATH"] = str(configuration)

    def master(self):
        return struct.unpack("2i", self.card.read_bytes()[:8])

    def start(self):
        self.system = subprocess.Popen([self.app / "velkorandum"], env=self.env)

    def start_to_menu(self):
        before = self.log().count("Main menu painted")
        self.start()
        wait_for("the menu", lambda: self.log().count("Main menu painted") > before)
        time.sleep(0.3)

    def end(self):
        if self.system and self.system.poll() is None:
            self.system.send_signal(signal.SIGTERM)
            self.assertEqual(self.system.wait(PATIENCE), 0)
        subprocess.run(["pkill", "-f", str(self.app / "winamp")], check=False)

    def set_up(self):
        settings = str(self.app / "settings.ini")
        subprocess.run([VKINI, "make", settings], check=True)
        for key, value in (("MediaDir", self.album.parent), ("PlayListDir", self.album.parent / "Zlists"),
                           ("Setup", "true"), ("alwaysontop", "true")):
            subprocess.run([VKINI, "set", settings, "main", key, str(value)], check=True)

    def log(self):
        path = self.app / "debug.log"
        return path.read_text(errors="replace") if path.exists() else ""

    def setting(self, section, key):
        result = subprocess.run([VKINI, "get", self.app / "settings.ini", section, key],
                                capture_output=True, text=True, check=True)
        return result.stdout.strip()

    def keys(self, *names):
        for name in names:
            subprocess.run(["xdotool", "key", name], env=self.env, check=True)
            time.sleep(0.5)

    def tap(self, *points):
        for x, y in points:
            subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], env=self.env, check=True)
            time.sleep(0.5)

    def picture(self, name):
        """Keeps what the screen shows, where the environment names a folder for it."""
        if PICTURES:
            raw = subprocess.run(["xwd", "-root", "-silent"], env=self.env, capture_output=True, check=True).stdout
            target = pathlib.Path(PICTURES) / f"{name}-{self.size}.xwd"
            target.write_bytes(raw)
            subprocess.run(["mogrify", "-format", "png", str(target)], check=True)
            target.unlink()

    def player_id(self):
        found = subprocess.run(["pgrep", "-f", str(self.app / "winamp")], capture_output=True, text=True)
        return found.stdout.split()[:1]
