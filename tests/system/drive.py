"""Drives the real system: the first run by keys, playing, volume, a kill, resuming, a lost player."""

import os
import signal
import struct
import sys
import time
import unittest

from driven import Driven, wait_for


class SystemTest(Driven):
    def play_second_track(self):
        self.keys("Right", "Return")  # the browser
        # Album is the last row but one; in it: the way back, One, Two.
        self.keys("Up", "Up", "Return", "Down", "Down", "Return")
        wait_for("the second track", lambda: self.setting("audio_player", "currenttrack") == "1")

    def test_first_run_by_keys_alone(self):
        self.start()
        wait_for("the settings file", lambda: (self.app / "winamp.ini").exists())
        time.sleep(2)
        self.keys("Return")  # the welcome
        self.keys("Down", "Return", "Right", "Return")  # Music, select
        self.keys("Down", "Down", "Return", "Right", "Return")  # Zlists, select
        self.keys("Return", "Return")  # two messages
        wait_for("the menu", lambda: "Main menu painted" in self.log())
        self.assertEqual(self.setting("main", "MediaDir"), str(self.album.parent))
        self.assertEqual(self.setting("main", "PlaylistDir"), str(self.album.parent / "Zlists"))
        self.assertEqual(self.setting("main", "Setup").lower(), "true")

    def test_plays_and_resumes_after_the_end_and_after_a_kill(self):
        self.set_up()
        self.start_to_menu()
        self.play_second_track()
        time.sleep(3)
        self.end()
        position = int(float(self.setting("audio_player", "CurrentPosition")))
        self.assertGreaterEqual(position, 1)
        self.start_to_menu()
        self.keys("Left", "Return")  # audio
        wait_for("the resume", lambda: f"resume to position {position} of current track" in self.log())
        self.keys("Right")
        wait_for("the third track", lambda: self.setting("audio_player", "currenttrack") == "2")
        self.system.kill()
        self.system.wait()
        self.assertTrue(self.player_id(), "the music goes on without the front end")
        self.start_to_menu()
        self.keys("Return")
        wait_for("the list", lambda: self.log().count("winamp.ini shuffle=") >= 3)
        self.assertEqual(self.setting("audio_player", "currenttrack"), "2")

    def test_keys_change_the_volume_of_the_sound_card(self):
        self.set_up()
        self.start_to_menu()
        self.play_second_track()
        self.keys("u", "u")
        wait_for("two steps up", lambda: self.master() == (54, 1))
        self.keys("d")
        wait_for("one step down", lambda: self.master() == (52, 1))
        self.keys("m")
        wait_for("silence", lambda: self.master() == (0, 0))
        self.keys("m")
        wait_for("sound again", lambda: self.master() == (52, 1))
        self.card.unlink()
        wait_for("the loss", lambda: "There is no sound card now" in self.log())
        self.card.write_bytes(struct.pack("4i", 90, 1, 50, 1))  # with a level of its own
        wait_for("the return", lambda: "The sound card is there now" in self.log())
        wait_for("the level of before", lambda: self.master() == (52, 1))
        self.keys("u")
        wait_for("a step up", lambda: self.master() == (54, 1))

    def test_without_a_sound_card_a_message_waits_and_the_music_does_not(self):
        self.card.unlink()
        self.set_up()
        self.start_to_menu()
        self.assertIn("No Sound Card Detected", self.log())
        self.play_second_track()
        self.keys("Right")  # the message is in front
        time.sleep(1)
        self.assertEqual(self.setting("audio_player", "currenttrack"), "1")
        self.keys("Return", "Right")
        wait_for("the third track", lambda: self.setting("audio_player", "currenttrack") == "2")

    def test_a_lost_player_is_brought_back(self):
        self.set_up()
        self.start_to_menu()
        self.play_second_track()
        old = self.player_id()
        os.kill(int(old[0]), signal.SIGKILL)
        wait_for("the watchdog", lambda: "Winamp was restarted" in self.log())
        wait_for("a new player", lambda: self.player_id() and self.player_id() != old)
        time.sleep(0.5)
        self.keys("Escape")  # on the menu it does nothing
        self.play_second_track_again()

    def play_second_track_again(self):
        self.keys("Return")  # the browser tile is still chosen
        self.keys("Up", "Up", "Return", "Down", "Down", "Down", "Return")
        wait_for("the third track", lambda: self.setting("audio_player", "currenttrack") == "2")

    def test_foreign_settings_do_not_stop_the_start(self):
        (self.app / "settings.ini").write_bytes(bytes(range(256)) * 64)
        self.start()
        wait_for("the question", lambda: (self.app / "settings.ini").exists())
        time.sleep(2)
        self.keys("Return", "Return")  # take over, told so
        wait_for("the files", lambda: (self.app / "winamp.ini").exists())
        self.assertIsNone(self.system.poll())


class ManagedSystemTest(SystemTest):
    """The same under a window manager."""

    manager = True
    test_foreign_settings_do_not_stop_the_start = None
    test_a_lost_player_is_brought_back = None
    test_keys_change_the_volume_of_the_sound_card = None
    test_without_a_sound_card_a_message_waits_and_the_music_does_not = None


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
