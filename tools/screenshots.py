"""screenshots.sh: pictures of every screen, made by keys and by touch on displays of three sizes."""

import pathlib
import sys
import time

from demo_system import DemoSystem

DARK = (2, 51)  # the mean of the loading screen's pixels, of 255: the menu is light


PAGES = 10  # of the settings
PAGE_DRAWN = 0.5  # second, far more than a page takes
HINT = 5  # seconds that a screen tells of its buttons


class Pictured(DemoSystem):
    light = "day"

    def __init__(self, size, out):
        super().__init__(size)
        self.out = out

    def shot(self, name):
        self.display.picture(self.out / f"{name}-{self.size}.png")

    def fresh(self):
        """It is day until told otherwise."""
        super().fresh()
        self.set_setting("main", "Time1", "12:00:00 AM")
        self.set_setting("main", "Time2", "11:59:00 PM")

    def hint_gone(self):
        time.sleep(HINT)
        self.settle("the hint to go")

    def tap(self, *points):
        """In hundredths of the screen."""
        super().tap(*((self.width * x // 100, self.height * y // 100) for x, y in points))

    def turn_to(self, tab):
        """Of the settings; on one page a cube turns, so that the picture never stands still."""
        self.display.send("mousemove", self.width * (10 + 20 * tab) // 100, self.height * 7 // 100)
        before = self.display.look()
        self.display.send("click", 1)
        self.wait_for("another page", lambda: self.display.look() != before)
        time.sleep(PAGE_DRAWN)

    def row(self, number):
        """Touches that row of the browser's list."""
        super().tap((self.width // 3, self.height // 8 + 45 * number - 16))

    def play(self, start):
        start()
        self.wait_for_music()
        self.answer_message()
        self.wait_for_music(1500)

    def loading(self):
        """Pictures as fast as they come; the last dark one before the menu is kept."""
        self.start()
        pixels = -4 * self.width * self.height

        def painted():
            mean = sum(self.display.screen[pixels::4]) * 4 / -pixels
            if DARK[0] < mean < DARK[1]:
                self.shot("loading")
            return "Main menu painted" in self.log()

        self.wait_for("the menu", painted)
        self.settle("the menu")


def by_keys(s):
    s.fresh()
    s.loading()
    s.shot("menu-day")
    s.keys("Right")
    s.shot("menu-chosen")
    s.keys("Left", "Return")
    s.shot("browser-top")
    s.keys("Down", "Down", "Return")
    s.shot("browser-artist")
    s.keys("Down", "Return")
    s.shot("browser-album")
    s.keys("Down", "Down")
    s.play(lambda: s.press("Return"))
    s.shot("player")
    s.press("Right")
    saved = s.setting("audio_player", "CurrentPosition")
    s.wait_for("a saved position", lambda: s.setting("audio_player", "CurrentPosition") != saved)
    s.kill()
    s.start_to_menu()
    s.keys("Up")
    s.play(lambda: s.press("Return"))
    s.shot("resumed")
    s.press("Escape")
    s.settle("the menu")
    s.end()
    s.set_setting("main", "Time1", "11:58:00 PM")
    s.start_to_menu()
    s.shot("menu-night")
    s.keys("Down", "Return")
    s.shot("browser-night")
    s.end()


def catalogue(s):
    s.fresh()
    s.start_with_catalogue()
    for name, keys in (("database", "Return Return"), ("database-artists", "Down Return"),
                       ("database-titles", "Down Return")):
        s.keys(*keys.split())
        s.shot(name)
    s.end()


def list_in_the_making(s):
    s.fresh()
    s.start_with_catalogue()
    s.keys("Return", "Down", "Return")
    s.shot("build")
    s.keys("Down", "Down", "Return", "Down", "Return", "Down", "Return", "Down", "Down", "Return")
    s.hint_gone()
    s.shot("build-list")
    s.end()


def settings(s):
    """Every page; what is chosen stands in the middle of five tabs, but at both ends."""
    s.keys("p")
    s.shot(f"settings-0-{s.light}")
    for page, tab in enumerate((1, 2, *(3,) * (PAGES - 4), 4), 1):
        s.turn_to(tab)
        s.shot(f"settings-{page}-{s.light}")
    s.keys("Escape", "Escape")


def settings_by_day(s):
    s.start_to_menu()
    settings(s)
    s.end()


def by_night(s):
    s.fresh()
    s.light = "night"
    s.set_setting("main", "Time1", "11:58:00 PM")
    s.start_with_catalogue()
    settings(s)
    s.keys("Return", "Down", "Return", "Down", "Down", "Return", "Down", "Return")
    s.hint_gone()
    s.shot("build-night")
    s.end()
    s.start_to_menu()
    s.keys("Return", "Down", "Down", "Return", "Down", "Return", "Down", "Down")
    s.play(lambda: s.press("Return"))
    s.shot("player-night")
    s.end()


def by_touch(s):
    s.fresh()
    s.start_with_catalogue()
    s.tap((37, 25))
    s.shot("touch-browser")
    s.row(3)
    s.shot("touch-artist")
    s.row(2)
    s.shot("touch-album")
    s.play(lambda: s.row(3))
    s.shot("touch-player")
    s.tap((50, 92))
    s.shot("touch-playing")
    s.tap((5, 92))
    s.shot("touch-menu")
    s.end()


folder = pathlib.Path(sys.argv[1])
folder.mkdir(parents=True, exist_ok=True)
for size in sys.argv[2:] or ("640x480", "800x480", "1024x768"):
    with Pictured(size, folder) as system:
        for part in (by_keys, catalogue, list_in_the_making, settings_by_day, by_touch, by_night):
            part(system)
print(f"pictures are in {folder}")
