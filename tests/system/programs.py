"""Drives programs of the machine beside the system: started, worked, left, moved, closed, and ended with the system."""

import os
import tty

from driven import Driven, main

ODD = os.environ["VK_ODD_PROGRAM"]
CELL, BAR = 91, 82  # of the tool bar on 800x480


class _Programs(Driven):
    programs = ()

    def setUp(self):
        super().setUp()
        self.set_up()
        (self.app / "kb.ini").write_text("[keyboard]\nup=38\ndown=40\nback=37\nforward=39\nok=13\nquit=27\napps=113\n")
        self.told = self.alone.folder / "told"
        (self.app / "apps.lst").write_text("".join(
            f"{ODD} log={self.told} {words}|{name}|0|{tail}\r\n" for name, words, tail in self.programs))
        self.start_to_menu()
        self.keys("Right", "Return", "F2")  # the browser, its list of programs

    def heard(self, line):
        return line in (self.told.read_text() if self.told.exists() else "").splitlines()

    def wait_for_program(self, name, line="size 800x480"):
        self.wait_for(name, lambda: "Ext App Launched" in self.log() and name in self.log() and self.heard(line))
        self.settle(name)

    def odd(self):
        return self.alone.processes(ODD)


class KeysPrograms(_Programs):
    """Without a window manager."""

    programs = (("Writer", "open", "True|True"), ("Game", "open grab", "True|True"))

    def test_by_keys_alone(self):
        self.press("Return")
        self.wait_for_program("Writer")
        self.picture("program")
        self.press("a")
        self.wait_for("the letter in the program", lambda: self.heard("key 38 0"))
        self.hold("Escape")
        self.picture("program-buttons")
        self.keys("Right", "Return")  # the bar goes up
        self.picture("program-moved")
        self.keys("Escape")
        self.press("s")
        self.wait_for("the keyboard in the program again", lambda: self.heard("key 39 0"))
        self.keys("Escape")
        self.wait_for("its end", lambda: self.heard("close") and not self.odd())
        self.picture("program-closed")
        self.told.unlink()
        self.keys("Down")
        self.press("Return")
        self.wait_for_program("Game", "grabbed")
        self.keys("Escape")
        self.wait_for("the end of what had taken the keyboard", lambda: not self.odd())


class TouchPrograms(_Programs):
    """With one."""

    manager = True
    programs = (("Deaf", "deaf open", "True|False"), ("Two", "open wait=700 class=B open shut", "True|True"))

    def test_by_touch_alone(self):
        self.tap((400, 90))
        self.wait_for_program("Deaf")
        for stage, told in (("first", lambda: self.heard("close")),  # each touch ends the wait of a stage
                            ("second", lambda: "app still not closed at" in self.log()),
                            ("third", lambda: "attempting to kill PID" in self.log())):
            self.display.send("mousemove", 800 - CELL // 2, 480 - BAR // 2, "click", 1)
            self.wait_for(f"the {stage} stage", told)
        self.wait_for("the end of the deaf one", lambda: not self.odd())
        self.settle("the list")
        self.told.unlink()
        self.tap((400, 130))
        self.wait_for_program("Two")
        self.wait_for("its second window", lambda: self.told.read_text().count("size 800x480") > 1)
        self.settle("the second window")
        self.tap((CELL // 2, 480 - BAR // 2))  # back to the list
        self.picture("program-loaded")
        self.tap((400, 130))
        self.picture("program-resumed")
        self.end()
        self.assertFalse(self.odd(), "it ends with the system")


class RemotePrograms(_Programs):
    """A remote at a serial port, and touch, while a program has keyboard and pointer for itself."""

    manager = True
    programs = (("Game", "open grab point", "True|True"),)
    BUTTONS = {"vup": 2}

    def set_up(self):
        super().set_up()
        self.wire, line = os.openpty()
        tty.setraw(line)
        for end in (self.wire, line):
            self.addCleanup(os.close, end)
        for key, value in (("type", "CREATIVE"), ("comport", os.ttyname(line)), ("status", "true")):
            self.set_setting("remote", key, value)
        (self.app / "keys.ini").write_text(
            "[remote_keys]\n" + "".join(f"{name}={code}\n" for name, code in self.BUTTONS.items()))

    def button(self, name):
        os.write(self.wire, bytes((self.BUTTONS[name],)))

    def test_by_remote_and_past_a_crash(self):
        self.press("Return")
        self.wait_for_program("Game", "pointed")
        loud = self.master()
        self.button("vup")
        self.wait_for("another volume", lambda: self.master() != loud)
        self.tap((CELL // 2, 480 - BAR // 2))  # back to the list
        self.picture("program-pointed")
        self.kill()
        self.assertTrue(self.odd())
        self.start_to_menu()
        self.wait_for("its end", lambda: not self.odd())


if __name__ == "__main__":
    main()
