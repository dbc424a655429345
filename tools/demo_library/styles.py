"""What makes one kind of music sound unlike another."""

from typing import NamedTuple


class Style(NamedTuple):
    """Tempo in beats a minute; drum lines have one character a step, "x" for a stroke."""

    tempo: tuple
    beats: int  # in a bar
    scales: tuple
    leads: tuple
    chords: tuple
    bass: tuple
    walking: bool  # a bass note on each beat, not on the bass line's steps
    broken: bool  # the chord's notes one after the other, not at once
    kick: tuple
    snare: tuple
    hat: tuple
    swing: float = 0.0  # share of a step by which every second one comes late


SCALES = {
    "major": (0, 2, 4, 5, 7, 9, 11),
    "minor": (0, 2, 3, 5, 7, 8, 10),
    "dorian": (0, 2, 3, 5, 7, 9, 10),
    "mixolydian": (0, 2, 4, 5, 7, 9, 10),
}

# Four chords, one a bar, as places in the scale from 0.
PROGRESSIONS = (
    (0, 4, 5, 3), (0, 5, 3, 4), (5, 3, 0, 4), (0, 3, 4, 3), (0, 2, 3, 4), (0, 6, 3, 0),
    (1, 4, 0, 0), (0, 3, 0, 4), (3, 4, 2, 5), (0, 1, 3, 0), (0, 6, 5, 6), (5, 4, 3, 4),
)

STYLES = {
    "pop": Style((104, 126), 4, ("major", "mixolydian"), ("lead", "flute", "bell"),
                 ("epiano", "organ"), ("roundbass", "synthbass"), False, False,
                 ("x.......x.x.....", "x.....x.x......."), ("....x.......x...",),
                 ("x.x.x.x.x.x.x.x.", "..x...x...x...x.")),
    "folk": Style((92, 132), 3, ("major", "mixolydian", "dorian"), ("flute", "reed", "banjo"),
                  ("guitar",), ("upright",), False, True,
                  ("x...........",), ("........x...", "............"), ("....x...x...",)),
    "synth": Style((112, 138), 4, ("minor", "dorian"), ("lead", "bell"), ("strings", "haze"),
                   ("synthbass",), False, False,
                   ("x...x...x...x...",), ("....x.......x...", "....x.......x..x"),
                   ("..x...x...x...x.", "x.xxx.xxx.xxx.xx")),
    "jazz": Style((84, 120), 4, ("dorian", "mixolydian", "major"), ("reed", "epiano", "flute"),
                  ("epiano", "organ"), ("upright",), True, False,
                  ("x.......x.......",), ("......x.......x.", "..............x."),
                  ("x...x.x.x...x.x.",), 0.6),
    "ambient": Style((60, 76), 4, ("major", "dorian", "minor"), ("bell", "flute", "epiano"),
                     ("haze", "strings"), ("roundbass",), False, False,
                     ("x...............", "................"), ("................",),
                     ("........x.......", "....x.......x...")),
    "country": Style((100, 144), 4, ("major", "mixolydian"), ("banjo", "guitar", "reed"),
                     ("guitar",), ("upright",), True, True,
                     ("x.......x.......",), ("....x.......x...", "..x.x.x...x.x.x."),
                     ("x...x...x...x...",), 0.25),
    "rock": Style((116, 152), 4, ("minor", "mixolydian"), ("lead", "organ"), ("organ", "strings"),
                  ("synthbass", "upright"), False, False,
                  ("x..x....x.x.....", "x.x.....x..x...."), ("....x.......x...",),
                  ("x.x.x.x.x.x.x.x.",)),
}

BASS_LINES = ("x..x..x.x..x..x.", "x.......x...x...", "x.x.x.x.x.x.x.x.", "x...x.....x.x...")
LEAD_LINES = (
    "x...x.x.x...x...", "x.x.x...x.x.x...", "x.....x.x.......", "..x.x.x...x.x...",
    "x..x..x...x.....", "x...x...x.x.x.x.",
)
