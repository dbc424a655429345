"""Drives the visualisation over the player: started and ended by keys, and by a touch where a window manager gives it
the input; one that hangs."""

import os
import signal
import subprocess
import time

from driven import VKINI, Driven, main

NAMES = ("Spectrum", "Oscilloscope", "Cover and Rays", "Northern Lights")
AGAIN = 1  # second between two presses of a key that may come too early
LONG_AGAIN = 5  # the same where what hangs is waited for


class _Visuals(Driven):
    def setUp(self):
        super().setUp()
        self.set_up()
        for key, code in (("startvis", 86), ("nextvis", 78)):
            subprocess.run([VKINI, "set", self.app / "kb.ini", "keyboard", key, str(code)], check=True)
        self.start_to_menu()
        subprocess.run([VKINI, "set", self.app / "winamp.ini", "Winamp", "visplugin_name", "vis_spectrum.dll"], check=True)
        self.keys("Right", "Return", "Up", "Up", "Return", "Down")  # the browser, the album, its first song
        self.press("Return")
        self.wait_for_music()
        self.settle("the player")

    def title(self):
        """A window that goes while the tree is read spoils the answer."""
        answer = None
        while answer is None or answer.returncode != 0:
            answer = subprocess.run(["xwininfo", "-root", "-tree"], env=self.alone.env, capture_output=True, text=True,
                                    check=False)
        return next((name for name in NAMES if f'"{name}"' in answer.stdout), None)

    def program(self):
        return self.alone.processes(self.app / "visuals")

    def start_visualisation(self):
        self.press("v")
        self.wait_for("the visualisation", self.title)

    def wait_for_player(self):
        self.wait_for("the end of the visualisation", lambda: not self.title() and not self.program())
        self.settle("the player")
        now = self.position()
        self.wait_for("the music to go on", lambda: self.position() > now)


class KeysVisuals(_Visuals):
    def test_by_keys_alone(self):
        self.start_visualisation()
        self.assertEqual(self.title(), "Spectrum")
        asked = 0.0

        def next_one():
            nonlocal asked
            if self.title() == "Spectrum" and time.monotonic() > asked + AGAIN:
                asked = time.monotonic()
                self.press("n")
            return self.title() not in ("Spectrum", None)

        self.wait_for("the next one", next_one)
        self.picture("visualisation")
        self.press("Escape")
        self.wait_for_player()
        self.keys("u")  # the player has the keys


class ManagedTouchedVisuals(_Visuals):
    """Under a window manager, which gives each new window the input."""

    manager = True

    def test_by_touch_and_when_it_hangs(self):
        self.start_visualisation()
        self.display.send("mousemove", 400, 240)
        touched = 0.0

        # In its first quarter of a second a touch is taken for one of the player.
        def gone():
            nonlocal touched
            if self.title() and time.monotonic() > touched + AGAIN:
                touched = time.monotonic()
                self.display.send("click", 1)
            return not self.title()

        self.wait_for("the end by a touch", gone)
        self.wait_for_player()
        self.start_visualisation()
        for number in self.program():
            os.kill(number, signal.SIGSTOP)
        pressed = 0.0

        # The new window has the keys until the player has taken them; the next press would lead to the menu.
        def ended():
            nonlocal pressed
            if "The visualisation does not close and is ended" in self.log():
                return True
            if time.monotonic() > pressed + LONG_AGAIN:
                pressed = time.monotonic()
                self.press("Escape")
            return False

        self.wait_for("the end of what hangs", ended)
        self.wait_for_player()


if __name__ == "__main__":
    main()
