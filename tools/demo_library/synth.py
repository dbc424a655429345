"""A composer and band: the same seed always gives the same tune.

A tune is a loop of four bars, played with more or fewer instruments from round to round.
"""

import array
import math
import random
from operator import add

from . import voices
from .styles import BASS_LINES, LEAD_LINES, PROGRESSIONS, SCALES, STYLES

PEAK = 0.8  # of full scale: -1.9 dBFS, the rest is left for the encoders' overshoot
LOUDNESS = 0.17  # root mean square of the fullest round before limiting
FADE = 2.0  # seconds
BARS = 4


class Tune:
    """Everything that is drawn by lot for one tune."""

    def __init__(self, seed, style_name):
        rng = self.rng = random.Random(seed)
        style = self.style = STYLES[style_name]
        self.tempo = rng.uniform(*style.tempo)
        self.tonic = rng.randrange(12)
        self.scale = SCALES[rng.choice(style.scales)]
        self.chords = rng.choice(PROGRESSIONS)
        self.steps = 4 * style.beats  # in a bar
        self.step = 60 / self.tempo / 4 * voices.RATE  # samples
        self.length = round(self.step * self.steps * BARS)
        self.lead = rng.choice(style.leads)
        self.chord_voice = rng.choice(style.chords)
        self.bass_voice = rng.choice(style.bass)

    def pitch(self, place, base):
        """The MIDI number of a place in the scale, counted from the tonic next above base."""
        octave, degree = divmod(place, 7)
        return base + (self.tonic - base) % 12 + 12 * octave + self.scale[degree]

    def start(self, bar, step):
        """The sample at which a step of a bar begins."""
        late = self.style.swing * (step % 4 == 2) * 1.3
        return round((bar * self.steps + step + late) * self.step)

    def line(self, choices):
        """The steps at which a line of a choice has its strokes."""
        text = self.rng.choice(choices)
        return [n for n in range(self.steps) if text[n] == "x"]


class Stem:
    """One instrument's loop; what rings past its end sounds on at its beginning."""

    def __init__(self, length):
        self.samples = [0.0] * length

    def play(self, start, sound):
        """Adds a sound that is shorter than the loop."""
        length = len(self.samples)
        start %= length
        fits = min(len(sound), length - start)
        self._add(start, sound[:fits])
        self._add(0, sound[fits:])

    def _add(self, start, sound):
        end = start + len(sound)
        self.samples[start:end] = map(add, self.samples[start:end], sound)

    def at(self, level):
        """The samples, made louder or softer."""
        return [level * s for s in self.samples]

    def echoed(self, delay, level):
        """The stem with one repeat of itself."""
        old = self.samples[-delay:] + self.samples[:-delay]
        self.samples = [a + level * b for a, b in zip(self.samples, old)]
        return self


def _chord_stem(tune):
    stem = Stem(tune.length)
    for bar, root in enumerate(tune.chords):
        notes = [tune.pitch(root + n, 50) for n in (0, 2, 4)]
        if tune.style.broken:
            for step in range(0, tune.steps, 2):
                pitch = (notes + [notes[0] + 12])[(step // 2 * 3) % 4]
                count = round(tune.step * 4)
                stem.play(tune.start(bar, step), voices.note(tune.chord_voice, pitch, count))
        else:
            count = round(tune.step * tune.steps)
            for pitch in notes:
                stem.play(tune.start(bar, 0), voices.note(tune.chord_voice, pitch, count))
    return stem


def _bass_stem(tune):
    stem = Stem(tune.length)
    steps = range(0, tune.steps, 4) if tune.style.walking else tune.line(BASS_LINES)
    for bar, root in enumerate(tune.chords):
        walk = (0, tune.rng.choice((2, 4)), 4, tune.rng.choice((1, 2, 6)))
        for step in steps:
            place = root + (walk[step // 4] if tune.style.walking else 0)
            pitch = tune.pitch(place, 33)
            stem.play(tune.start(bar, step),
                      voices.note(tune.bass_voice, pitch, round(tune.step * 3)))
    return stem


def _lead_stem(tune):
    """A melody that moves by small steps and meets the chord on each bar's first note."""
    stem, place = Stem(tune.length), tune.rng.choice((0, 2, 4))
    rhythms = [tune.line(LEAD_LINES) for _ in range(2)]
    for bar, root in enumerate(tune.chords):
        steps = rhythms[bar % 2]
        for n, step in enumerate(steps):
            if n == 0:
                place = min((root + k - 14 + 7 * o for k in (0, 2, 4) for o in range(5)),
                            key=lambda p: abs(p - place) + (p < -2) * 9 + (p > 8) * 9)
            else:
                place += tune.rng.choice((-2, -1, -1, 1, 1, 2))
            rest = (steps + [tune.steps])[n + 1] - step
            count = round(tune.step * min(rest, 6) * 1.15)
            stem.play(tune.start(bar, step), voices.note(tune.lead, tune.pitch(place, 67), count))
    return stem.echoed(round(tune.step * 3), 0.3)


def _drum_stem(tune):
    stem, style = Stem(tune.length), tune.style
    for lines, stroke, level in ((style.kick, voices.kick, 1.0), (style.snare, voices.snare, 0.6),
                                 (style.hat, voices.hat, 0.45)):
        sound = [level * s for s in stroke(tune.rng)]
        for bar in range(BARS):
            for step in tune.line(lines):
                stem.play(tune.start(bar, step), sound)
    return stem


def _limited(samples, gain):
    tanh = math.tanh
    return [PEAK * tanh(gain * s) for s in samples]


def _rounds(tune):
    """The loops of the tune: without drums and melody, with the first and the second melody."""
    start = list(map(add, _chord_stem(tune).at(0.22), _bass_stem(tune).at(0.5)))
    band = list(map(add, start, _drum_stem(tune).at(0.55)))
    first = list(map(add, band, _lead_stem(tune).at(0.3)))
    second = list(map(add, band, _lead_stem(tune).at(0.3)))
    gain = LOUDNESS / PEAK / math.sqrt(sum(s * s for s in first) / tune.length)
    return [_limited(loop, gain) for loop in (start[tune.length // 2:], first, second)]


def render(seed, style_name, seconds):
    """The tune of a seed as 16-bit mono samples of voices.RATE a second, faded out at its end."""
    tune = Tune(seed, style_name)
    intro, first, second = _rounds(tune)
    count, fade = int(seconds * voices.RATE), int(FADE * voices.RATE)
    samples = intro + first + second
    while len(samples) < count:
        samples += first + second
    del samples[count:]
    for n in range(fade):
        samples[count - fade + n] *= 1 - n / fade
    return array.array("h", [int(32767 * s) for s in samples])
