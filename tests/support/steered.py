"""The system in front of a driver: started, pressed, touched and looked at."""

import pathlib
import signal
import socket
import struct
import subprocess

from display import PATIENCE, wait_for

SEARCH_FAILED = "LeakSanitizer has encountered a fatal error"
PLAYER_SOCKET = "Winamp v1.x"
WM_USER, POSITION = 1024, 105  # asks for the position in the track, in milliseconds
# The marked button of a dialog: without a skin, by day, by night.
MARKS, MARK_WIDTH = (0x2F6FBE, 0x4F8BD8, 0x82571C), 200


class Steered:
    """What steers has the application directory `app`, the `alone` around it, its `display` and the tool `vkini`.
    Every press waits for the picture that it makes, everything else for what it leaves in a file."""

    system = None

    def wait_for(self, what, condition):
        try:
            wait_for(what, condition, self.running)
        except AssertionError as error:
            raise AssertionError(f"{error}; the log ends with\n{self.log()[-1500:]}") from None

    def start(self):
        self.system = subprocess.Popen([self.app / "velkorandum"], env=self.alone.env)

    def start_to_menu(self):
        before = self.log().count("Main menu painted")
        self.start()
        self.wait_for("the menu", lambda: self.log().count("Main menu painted") > before)
        self.settle("the menu")

    def running(self):
        return self.system.poll() is None

    def end(self):
        """In order; what it started ends with it."""
        if self.system and self.running():
            self.system.send_signal(signal.SIGTERM)
            status, reports = self.system.wait(PATIENCE), self.alone.reports()
            # The search for leaks may stumble over a thread that ends in that moment; that is no leak.
            if status != 0 and SEARCH_FAILED not in reports:
                raise AssertionError(f"ended with {status}; {reports}")
        wait_for("the end of all that the system started", lambda: not self.alone.processes(self.app))

    def kill(self):
        self.system.kill()
        self.system.wait()

    def busy(self):
        """Does the interface's thread work at this moment?"""
        try:
            stat = pathlib.Path(f"/proc/{self.system.pid}/stat").read_text()
        except OSError:
            return False
        return stat.rpartition(")")[2].split()[0] in "RD"

    def player(self):
        """The numbers of the players that run."""
        return self.alone.processes(self.app / "winamp")

    def position(self):
        """Of the player, in milliseconds; -1 when it is not there."""
        with socket.socket(socket.AF_UNIX, socket.SOCK_SEQPACKET) as wire:
            wire.settimeout(PATIENCE)
            try:
                wire.connect(str(self.alone.folder / "run" / PLAYER_SOCKET))
                wire.send(struct.pack("Iii", WM_USER, 0, POSITION))
                return struct.unpack("i", wire.recv(4))[0]
            except (OSError, struct.error):
                return -1

    def wait_for_music(self, milliseconds=1):
        self.wait_for("music", lambda: self.position() >= milliseconds)

    def log(self):
        path = self.app / "debug.log"
        return path.read_text(errors="replace") if path.exists() else ""

    def setting(self, section, key):
        result = subprocess.run([self.vkini, "get", self.app / "settings.ini", section, key],
                                capture_output=True, text=True, check=True)
        return result.stdout.strip()

    def set_setting(self, section, key, value):
        subprocess.run([self.vkini, "set", self.app / "settings.ini", section, key, str(value)], check=True)

    def wait_for_track(self, index):
        self.wait_for(f"track {index}", lambda: self.setting("audio_player", "currenttrack") == str(index))

    def mark(self):
        """Where what a dialog marks is; None without one."""
        return next((place for place in (self.display.find(mark, MARK_WIDTH) for mark in MARKS) if place), None)

    def message(self):
        """Is a message or a question in front?"""
        return self.mark() is not None

    def tap_message(self):
        """The button that it marks."""
        x, y = self.mark()
        self.tap((x + MARK_WIDTH // 2, y + MARK_WIDTH // 10))

    def wait_for_message(self):
        self.wait_for("a message", self.message)
        self.settle("the message")

    def settle(self, what, before=None):
        self.display.settle(what, before, self.busy, self.running)

    def press(self, name):
        """For keys whose picture says nothing: what moves by itself is in front."""
        self.display.send("key", name)

    def hold(self, name):
        """Until it has made a picture of its own."""
        before = self.display.look()
        self.display.send("keydown", name)
        self.settle(f"a picture of the held {name}", before)
        self.display.send("keyup", name)

    def keys(self, *names):
        """Presses each key when the picture that the one before made stands."""
        for name in names:
            before = self.display.look()
            self.press(name)
            self.settle(f"a picture after {name}", before)

    def tap(self, *points):
        for x, y in points:
            self.display.send("mousemove", x, y)
            self.settle("the pointer")
            before = self.display.look()
            self.display.send("click", 1)
            self.settle(f"a picture after a tap at {x}, {y}", before)
