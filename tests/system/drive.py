#!/usr/bin/env python3
"""Drives the real system on a virtual display: the first run by keys, playing, volume, a kill, resuming, a lost player.

drive.py APPDIR VKINI CARD: APPDIR holds the built programs and skins, VKINI is the settings tool, CARD the
sound card that ALSA is given.
Real time passes here; nothing waits longer than it has to.
"""

import os
import pathlib
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import wave

APPDIR, VKINI, CARD = pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3]
PATIENCE = 40  # seconds for any one thing, on a slow and busy machine
PROGRAMS = ("velkorandum", "winamp", "DB_UPDATE", "tags_empty.mdb")


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if condition():
            return
        time.sleep(0.05)
    raise AssertionError(f"never happened: {what}")


def write_tone(path, seconds):
    path.parent.mkdir(parents=True, exist_ok=True)
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(8000)
        out.writeframes(b"\0\0\x10\x10" * (4000 * seconds))


class Display:
    """A virtual display with or without a window manager."""

    def __init__(self, manager):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "800x480x24", "-dpi", "96", "-nolisten", "tcp"],
            pass_fds=(writing,), stderr=subprocess.DEVNULL)
        os.close(writing)
        # To its line end: the server would die of writing to a closed pipe.
        with os.fdopen(reading) as answer:
            self.name = ":" + answer.readline().strip()
        self.manager = manager and subprocess.Popen(
            ["openbox"], env={**os.environ, "DISPLAY": self.name},
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def close(self):
        for process in (self.manager, self.server):
            if process:
                process.terminate()
                process.wait()


class SystemTest(unittest.TestCase):
    manager = False

    def setUp(self):
        self.display = Display(self.manager)
        self.addCleanup(self.display.close)
        self.work = pathlib.Path(tempfile.mkdtemp(prefix="velkorandum-test-"))
        self.addCleanup(shutil.rmtree, self.work, ignore_errors=True)
        self.app = self.work / "app"
        self.app.mkdir()
        for program in PROGRAMS:
            shutil.copy(APPDIR / program, self.app)
        os.symlink(APPDIR / "skins", self.app / "skins")
        self.env = {**os.environ, "DISPLAY": self.display.name, "QT_QPA_PLATFORM": "xcb",
                    "XDG_RUNTIME_DIR": str(self.work), "HOME": str(self.work / "home"),
                    "XDG_CONFIG_HOME": str(self.work / "config")}
        os.chmod(self.work, 0o700)
        self.make_card()
        self.album = self.work / "home" / "Music" / "Album"
        for number, title in enumerate(("One", "Two", "Three"), 1):
            write_tone(self.album / f"0{number}_Somebody - {title}.wav", 30)
        (self.work / "home" / "Music" / "Zlists").mkdir()
        subprocess.run([self.app / "DB_UPDATE"], env=self.env, check=True)
        self.system = None
        self.addCleanup(self.end)

    def make_card(self):
        """The system's configuration with a card of our own; a missing file of its numbers is a missing card."""
        self.card = self.work / "card"
        self.card.write_bytes(struct.pack("4i", 50, 1, 50, 1))
        configuration = self.work / "asound.conf"
        configuration.write_text(
            "</usr/share/alsa/alsa.conf>\n"
            f'ctl_type.fake {{ lib "{CARD}" }}\n'
            f'ctl.!default {{ type fake state "{self.card}" elements [ "Master Playback" "PCM Playback" ] }}\n')
        self.env["ALSA_CONFIG_PATH"] = str(configuration)

    def master(self):
        return struct.unpack("2i", self.card.read_bytes()[:8])

    def start(self):
        self.system = subprocess.Popen([self.app / "velkorandum"], env=self.env)

    def start_to_menu(self):
        before = self.log().count("Main menu painted")
        self.start()
        wait_for("the menu", lambda: self.log().count("Main menu painted") > before)
        time.sleep(0.3)

    def end(self):
        if self.system and self.system.poll() is None:
            self.system.send_signal(signal.SIGTERM)
            self.assertEqual(self.system.wait(PATIENCE), 0)
        subprocess.run(["pkill", "-f", str(self.app / "winamp")], check=False)

    def set_up(self):
        settings = str(self.app / "settings.ini")
        subprocess.run([VKINI, "make", settings], check=True)
        for key, value in (("MediaDir", self.album.parent), ("PlayListDir", self.album.parent / "Zlists"),
                           ("Setup", "true"), ("alwaysontop", "true")):
            subprocess.run([VKINI, "set", settings, "main", key, str(value)], check=True)

    def log(self):
        path = self.app / "debug.log"
        return path.read_text(errors="replace") if path.exists() else ""

    def setting(self, section, key):
        result = subprocess.run([VKINI, "get", self.app / "settings.ini", section, key],
                                capture_output=True, text=True, check=True)
        return result.stdout.strip()

    def keys(self, *names):
        for name in names:
            subprocess.run(["xdotool", "key", name], env=self.env, check=True)
            time.sleep(0.5)

    def player_id(self):
        found = subprocess.run(["pgrep", "-f", str(self.app / "winamp")], capture_output=True, text=True)
        return found.stdout.split()[:1]

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
        wait_for("the loss", lambda: "The sound card is gone" in self.log())
        self.card.write_bytes(struct.pack("4i", 50, 1, 50, 1))
        wait_for("the return", lambda: "The sound card is there again" in self.log())
        self.keys("u")
        wait_for("a step up", lambda: self.master() == (52, 1))

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
