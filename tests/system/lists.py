"""Drives the catalogue and the list editor: a playlist of ten titles from an artist, named, found, played, edited.

Once by arrows, Enter and Escape alone, once by touch alone.
"""

import sys
import time
import unittest

from driven import Driven, wait_for, write_tone

ARTIST = "O'Hanlon's Ferry"


def tag(path, title):
    """Appends an ID3v1 tag, which players skip."""
    texts = ((title, 30), (ARTIST, 30), ("The Album", 30), ("2001", 4), ("", 30))
    path.write_bytes(path.read_bytes() + b"TAG" + b"".join(t.encode().ljust(n, b"\0") for t, n in texts) + b"\x11")


class ListsTest(Driven):
    def setUp(self):
        super().setUp()
        for number in range(1, 13):
            song = self.album.parent / "Ferry" / f"{number:02}.wav"
            write_tone(song, 20)
            tag(song, f"Song {number:02}")
        self.set_up()
        self.start_to_menu()
        wait_for("the catalogue", lambda: "db checkpoint" in self.log())
        time.sleep(1)

    def playlist(self, name):
        path = self.album.parent / "Zlists" / f"{name}.m3u"
        return path.read_text().split() if path.exists() else []

    def played(self):
        path = self.app / "vk_audio.m3u"
        return [line for line in path.read_text().splitlines() if line[:1] != "#"] if path.exists() else []

    def finish(self, name):
        songs = [str(self.album.parent / "Ferry" / f"{number:02}.wav") for number in range(1, 11)]
        wait_for("the list without its first entry", lambda: self.playlist(name) == songs[1:])
        self.assertEqual(self.played(), songs)

    def test_by_keys_alone(self):
        self.keys("Right", "Return")  # the browser
        # From the end: Zlists, Ferry, Album, the new list.
        self.keys("Up", "Up", "Up", "Up", "Return")
        self.keys("Return", "Down", "Return", "Down", "Return")  # database, artists, the artist
        self.picture("keys-artist")
        self.keys("Down")  # the row of the albums
        for _ in range(10):
            self.keys("Down", "Return")
        self.picture("keys-ten")
        self.keys("Escape", "Down", "Return")  # the keyboard, "Q"
        self.picture("keys-name")
        self.keys(*["Right"] * 9, "Down", "Return")  # "P", "OK"
        wait_for("the list", lambda: len(self.playlist("Q")) == 10)
        time.sleep(1.5)
        self.picture("keys-saved")
        self.keys("Escape", "Return")  # the menu and back
        self.open_list()
        self.picture("keys-list")
        self.keys("Down", "Down", "Return")
        wait_for("the list in the player", lambda: len(self.played()) == 10)
        wait_for("the player", lambda: self.setting("audio_player", "currenttrack") == "0")
        self.keys("p")
        self.picture("keys-back")  # the list that is played
        self.keys("Down", "Return", "Right")  # edit, to the right list
        self.picture("keys-edit")
        self.keys("Return", "Escape", "Return")  # away, the name, "OK" is still marked
        self.finish("Q")

    def open_list(self):
        self.keys("Return", "Down", "Down", "Down", "Return")  # database, playlists
        self.picture("keys-playlists")
        self.keys("Down", "Return")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
