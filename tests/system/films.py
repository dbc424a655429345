"""Drives films and a video disc: from the browser and back to their row, the disc's menu, the next film, sought in, its
subtitles, and on where it was left, after a way out and after a kill."""

import os
import pathlib
import shutil
import time

from driven import SETTLED, Driven, SmallTouched, main

FILMS = pathlib.Path(os.environ["VK_TEST_FILMS"])
RED, GREEN, BLUE, YELLOW, WHITE = (254, 0, 0), (0, 127, 0), (0, 0, 254), (254, 254, 0), (255, 255, 255)
NEAR = 40  # of 255: two colours are the same
HERE, BELOW = (0.7, 0.45), (0.5, 0.99)  # of the screen, beside the pointer; the latter is the film's only without its bars
FIRST, THIRD = (86 / 720, 180 / 576), (86 / 720, 396 / 576)  # of the disc's picture, in the frames of its buttons
LIST, FREE = (229, 234, 240), (0.5, 0.58)  # the browser by day, where it has no row
FILMS_TILE = 3
AGAIN, LATE, STEPS = 1, 5, 8  # seconds between two tries, and where a second one would go too far; steps of a try
FAR = 80  # seconds, where no film gets to by itself while something is waited for


class _Films(Driven):
    def setUp(self):
        super().setUp()
        self.width, self.height = map(int, self.size.split("x"))
        folder = self.album.parent / "Films"
        folder.mkdir()
        for name in ("disc.iso", "green.mkv", "red.mkv"):  # in the order of their rows
            shutil.copy(FILMS / name, folder)
        self.set_up()
        self.set_setting("video_player", "VideoExtensions", "MKV:ISO")
        self.set_setting("main", "ButtonsTold", "velkorandum playlists playmovie")
        self.start_to_menu()

    def at(self, x, y, wanted):
        at = len(self.display.screen) - 4 * self.width * (self.height - y) + 4 * x
        blue, green, red = self.display.screen[at:at + 3]
        return all(abs(a - b) < NEAR for a, b in zip((red, green, blue), wanted))

    def shows(self, wanted, place=HERE):
        return self.at(int(self.width * place[0]), int(self.height * place[1]), wanted)

    def see(self, what, seen):
        """Until it is so, and for as long as a new screen is deaf: a film never stands still."""
        since = None

        def held():
            nonlocal since
            since = since or time.monotonic() if seen() else None
            return since and time.monotonic() > since + SETTLED

        self.wait_for(what, held)

    def see_film(self, wanted, place=HERE):
        self.film = wanted
        self.see(f"a film of {wanted}", lambda: self.shows(wanted, place))

    def see_bars(self):
        self.see("the bars", lambda: not self.shows(self.film, BELOW))

    def chosen(self, button):
        """Of the disc's menu, which is as high as the screen and has its shape."""
        x, y = self.width // 2 + int((button[0] - 0.5) * self.height * 4 / 3), int(button[1] * self.height)
        return self.at(x, y, YELLOW)

    def see_menu(self):
        self.see("the disc's menu", lambda: self.chosen(FIRST))

    def see_words(self):
        """Those of their lines that stand above the bar."""
        places = range(self.width // 3, self.width * 2 // 3)
        rows = range(self.height * 2 // 3, self.height * 5 // 6, 4)
        points = [(x, y) for y in rows for x in places]
        self.see("the words", lambda: any(self.at(*point, WHITE) for point in points))

    def see_list(self):
        self.wait_for("the rows", lambda: not self.shows(self.film))
        self.settle("the rows")

    def kept(self):
        """Where the film is, seconds."""
        return int(float(self.setting("video_player", "CurrentPosition") or 0))

    def again(self, step, seen, pause=AGAIN):
        """A step until what it leads to is seen, where one may come too early or too fast, and none goes too far."""
        stepped = 0.0

        def done():
            nonlocal stepped
            if not seen() and time.monotonic() > stepped + pause:
                step()
                stepped = time.monotonic()
            return seen()

        self.wait_for("what a step leads to", done)

    def choose(self, step, wanted):
        """In the browser, which is deaf until its rows are there."""
        self.again(lambda: self.shows(LIST, FREE) and step(), wanted, LATE)

    def go_far(self, step):
        self.again(step, lambda: self.kept() > FAR)

    def see_going_on(self, left, film):
        self.see_film(film)
        self.wait_for("the film to go on", lambda: self.kept() > left)


class KeysFilms(_Films):
    def move_mark(self):
        """Of a dialog, a row down."""
        marked = self.mark()
        self.press("Down")
        self.see("another row", lambda: (self.mark() or marked) != marked)

    def test_by_keys_alone(self):
        self.keys("Right", "Return", "Up", "Up", "Return", "Down")  # the browser, the films, the disc
        self.choose(lambda: self.press("Return"), lambda: self.chosen(FIRST))
        self.see_menu()
        self.picture("disc-menu")
        self.again(lambda: self.press("Down"), lambda: self.chosen(THIRD))
        self.press("Return")
        self.see_film(BLUE)
        self.press("p")
        self.see_list()
        self.keys("Down")
        self.choose(lambda: self.press("Return"), lambda: self.shows(GREEN))
        self.see_film(GREEN)
        self.go_far(lambda: self.display.send("key", *["Right"] * STEPS))
        self.kill()
        self.set_setting("main", "CurrentSelectID", FILMS_TILE)
        self.start_to_menu()
        left = self.kept()
        self.press("Return")
        self.see_going_on(left, GREEN)
        self.display.send("keydown", "Return")
        self.see_bars()
        self.display.send("keyup", "Return")
        self.picture("film-buttons")
        self.display.send("key", "Left", "Left", "Return")
        self.see("the choices", self.message)
        self.move_mark()
        self.move_mark()
        self.picture("film-choices")
        self.press("Return")
        self.see_words()
        self.picture("film-words")
        self.press("Next")
        self.see_film(RED)


class TouchFilms(SmallTouched, _Films):
    QUIT, LISTS, TRACKS, FORWARD, NEXT = 0, 1, 2, 6, 7
    CENTRE, WORDS, TILE = (320, 200), (320, 290), (400, 100)

    def row(self, number):
        return 160, self.DENSE[0] + self.DENSE[1] * number

    def touch(self, point):
        self.display.send("mousemove", *point, "click", 1)

    def touch_bar(self, *numbers):
        """Its buttons, when a touch of the film has brought it."""
        self.touch(self.CENTRE)
        self.see_bars()
        for number in numbers:
            self.touch(((2 * number + 1) * self.width // 20, self.height - 37))

    def test_by_touch_alone(self):
        self.tap(self.MEDIA, self.row(self.new_list_row() + 2))
        self.choose(lambda: self.touch(self.row(2)), lambda: self.shows(GREEN))
        self.see_film(GREEN)
        self.touch_bar(self.NEXT)
        self.see_film(RED)
        self.touch_bar(self.TRACKS)
        self.see("the choices", self.message)
        self.picture("film-choices")
        self.touch(self.WORDS)
        self.see_words()
        self.go_far(lambda: self.touch_bar(*[self.FORWARD] * STEPS))
        self.touch(self.CENTRE)
        self.picture("film-bars")
        self.touch_bar(self.QUIT)
        self.see_list()
        left = self.kept()
        self.touch(self.TILE)
        self.see_going_on(left, RED)
        self.touch_bar(self.LISTS)
        self.see_list()
        self.picture("film-rows")
        self.choose(lambda: self.touch(self.row(1)), lambda: self.chosen(FIRST))
        self.see_menu()
        self.again(lambda: self.touch((self.width * 2 // 7, self.height * 2 // 3)), lambda: self.shows(BLUE))


if __name__ == "__main__":
    main()
