"""Drives the first run from nothing to music: by three keys, by a remote alone, by touch alone."""

import fcntl
import os
import select
import socket
import termios
import threading
import time
import tty

from driven import Driven, SmallTouched, main


class _FirstRun(Driven):
    lists = "Playlists"

    def begin(self):
        self.start()
        self.wait_for_message()
        self.picture("first-welcome")

    def wait_for_the_menu(self):
        self.wait_for("the menu", lambda: "Main menu painted" in self.log())
        self.wait_for("the catalogue", lambda: "db checkpoint" in self.log())
        self.settle("the menu")
        music = self.album.parent
        self.assertEqual(self.setting("main", "MediaDir"), str(music))
        self.assertEqual(self.setting("main", "PlaylistDir"), str(music / self.lists))
        self.assertEqual(self.setting("main", "Setup").lower(), "true")

    def listen(self):
        self.wait_for_track(0)
        self.wait_for_music()
        self.settle("the player")
        self.picture("first-player")


class KeysFirstRun(_FirstRun):
    """Up, down and Enter are all that there is."""

    lists = "Zlists"

    def choose_lists(self):
        self.keys("Down", "Return")  # not the folder that is offered
        self.keys("Down", "Down", "Return", "Up", "Up", "Up", "Return")  # Zlists, select

    def test_leads_to_music(self):
        self.begin()
        self.keys("Return")
        self.picture("first-folder")
        self.keys("Down", "Return", "Up", "Up", "Up", "Return")  # Music, select
        self.picture("first-lists")
        self.choose_lists()
        self.keys("Return", "Return")  # two messages
        self.wait_for_the_menu()
        self.keys("Down", "Return", *["Up"] * (2 if self.lists == "Zlists" else 3), "Return")  # the browser, Album
        self.keys("Down")
        self.press("Return")
        self.listen()


class ManagedFirstRun(KeysFirstRun):
    """The same under a window manager."""

    manager = True


class RemoteFirstRun(KeysFirstRun):
    """A receiver whose daemon is there; the folder that is offered is taken."""

    lists = "Playlists"
    BUTTONS = {"Return": "KEY_OK", "Up": "KEY_UP", "Down": "KEY_DOWN"}

    def begin(self):
        path = str(self.alone.folder / "lircd")
        self.alone.env["LIRC_SOCKET_PATH"] = path
        self.listener = socket.socket(socket.AF_UNIX)
        self.addCleanup(self.listener.close)
        self.listener.bind(path)
        self.listener.listen()
        super().begin()

    def press(self, name):
        while select.select([self.listener], [], [], 0)[0]:  # it connects anew when its settings are read
            self.client = self.listener.accept()[0]
            self.addCleanup(self.client.close)
        self.client.send(f"0000000000000001 00 {self.BUTTONS[name]} remote\n".encode())

    def choose_lists(self):
        self.keys("Return")


class SerialFirstRun(RemoteFirstRun):
    """A receiver at a serial port that nobody has told of, and a remote whose codes nobody knows."""

    BUTTONS = {name: bytes((0x0C, number, 0xFF, 0x11, 0, 0x13))
               for number, name in enumerate(("Return", "Down", "Up", "Left", "Right", "Escape"))}

    def begin(self):
        self.wire, self.line = os.openpty()
        tty.setraw(self.line)
        for end in (self.wire, self.line):
            self.addCleanup(os.close, end)
        self.woken = 0.0
        self.alone.env["VK_SERIAL_PORTS"] = f"Receiver={os.ttyname(self.line)}"
        threading.Thread(target=self.answer, daemon=True).start()
        _FirstRun.begin(self)
        self.wait_for("the receiver", lambda: self.setting("remote", "type") + self.setting("remote", "status") ==
                      "IRMANtrue")
        self.settle("the question for a button")
        self.picture("first-remote")
        for name in self.BUTTONS:
            self.press(name)
            self.keys(name)

    def answer(self):
        heard = b""
        try:
            while True:
                heard += os.read(self.wire, 16)
                if heard.endswith(b"IR"):
                    os.write(self.wire, b"OK")
                    heard, self.woken = b"", time.monotonic()
        except OSError:
            return  # the test is over

    def wait_for_the_menu(self):
        super().wait_for_the_menu()
        self.settle("the receiver")  # which was opened anew

    def press(self, name):
        """A code by itself: it is read, and nothing is done with it any more."""
        self.wait_for("the receiver to wake up", lambda: time.monotonic() > self.woken + 0.5)
        os.write(self.wire, self.BUTTONS[name])
        self.wait_for("the code to be read", lambda: fcntl.ioctl(self.line, termios.FIONREAD, bytes(4)) == bytes(4))
        self.settle("the code")


class TouchFirstRun(SmallTouched, _FirstRun):
    ROW, SELECT = (200, 180), (540, 130)  # the first folder, the button beside the folders

    def test_leads_to_music(self):
        self.begin()
        self.tap_message()
        self.picture("first-folder")
        self.tap(self.ROW, self.SELECT)
        self.tap_message()  # the folder that is offered
        self.tap_message()
        self.tap_message()
        self.wait_for_the_menu()
        self.tap(self.MEDIA)
        self.rows(self.new_list_row() + 1, 1, lists=self.ROOMY)
        self.listen()


if __name__ == "__main__":
    main()
