"""The real system on a virtual display, for tests that drive it by keys and touches.

The programs that use this take the arguments APPDIR VKINI CARD [NAME...]: APPDIR holds the built programs and skins,
VKINI is the settings tool, CARD the sound card that ALSA is given, NAME what to run of the tests.
"""

import os
import pathlib
import shutil
import struct
import subprocess
import sys
import unittest
import wave

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
from alone import Alone  # noqa: E402
from display import SETTLED, Display  # noqa: E402
from steered import Steered  # noqa: E402

APPDIR, VKINI, CARD = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
PICTURES = os.environ.get("VK_PICTURES")
PROGRAMS = ("velkorandum", "libvkfilm.so", "winamp", "visuals", "VNFO.dat", "DB_UPDATE", "tags_empty.mdb")


def write_tone(path, seconds):
    path.parent.mkdir(parents=True, exist_ok=True)
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(8000)
        out.writeframes(b"\0\0\x10\x10" * (4000 * seconds))


class Driven(Steered, unittest.TestCase):
    """One system in a fresh application directory; the tests are in the classes made of it."""

    manager = False
    size = "800x480"
    vkini = VKINI

    def setUp(self):
        self.alone = Alone()
        self.alone.keep_reports()
        self.addCleanup(self.alone.end)
        self.addCleanup(lambda: print(self.alone.reports(), end="", file=sys.stderr))
        work = self.alone.folder
        self.display = Display(self.alone.env, work, self.size, self.manager)
        self.addCleanup(self.display.close)
        self.app = work / "app"
        self.app.mkdir()
        for program in PROGRAMS:
            shutil.copy(APPDIR / program, self.app)
        for folder in ("skins", "plugins"):
            os.symlink(APPDIR / folder, self.app / folder)
        self.make_card()
        self.album = work / "home" / "Music" / "Album"
        for number, title in enumerate(("One", "Two", "Three"), 1):
            write_tone(self.album / f"0{number}_Somebody - {title}.wav", 30)
        (work / "home" / "Music" / "Zlists").mkdir()
        subprocess.run([self.app / "DB_UPDATE"], env=self.alone.env, check=True)

    def tearDown(self):
        self.end()

    def make_card(self):
        """A card of our own in the system's configuration; a missing file of its numbers is a missing card. It has
        no output: the player keeps time by itself."""
        self.card = self.alone.folder / "card"
        self.card.write_bytes(struct.pack("4i", 50, 1, 50, 1))
        configuration = self.alone.folder / "asound.conf"
        configuration.write_text(
            "</usr/share/alsa/alsa.conf>\n"
            f'ctl_type.fake {{ lib "{CARD}" }}\n'
            f'ctl.!default {{ type fake state "{self.card}" elements [ "Master Playback" "PCM Playback" ] }}\n'
            "pcm.!default { type hw card 31 }\n")
        self.alone.env["ALSA_CONFIG_PATH"] = str(configuration)

    def master(self):
        return struct.unpack("2i", self.card.read_bytes()[:8])

    def set_up(self):
        subprocess.run([VKINI, "make", self.app / "settings.ini"], check=True)
        for key, value in (("MediaDir", self.album.parent), ("PlayListDir", self.album.parent / "Zlists"),
                           ("Setup", "true"), ("alwaysontop", "true"),
                           ("ButtonsTold", "velkorandum playlists playmp3")):
            self.set_setting("main", key, value)

    def picture(self, name):
        """Keeps what the screen shows, where the environment names a folder for it."""
        if PICTURES:
            self.display.picture(pathlib.Path(PICTURES) / f"{name}-{self.size}.png")


class SmallTouched:
    """By touch on the smallest panel."""

    size = "640x480"
    MEDIA = (240, 100)  # the menu's tile
    DENSE, ROOMY = (86, 44), (97, 66)  # the first row and the pitch of rows, as generated and as the first run has it

    def rows(self, *numbers, left=160, lists=DENSE):
        self.tap(*((left, lists[0] + number * lists[1]) for number in numbers))

    def new_list_row(self):
        """Below the database and the rows of this machine's other disks."""
        with open("/proc/self/mounts", encoding="utf-8", errors="replace") as mounts:
            places = {line.split()[1] for line in mounts if line.startswith("/dev/")}
        system = ("/boot", "/etc", "/usr", "/var", "/home", "/tmp", "/opt", "/srv", "/run", "/dev", "/proc", "/sys")
        others = [p for p in places if os.path.isdir(p) and p != "/" and not p.startswith(system)]
        return 1 + len(others)


def main():
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]], verbosity=2)
