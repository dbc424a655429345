"""Drives the real system: playing, volume, a kill, resuming, a lost player."""

import os
import signal
import struct

from driven import Driven, main


class ForeignSettings(Driven):
    def test_do_not_stop_the_start(self):
        (self.app / "settings.ini").write_bytes(bytes(range(256)) * 64)
        self.start()
        self.wait_for_message()
        self.keys("Return", "Return")  # take over, told so
        self.wait_for("the files", lambda: (self.app / "winamp.ini").exists())


class _Playing(Driven):
    def setUp(self):
        super().setUp()
        self.set_up()

    def play(self, index):
        """From the browser's tile: Album is the last row but one; in it: the way back, One, Two, Three."""
        self.keys("Return", "Up", "Up", "Return", *["Down"] * (index + 1))
        self.press("Return")
        self.wait_for_track(index)
        self.wait_for_music()
        self.settle("the player")

    def start_and_play(self, index):
        self.start_to_menu()
        self.keys("Right")
        self.play(index)


class Resuming(_Playing):
    def test_after_the_end_and_after_a_kill(self):
        self.start_and_play(1)
        self.wait_for_music(2000)
        self.end()
        position = int(float(self.setting("audio_player", "CurrentPosition")))
        self.assertGreaterEqual(position, 1)
        self.start_to_menu()
        self.keys("Left")  # audio
        self.press("Return")
        self.wait_for("the resume", lambda: f"resume to position {position} of current track" in self.log())
        self.press("Right")
        self.wait_for_track(2)
        self.kill()
        self.assertTrue(self.player(), "the music goes on without the front end")
        before = self.log().count("winamp.ini shuffle=")
        self.start_to_menu()
        self.press("Return")
        self.wait_for("the list", lambda: self.log().count("winamp.ini shuffle=") > before)
        self.wait_for_music()
        self.assertEqual(self.setting("audio_player", "currenttrack"), "2")


class ManagedResuming(Resuming):
    """The same under a window manager."""

    manager = True


class SoundCard(_Playing):
    def test_keys_change_its_volume(self):
        self.start_and_play(1)
        for key, level in (("u", 52), ("u", 54), ("d", 52)):
            self.press_for(key, (level, 1))
        self.press_for("m", (0, 0))
        self.press_for("m", (52, 1))
        self.card.unlink()
        self.wait_for("the loss", lambda: "There is no sound card now" in self.log())
        self.card.write_bytes(struct.pack("4i", 90, 1, 50, 1))  # with a level of its own
        self.wait_for("the return", lambda: "The sound card is there now" in self.log())
        self.wait_for("the level of before", lambda: self.master() == (52, 1))
        self.press_for("u", (54, 1))

    def press_for(self, key, master):
        self.press(key)
        self.wait_for(f"{master} by {key}", lambda: self.master() == master)

    def test_without_one_a_message_waits_and_the_music_does_not(self):
        self.card.unlink()
        self.start_and_play(1)
        self.assertIn("No Sound Card Detected", self.log())
        self.wait_for_message()
        self.press("Right")
        self.keys("Return")
        self.assertFalse(self.message())
        self.assertEqual(self.setting("audio_player", "currenttrack"), "1")
        self.press("Right")
        self.wait_for_track(2)


class HeldEnter(_Playing):
    def test_leads_to_the_settings(self):
        self.start_to_menu()
        before = self.setting("main", "CurrentSkin")
        self.hold("Return")  # the bar, the settings at its left end
        self.keys("Left", "Return", "Up", "Left", "Return")  # the tab of the appearance
        self.press("Return")  # the skin before this one
        self.wait_for("another skin", lambda: self.setting("main", "CurrentSkin") != before)


class LostPlayer(_Playing):
    def test_is_brought_back(self):
        self.start_and_play(1)
        old = self.player()
        os.kill(old[0], signal.SIGKILL)
        self.wait_for("the watchdog", lambda: "Winamp was restarted" in self.log())
        self.wait_for("a new player", lambda: self.player() and self.player() != old)
        self.settle("the menu")
        self.press("Escape")  # on the menu it does nothing
        self.play(2)  # the browser tile is still chosen
        self.wait_for_music(2000)
        hung = self.player()
        os.kill(hung[0], signal.SIGSTOP)
        self.wait_for("the end of what hangs", lambda: "Winamp does not answer and is ended" in self.log())
        self.wait_for("the music", lambda: "of current track" in self.log() and self.player() not in ([], hung))
        self.wait_for_music()
        self.assertEqual(self.setting("audio_player", "currenttrack"), "2")


if __name__ == "__main__":
    main()
