"""Drives the real system through sleep and to the machine's end, on a system bus of its own with a mock of logind."""

import subprocess

from drive import _Playing
from driven import main

from display import wait_for  # the others have put its folder on the path

PYTHON = "/usr/bin/python3"  # the one that Debian's modules belong to
KEYS = "[keyboard]\nup=38\ndown=40\nback=37\nforward=39\nok=13\nquit=27\nkbSWMP=80\npower=79\ndim=71\n"
CALL = """
import dbus, dbus.bus, sys
bus = dbus.bus.BusConnection(sys.argv[1])
logind = bus.get_object("org.freedesktop.login1", "/org/freedesktop/login1")
manager = dbus.Interface(logind, "org.freedesktop.login1.Manager")
mock = dbus.Interface(logind, "org.freedesktop.DBus.Mock")
"""


class Vehicle(_Playing):
    def setUp(self):
        super().setUp()
        self.address = self.alone.env["DBUS_SYSTEM_BUS_ADDRESS"]
        self.asked = self.alone.folder / "asked"
        (self.app / "kb.ini").write_text(KEYS)
        for command in (["dbus-daemon", "--session", "--nofork", f"--address={self.address}"],
                        [PYTHON, "-m", "dbusmock", "--system", "--template", "logind", "--logfile", self.asked]):
            program = subprocess.Popen(command, env=self.alone.env)
            self.addCleanup(program.wait)
            self.addCleanup(program.kill)

    def logind(self, code):
        """Python to run on `manager` and `mock`; what it prints, "" while logind is not there."""
        result = subprocess.run([PYTHON, "-c", CALL + code, self.address], env=self.alone.env, capture_output=True,
                                text=True, check=False)
        return result.stdout

    def held(self):
        return "sleep:shutdown" in self.logind("print(manager.ListInhibitors())")

    def sleep(self, begins):
        self.logind(f"mock.EmitSignal('', 'PrepareForSleep', 'b', [{begins}])")
        self.wait_for("its inhibitor", lambda: self.held() != begins)

    def start_held(self):
        wait_for("logind", lambda: self.logind("print(manager.CanPowerOff())").strip() == "yes")
        self.start_and_play(1)
        self.wait_for("the inhibitor", self.held)

    def test_a_sleep_changes_nothing_and_the_power_key_ends_everything(self):
        self.start_held()
        self.wait_for_music(2000)
        for _ in range(3):
            self.sleep(True)
            self.assertEqual(self.master()[1], 0, "it is silent")
            self.assertGreaterEqual(float(self.setting("audio_player", "CurrentPosition")), 1)
            asleep = self.position()
            self.assertEqual(self.position(), asleep)
            self.sleep(False)
            self.wait_for("the sound", lambda: self.master()[1] == 1)
            self.wait_for_music(asleep + 1)
        self.press("o")
        self.wait_for_end()
        self.assertEqual(self.asked.read_text().count("PowerOff False"), 1)

    def wait_for_end(self):
        self.assertEqual(self.system.wait(60), 0)
        self.end()

    def test_a_machine_that_may_not_go_off_is_told_and_the_system_is_still_there(self):
        self.start_held()
        self.logind("mock.AddMethod('org.freedesktop.login1.Manager', 'PowerOff', 'b', '', "
                    "'raise dbus.exceptions.DBusException(\"not now\", name=\"a.b\")')")
        self.press("o")
        self.wait_for_message()
        self.picture("power-denied")
        self.assertIn("The machine could not be turned off: not now", self.log())
        self.keys("Return")
        self.press("Right")
        self.wait_for_track(2)


if __name__ == "__main__":
    main()
