"""The artists, albums and titles of the demo library. All of them are invented."""

from typing import NamedTuple


class Album(NamedTuple):
    """An album and how its files are made.

    tags is "v1", "v2.2", "v2.3", "v2.4", "v2.4+v1", "comment" (the container's own) or "" for
    none; pictures names the folder's picture files, and "embedded" is one within each file.
    """

    artist: str
    name: str
    genre: str
    genre_number: int
    year: int
    style: str  # of styles.STYLES
    extension: str
    tags: str
    pictures: tuple
    titles: tuple


ALBUMS = (
    Album("Bärbel & the Glühwürmchen", "Laternen im Regen", "Pop", 13, 2003, "pop", "mp3", "v2.3",
          ("folder.jpg",),
          ("Grüße aus der Waschstraße", "Laternen im Regen", "Süßer Asphalt", "Fünf Minuten Grün")),
    Album("Bärbel & the Glühwürmchen", "Mondscheinlimonade", "Pop", 13, 2005, "pop", "ogg",
          "comment", ("folder.jpg", "back.jpg"),
          ("Mondscheinlimonade", "Kühle Knöpfe", "Wär' ich ein Scheinwerfer", "Zuckerwatte & Zimt")),
    Album("O'Hanlon's Ferry", "The Last Boat Home", "Folk", 80, 1998, "folk", "mp3", "v2.4",
          ("cover.jpg", "folder.jpg"),
          ("The Last Boat Home", "Maggie's Crossing", "Tide Tables", "Rope & Lantern",
           "The Very Long Way Round the Lake Because the Bridge Was Closed Again")),
    Album("O'Hanlon's Ferry", "Don't Wake the Harbour", "Folk", 80, 1994, "folk", "mp3", "v1",
          ("folder.jpg",),
          ("Don't Wake the Harbour", "Seven Gulls", "The Ferryman's Waltz", "Salt on the Rail")),
    Album("Neon Kestrel", "Night Shift Overdrive", "Electronic", 52, 2004, "synth", "mp3", "v2.3",
          ("embedded",),
          ("Ignition", "Mirror Signal Manoeuvre", "Cat's Eyes", "Tunnel Vision")),
    Album("Neon Kestrel", "Tail Lights", "Electronic", 52, 2006, "synth", "flac", "",
          ("folder.jpg",), ("Tail Lights", "Red Shift", "Hazard Pattern")),
    Album("The Paper Lighthouse", "Folded Maps", "Rock", 17, 2001, "rock", "mp3", "v2.2",
          ("folder.jpg",),
          ("Folded Maps", "Wrong Turn, Right Town", "Glovebox Letters", "Passenger Side")),
    Album("Tarmac Orchestra", "Kilometre Zero", "Jazz", 8, 1999, "jazz", "ogg", "comment",
          ("folder.jpg", "inside.jpg"),
          ("Kilometre Zero", "Roundabout in Blue", "Toll Booth Serenade", "Hard Shoulder")),
    Album("Sören Fjällvind", "Åskväder", "Ambient", 26, 2002, "ambient", "mp3", "v2.4",
          ("embedded", "folder.jpg"),
          ("Åskväder", "Björk och Dimma", "Nattfärja", "Snö på Vägen")),
    Album("Copper Canyon Drifters", "Dust & Chrome", "Country", 2, 1997, "country", "mp3",
          "v2.3", ("folder.jpg",),
          ("Dust & Chrome", "Two Hundred Miles of Nothin'", "Radio Preacher", "Coffee at Exit 9",
           "My Truck Knows the Way")),
    Album("Copper Canyon Drifters", "Two Lane Prayer", "Country", 2, 2000, "country", "wav", "",
          ("folder.jpg",), ("Two Lane Prayer", "Fence Posts", "Gravel")),
    Album("Mirabel Quist", "Small Hours", "Jazz", 8, 1996, "jazz", "mp3", "v1", ("folder.jpg",),
          ("Small Hours", "The Lamp Stays On", "Velvet Detour", "Half Past Never")),
    Album("DJ Rückspiegel", "Überholspur", "Techno", 18, 2005, "synth", "mp3", "v2.4+v1",
          ("embedded",),
          ("Überholspur", "Blinker Links", "Drehzahl", "Tempo Dreißig")),
    Album("Saltwater Antenna", "Low Frequencies", "Instrumental", 33, 2003, "ambient", "ogg",
          "comment", ("folder.jpg",),
          ("Low Frequencies", "Shipping Forecast", "Static Garden", "Lighthouse Keeper's Log")),
    Album("Los Faros Rotos", "Autopista Ámbar", "Rock", 17, 2004, "rock", "mp3", "v2.2",
          ("folder.jpg", "back.jpg"),
          ("Autopista Ámbar", "Mañana Sin Mapa", "Peaje", "¿Quién Conduce?")),
    Album("Various", "Parking Garage Tape", "", 255, 0, "rock", "mp3", "", (),
          ("The Brake Dust Choir - Level Minus Two", "Hubcap Henrietta - Pay Before You Leave",
           "Señor Turbo - Rampa", "The Brake Dust Choir - Echo Test",
           "Hubcap Henrietta - Lost Ticket")),
)


class Track(NamedTuple):
    """One file of the library; number counts from 1 within the album."""

    album: Album
    number: int
    title: str

    @property
    def path(self):
        """Relative to the media folder; files without tags say artist and title themselves."""
        if self.album.artist == "Various":
            name = f"{self.number:02}_{self.title}"
        elif not self.album.tags:
            name = f"{self.number:02}_{self.album.artist} - {self.title}"
        else:
            name = f"{self.number:02} {self.title}"
        name = name.replace("?", "").replace("¿", "").replace("/", "-")
        return f"{self.album.artist}/{self.album.name}/{name}.{self.album.extension}"

    @property
    def seed(self):
        """What the tune is drawn from: stays the same if the list of albums grows."""
        return f"{self.album.artist}/{self.album.name}/{self.title}"


def tracks(limit=None):
    """All tracks, or the first limit ones: the albums' openers come before their second titles."""
    found = [Track(album, n, title) for album in ALBUMS for n, title in enumerate(album.titles, 1)]
    return sorted(found, key=lambda track: track.number)[:limit]


# Name of a playlist, and a test that says which tracks are in it.
PLAYLISTS = (
    ("Morning Drive", lambda track: track.album.style in ("pop", "folk") and track.number < 4),
    ("Night & Neon", lambda track: track.album.style == "synth"),
    ("O'Hanlon's Favourites", lambda track: track.number == 2),
    ("Schöne Grüße", lambda track: not (track.album.artist + track.title).isascii()),
    ("Everything", lambda track: True),
)
