"""Drives the map: the real engine on the invented town, and its drive.

VK_SIZE and VK_NIGHT in the environment make the same runs on another panel and by night, for pictures.
"""

import os
import pathlib
import signal
import subprocess
import sys

from drive import _Playing
from driven import main

MAKER = pathlib.Path(__file__).resolve().parents[2] / "tools" / "make_demo_town.py"
NAVIT, BUS = "/usr/bin/navit", "/usr/bin/dbus-daemon"
# The ground of a town and of the country, and the way, by day and by night.
GROUNDS, WAYS = (0xE6E1D8, 0x191F2A, 0xF4F1EA, 0x10141C), (0x1668E8, 0x3AA0FF)
GROUND_WIDTH, WAY_WIDTH = 60, 6
DRAWN = ("1234567890", "QWERTYUIOP", "ASDFGHJKL\n", "ZXCVBNM.-!")  # the keys of the drawn keyboard; its OK


class _Map(_Playing):
    size = os.environ.get("VK_SIZE", "800x480")

    def setUp(self):
        super().setUp()
        self.width, self.height = map(int, self.size.split("x"))
        town = self.alone.folder / "town"
        subprocess.run([sys.executable, MAKER, town], check=True)
        subprocess.run(["maptool", "-U", "-i", "town.osm", self.app / "map.bin"], cwd=town, env=self.alone.env,
                       stderr=subprocess.DEVNULL, check=True)
        self.set_setting("GPS", "GPSModule", 1)
        self.set_setting("GPS", "receiver", f"log:{town}/drive.nmea")
        self.set_setting("main", "ButtonsTold", "velkorandum playlists playmp3 frmGPS")
        if "VK_NIGHT" in os.environ:
            self.set_setting("main", "CurrentNTSkin", "TorqueNight.skn")
        for key, time in (("Time1", "11:58:00 PM" if "VK_NIGHT" in os.environ else "12:00:00 AM"),
                          ("Time2", "11:59:00 PM")):
            self.set_setting("main", key, time)
        (self.app / "kb.ini").write_text("[keyboard]\nup=38\ndown=40\nback=37\nforward=39\nok=13\nquit=27\nkbSWMP=80\n"
                                         "gps=71\n")
        (self.app / "gps.lst").write_text("Farm|Steinach|Am Anger|7|\n")
        lines = (line.split(",") for line in (self.app / "skins/Torque/GPSMain.isn").read_text().splitlines())
        self.areas = {line[5]: (int(line[1]) + int(line[3]) // 2, int(line[2]) + int(line[4]) // 2)
                      for line in lines if line[0] == "B"}

    def map_shown(self):
        return any(self.display.shows(ground, GROUND_WIDTH) for ground in GROUNDS)

    def way_shown(self):
        return any(self.display.shows(way, WAY_WIDTH) for way in WAYS)

    def wait_for_map(self):
        self.wait_for("the map", self.map_shown)
        self.settle("the map")

    def wait_for_way(self, shown=True):
        self.wait_for("a way" if shown else "no way", lambda: self.map_shown() and self.way_shown() == shown)

    def wait_for_keyboard(self):
        self.wait_for("no map", lambda: not self.map_shown())
        self.settle("the keyboard")

    def step(self, *words):
        """Does what xdotool calls so, and waits for another picture, which need not stand."""
        before = self.display.look()
        self.display.send(*words)
        self.wait_for(f"a picture after {words}", lambda: self.display.look() != before)

    def type_by_arrows(self, text):
        for letter in text:
            row = next(number for number, keys in enumerate(DRAWN) if letter in keys)
            column = DRAWN[row].index(letter)
            down, right = row - self.marked[0], column - self.marked[1]
            for key in ["Down" if down > 0 else "Up"] * abs(down) + ["Right" if right > 0 else "Left"] * abs(right):
                self.step("key", key)
            self.step("key", "Return")
            self.marked = row, column

    def type_by_touch(self, text):
        """As the keyboard lies: its unit, its two lines of text, its keys."""
        unit = min(self.width // 10, self.height * 100 // 614)
        spare = max(0, min(unit // 2, self.height - unit * 614 // 100))
        line = unit * 60 // 100 + spare // 2
        top = unit * 45 // 100 + spare * 2 // 5 + line + line * 15 // 100
        for letter in text:
            row = next(number for number, keys in enumerate(DRAWN) if letter in keys)
            x = (self.width - 10 * unit) // 2 + DRAWN[row].index(letter) * unit + unit // 2
            self.step("mousemove", x, top + row * unit + unit // 2, "click", 1)

    def touch(self, area):
        x, y = self.areas[area]
        self.display.send("mousemove", x * self.width // 800, y * self.height // 480, "click", 1)

    def saved(self):
        return (self.app / "gps.lst").read_text(encoding="utf-8").splitlines()[1:]

    def wait_for_saved(self, name):
        self.wait_for("the saved place", self.saved)
        place = self.saved()[0].split("|")
        self.assertEqual([len(place), place[0]], [5, name])
        self.assertTrue(all(place[1:4]), "town, street and number")

    def lines(self, top, foot):
        """What these lines of a skin 480 high look like: those of the map change by themselves."""
        line = 4 * self.width
        return self.display.screen[-line * (self.height - top * self.height // 480):
                                   -line * (self.height - foot * self.height // 480)]

    def title(self):
        return self.lines(46, 82)


class KeysMap(_Map):
    def press_button(self, *way):
        """Of the screen, from the one that was pressed last: at first the fourth of the lower row."""
        before = self.lines(404, 476)
        self.display.send("keydown", "Return")
        self.wait_for("the frame around a button", lambda: self.lines(404, 476) != before)
        self.display.send("keyup", "Return")
        for key in way:
            self.step("key", key)
        self.press("Return")

    def test_by_keys_alone(self):
        self.start_and_play(0)
        self.press("g")
        self.wait_for_map()
        self.picture("map-music")
        title = self.title()
        self.press("Right")
        self.wait_for_track(1)
        self.wait_for("its title", lambda: self.title() != title)
        self.picture("map-next-song")
        self.press_button("Left")
        self.wait_for_keyboard()
        self.marked = 0, 0
        self.step("key", *"steinach")
        self.picture("map-city")
        self.type_by_arrows("\n")
        self.step("key", "a", "m", "space", *"anger")
        self.picture("map-street")
        self.type_by_arrows("\n7")
        self.picture("map-number")
        self.type_by_arrows("\n")
        self.wait_for_way()
        self.settle("the way")
        self.picture("map-way")
        self.press_button("Right", "Right")
        self.settle("all of the way")
        self.picture("map-whole-way")
        self.press_button("Right")
        self.wait_for_way(False)
        self.picture("map-cancelled")
        self.press_button("Left", "Left")
        self.wait_for_keyboard()
        self.step("key", *"ho")
        self.picture("map-name")
        self.type_by_arrows("\n")
        self.wait_for_saved("Ho")
        self.picture("map-saved")
        self.wait_for_map()
        self.press("p")
        self.wait_for("no map", lambda: not self.map_shown())
        self.settle("the list")
        self.picture("map-list")
        self.press("Return")
        self.wait_for_way()
        at = self.position()
        self.press("g")  # the frame may still be there, which Escape takes away first
        self.wait_for("the player", lambda: not self.map_shown())
        self.wait_for_music(at + 1)


class TouchMap(_Map):
    def test_by_touch_alone_and_past_an_engine_that_dies(self):
        self.start_to_menu()
        self.display.send("mousemove", self.width * 63 // 100, self.height * 65 // 100, "click", 1)
        self.wait_for_map()
        self.picture("map")
        self.touch("SEARCH")
        self.wait_for_keyboard()
        self.type_by_touch("STEINACH\n\n")
        self.picture("map-touch-number")
        self.type_by_touch("\n")
        self.wait_for_way()
        self.touch("SHOWROUTE")
        self.settle("all of the way")
        self.picture("map-touch-whole-way")
        killed = self.alone.processes(NAVIT)
        os.kill(killed[0], signal.SIGKILL)
        self.wait_for("its end", lambda: "is started again" in self.log())
        self.picture("map-died")
        self.wait_for("another engine", lambda: self.alone.processes(NAVIT) not in ([], killed))
        self.wait_for_way()
        self.touch("CANCELROUTE")
        self.wait_for_way(False)
        self.touch("ADDFAV")
        self.wait_for_keyboard()
        self.type_by_touch("H")
        self.picture("map-touch-name")
        self.type_by_touch("\n")
        self.wait_for_saved("H")
        self.wait_for_map()
        self.touch("GPSLIST")
        self.wait_for("no map", lambda: not self.map_shown())
        self.settle("the list")
        self.picture("map-touch-list")
        self.display.send("mousemove", self.width // 2, self.height * 44 // 480 + 16, "click", 1)
        self.wait_for_way()
        self.touch("QUIT")
        self.wait_for("the menu", lambda: not self.map_shown())
        self.end()
        self.assertFalse(self.alone.processes(NAVIT) + self.alone.processes(BUS))


class ForeignMap(_Map):
    def test_the_dialog_of_a_known_program_is_answered_and_its_map_taken(self):
        told, program = self.alone.folder / "told", self.alone.folder / "IGuidance.exe"
        program.symlink_to(os.environ["VK_ODD_PROGRAM"])
        self.set_setting("GPS", "GPSModule", 2)
        self.set_setting("GPS", "EXTGPSexeName", program)
        self.set_setting("GPS", "ExtGPSexeParams", f"log={told} class=#32770 title=Warning open button=OK wait=700 "
                                                   "class=IntellinavWCls title=Map open")
        self.start_to_menu()
        self.keys("Right", "Right", "Down")
        self.press("Return")
        size = f"size {self.width}x{(400 * self.height + 240) // 480 - (44 * self.height + 240) // 480}"
        self.wait_for("the map", lambda: told.exists() and size in told.read_text().splitlines())
        self.assertIn("clicked", told.read_text())
        self.settle("the map")
        self.picture("map-foreign")
        self.touch("QUIT")
        self.settle("the menu")
        self.keys("Left")
        self.end()
        self.assertFalse(self.alone.processes(os.environ["VK_ODD_PROGRAM"]))


if __name__ == "__main__":
    main()
