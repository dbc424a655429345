"""Drives the catalogue and the list editor: a playlist of ten titles from an artist, named, found, played, edited.

Once by arrows, Enter and Escape alone, once by touch alone.
"""

from driven import Driven, SmallTouched, main, write_tone

ARTIST = "O'Hanlon's Ferry"


def tag(path, title):
    """Appends an ID3v1 tag, which players skip."""
    texts = ((title, 30), (ARTIST, 30), ("The Album", 30), ("2001", 4), ("", 30))
    path.write_bytes(path.read_bytes() + b"TAG" + b"".join(t.encode().ljust(n, b"\0") for t, n in texts) + b"\x11")


class _Lists(Driven):
    def setUp(self):
        super().setUp()
        for number in range(1, 13):
            song = self.album.parent / "Ferry" / f"{number:02}.wav"
            write_tone(song, 20)
            tag(song, f"Song {number:02}")
        self.set_up()
        self.start_to_menu()
        self.wait_for("the catalogue", lambda: "db checkpoint" in self.log())
        self.settle("the menu")

    def playlist(self):
        path = self.album.parent / "Zlists" / "Q.m3u"
        return path.read_text().split() if path.exists() else []

    def played(self):
        path = self.app / "vk_audio.m3u"
        return [line for line in path.read_text().splitlines() if line[:1] != "#"] if path.exists() else []

    def finish(self, numbers):
        songs = [str(self.album.parent / "Ferry" / f"{number:02}.wav") for number in numbers]
        self.wait_for("the list without its first entry", lambda: self.playlist() == songs[1:])
        self.assertEqual(self.played(), songs)

    def wait_for_ten(self):
        self.wait_for("the list", lambda: len(self.playlist()) == 10)
        self.settle("the saved list")

    def wait_for_the_player(self):
        self.wait_for("the list in the player", lambda: len(self.played()) == 10)
        self.wait_for_track(0)
        self.settle("the player")


class KeysLists(_Lists):
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
        self.wait_for_ten()
        self.picture("keys-saved")
        self.keys("Escape", "Return")  # the menu and back
        self.open_list()
        self.picture("keys-list")
        self.keys("Down", "Down", "Return")
        self.wait_for_the_player()
        self.keys("p")
        self.picture("keys-back")  # the list that is played
        self.keys("Up", "Return", "Right")  # from the song that plays up to edit, to the right list
        self.picture("keys-edit")
        self.keys("Return", "Escape", "Return")  # away, the name, "OK" is still marked
        self.finish(range(1, 11))

    def open_list(self):
        self.keys("Return", "Down", "Down", "Down", "Return")  # database, playlists
        self.picture("keys-playlists")
        self.keys("Down", "Return")


class TouchLists(SmallTouched, _Lists):
    # Where things stand: keys, buttons.
    SAVE, HOME, PAGE_DOWN, SWAP = (502, 440), (595, 30), (228, 440), (120, 440)
    KEY_Q, KEY_OK = (32, 250), (607, 314)

    def test_by_touch_alone(self):
        self.tap(self.MEDIA)
        self.rows(self.new_list_row())
        self.rows(0, 1, 1)  # database, artists, the artist
        self.rows(2, 3, 4, 5, 6)
        self.tap(self.PAGE_DOWN)
        self.rows(0, 1, 4, 5, 6)  # the eighth and the ninth are passed over
        self.picture("touch-ten")
        self.tap(self.SAVE, self.KEY_Q)
        self.picture("touch-name")
        self.tap(self.KEY_OK)
        self.wait_for_ten()
        self.tap(self.HOME, self.MEDIA)
        self.rows(0, 3, 1)  # database, playlists, the list
        self.picture("touch-list")
        self.rows(2)
        self.wait_for_the_player()
        self.picture("touch-player")
        self.tap(self.SWAP)
        self.rows(1)  # edit
        self.rows(0, left=480)
        self.picture("touch-edit")
        self.tap(self.SAVE, self.KEY_OK)
        self.finish([*range(1, 8), 10, 11, 12])


if __name__ == "__main__":
    main()
