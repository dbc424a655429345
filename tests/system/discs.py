"""Drives video discs: a menu by keys and by touch, its titles, what is chosen of them, the way back, and a disc that
goes.

The arguments are those of all driven tests; the discs are beside the application directory in test_films.
"""

import os
import shutil

from driven import APPDIR, Driven, main

DISC = APPDIR.parent / "test_films" / "disc.iso"
# As the disc's colours come out of the decoder: the frame of the menu's marked button, the pictures of its titles.
FRAME, RED, GREEN, BLUE = 0xFFFF00, 0xFD0000, 0x007F00, 0x0000FE


class _Discs(Driven):
    def setUp(self):
        super().setUp()
        self.disc = self.album.parent / "Zdisc.iso"
        shutil.copy(DISC, self.disc)
        self.set_up()
        self.set_setting("main", "ButtonsTold", "velkorandum playlists playmp3 playmovie")
        self.set_setting("video_player", "VideoExtensions", "MPG:AVI:ISO")
        self.start_to_menu()
        self.wait_for("the catalogue", lambda: "db checkpoint" in self.log())
        self.settle("the menu")

    def sees(self, what, colour, width=60):
        self.wait_for(what, lambda: self.display.shows(colour, width))
        self.settle(what)


class KeysDiscs(_Discs):
    def test_by_keys_alone(self):
        self.keys("Right", "Return", "Up")  # the browser, its last row
        row = self.display.look()
        self.press("Return")
        self.sees("the disc's menu", FRAME)
        self.picture("disc-menu")
        self.keys("Right", "Return")
        self.sees("the second chapter", GREEN)
        self.picture("disc-chapter")
        self.hold("Return")
        self.keys("Right", "Right", "Return")
        self.picture("disc-choices")
        self.press("Return")
        self.sees("the disc's menu", FRAME)
        self.keys("Down", "Return")
        self.sees("the second title", BLUE)
        self.press("p")
        self.wait_for("the same row", lambda: self.display.look() == row)
        self.picture("disc-row")
        self.press("Return")
        self.sees("the disc's menu", FRAME)
        os.remove(self.disc)
        self.wait_for("its message", lambda: "has been taken out" in self.log())
        self.settle("its message")
        self.picture("disc-gone")
        self.wait_for("the browser", lambda: not self.display.shows(0, 400))


class TouchDiscs(_Discs):
    """On the smallest panel, which the disc's pictures fill."""

    size = "640x480"
    MEDIA, ROW = (240, 100), (160, 315)

    def at(self, x, y):
        """A point of the disc's 720 by 576."""
        return x * 640 // 720, y * 480 // 576

    def test_by_touch_alone(self):
        self.tap(self.MEDIA)
        self.picture("touch-disc-row")
        self.tap(self.ROW)
        self.sees("the disc's menu", FRAME)
        self.tap(self.at(200, 180))
        self.sees("the first title", RED)
        self.picture("touch-disc-title")


if __name__ == "__main__":
    main()
