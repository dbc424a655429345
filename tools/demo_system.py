"""The demo (./run demo makes it) on a virtual display, in a folder of its own: the demo's state stays as it is."""

import os
import pathlib
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "support"))
import alone  # noqa: E402
from display import Display  # noqa: E402
from steered import Steered  # noqa: E402

AGAIN = 1  # second between two presses for the same thing
PARTS = ("velkorandum", "libvkfilm.so", "winamp", "visuals", "VNFO.dat", "DB_UPDATE", "tags_empty.mdb",
         "settings.ini")


class DemoSystem(Steered):
    vkini = ROOT / "build" / "release" / "tools" / "vkini"
    demo = ROOT / "build" / "demo"

    def __init__(self, size):
        if not (self.demo / "velkorandum").exists():
            sys.exit("run './run demo' first")
        self.size = size
        self.width, self.height = map(int, size.split("x"))
        self.alone = alone.Alone()
        self.display = Display(self.alone.env, self.alone.folder, size)
        self.app = self.alone.folder / "app"

    def fresh(self):
        """An application directory as after the first run."""
        shutil.rmtree(self.app, ignore_errors=True)
        self.app.mkdir()
        for part in PARTS:
            shutil.copy(self.demo / part, self.app)
        for folder in ("skins", "plugins"):
            os.symlink(self.demo / folder, self.app / folder)
        subprocess.run([self.app / "DB_UPDATE"], env=self.alone.env, check=True)

    def start_with_catalogue(self):
        """The first start of a fresh one."""
        self.start_to_menu()
        self.wait_for("the catalogue", lambda: "db checkpoint" in self.log())
        self.settle("the menu")

    def answer_message(self):
        """Without a sound card a box tells so, after the player has come."""
        if "No Sound Card Detected" in self.log():
            self.wait_for("the box", self.message)
            asked = 0.0

            # Behind it a long title may never stand still, and a press that comes too early counts for nothing.
            def gone():
                nonlocal asked
                if self.message() and time.monotonic() >= asked + AGAIN:
                    asked = time.monotonic()
                    self.press("Return")
                return not self.message()

            self.wait_for("the box to go", gone)

    def __enter__(self):
        return self

    def __exit__(self, *error):
        if self.system and self.running():
            self.system.terminate()
        self.display.close()
        self.alone.end()
