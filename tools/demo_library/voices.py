"""Instruments: notes and drum strokes as lists of samples between -1 and 1.

A note reads a bright and a dark single-cycle table at the same place and fades from the first
to the second, which is what plucked and struck strings do.
"""

import functools
import math
from typing import NamedTuple

RATE = 22050  # samples a second
TABLE_BITS = 11
TABLE_SIZE = 1 << TABLE_BITS
PHASE_BITS = 16  # fraction of a table place, in the fixed-point phase
DARK_AFTER = 4  # time constants after which the bright table is not heard any more
RELEASE = 0.05  # seconds in which a note's end fades


class Voice(NamedTuple):
    """An instrument: partial strengths, times in seconds, levels from 0 to 1."""

    bright: tuple
    dark: tuple
    attack: float
    decay: float
    sustain: float
    brightness: float  # time constant of the fade from bright to dark
    detune: float = 0.0  # semitones between two players in unison; 0 for one player


def _saw(count):
    return tuple(1 / n for n in range(1, count + 1))


def _square(count):
    return tuple(1 / n if n % 2 else 0.0 for n in range(1, count + 1))


VOICES = {
    "guitar": Voice(_saw(14), (1, 0.35, 0.12, 0.05), 0.004, 0.45, 0.0, 0.12),
    "banjo": Voice((0.7, 1, 0.9, 0.7, 0.5, 0.5, 0.3, 0.3), (1, 0.5, 0.3), 0.002, 0.2, 0.0, 0.08),
    "epiano": Voice((1, 0.3, 0, 0.1, 0, 0, 0.35, 0, 0, 0, 0, 0, 0, 0.15), (1, 0.12), 0.004, 0.8,
                    0.0, 0.15),
    "organ": Voice((1, 0.8, 0.5, 0.4, 0, 0.3, 0, 0.25), (1, 0.8, 0.5, 0.4, 0, 0.2), 0.02, 1.0, 0.9,
                   0.2, 0.05),
    "strings": Voice(_saw(10), _saw(6), 0.18, 1.0, 0.85, 0.2, 0.11),
    "haze": Voice((1, 0.4, 0.25, 0.12), (1, 0.15, 0.05), 0.4, 1.0, 0.9, 0.15, 0.16),
    "flute": Voice((1, 0.35, 0.12, 0.05), (1, 0.2, 0.05), 0.06, 1.0, 0.8, 0.3),
    "reed": Voice(_square(9), _square(5), 0.03, 0.8, 0.7, 0.5),
    "lead": Voice(_saw(16), _saw(7), 0.01, 0.6, 0.5, 0.3, 0.08),
    "bell": Voice((1, 0, 0.5, 0, 0.4, 0, 0, 0.3, 0, 0, 0.2), (1, 0, 0.2), 0.002, 0.6, 0.0, 0.3),
    "upright": Voice((1, 0.6, 0.35, 0.15, 0.06), (1, 0.3), 0.006, 0.5, 0.1, 0.1),
    "synthbass": Voice(_saw(12), (1, 0.5, 0.2, 0.1), 0.004, 0.35, 0.35, 0.09),
    "roundbass": Voice((1, 0.25, 0.05), (1, 0.1), 0.01, 0.7, 0.5, 0.3),
}


@functools.lru_cache(maxsize=None)
def _table(partials):
    """One cycle of the sum of the partials, its peak at 1."""
    angle = 2 * math.pi / TABLE_SIZE
    cycle = [
        sum(level * math.sin(angle * n * place) for n, level in enumerate(partials, 1) if level)
        for place in range(TABLE_SIZE)
    ]
    peak = max(map(abs, cycle))
    return [value / peak for value in cycle]


@functools.lru_cache(maxsize=64)
def _envelopes(voice, count):
    """How loud the bright and the dark table are at each of count samples."""
    bright, dark = [], []
    release = int(RELEASE * RATE)
    for n in range(count):
        t = n / RATE
        level = min(1.0, t / voice.attack, (count - n) / release)
        level *= voice.sustain + (1 - voice.sustain) * math.exp(-t / voice.decay)
        share = math.exp(-t / voice.brightness)
        bright.append(level * share)
        dark.append(level * (1 - share))
    return bright, dark


def _tone(voice, frequency, count):
    bright, dark = _table(voice.bright), _table(voice.dark)
    bright_level, dark_level = _envelopes(voice, count)
    step = int(frequency * TABLE_SIZE / RATE * (1 << PHASE_BITS))
    mask = TABLE_SIZE - 1
    early = min(count, int(DARK_AFTER * voice.brightness * RATE))
    sound = [
        bright[place := (phase >> PHASE_BITS) & mask] * b + dark[place] * d
        for phase, b, d in zip(range(0, step * early, step), bright_level, dark_level)
    ]
    sound += [
        dark[(phase >> PHASE_BITS) & mask] * d
        for phase, d in zip(range(step * early, step * count, step), dark_level[early:])
    ]
    return sound


@functools.lru_cache(maxsize=256)
def note(name, pitch, count):
    """A note of the named voice, pitch in MIDI numbers, count samples long."""
    voice = VOICES[name]
    frequency = 440 * 2 ** ((pitch - 69) / 12)
    if not voice.detune:
        return _tone(voice, frequency, count)
    spread = 2 ** (voice.detune / 24)
    players = _tone(voice, frequency * spread, count), _tone(voice, frequency / spread, count)
    return [(a + b) / 2 for a, b in zip(*players)]


def kick(rng):
    """A bass drum: a tone that falls from about 150 to 50 Hz."""
    low, fall = rng.uniform(44, 58), rng.uniform(0.03, 0.06)
    strokes, phase = [], 0.0
    for n in range(int(0.28 * RATE)):
        t = n / RATE
        phase += 2 * math.pi * low * (1 + 2.5 * math.exp(-t / fall)) / RATE
        strokes.append(math.sin(phase) * math.exp(-t / 0.09))
    return strokes


def snare(rng):
    """A snare drum: noise over a short tone."""
    pitch, ring = rng.uniform(160, 230), rng.uniform(0.05, 0.1)
    return [
        (0.7 * rng.uniform(-1, 1) + 0.5 * math.sin(2 * math.pi * pitch * n / RATE))
        * math.exp(-n / RATE / ring)
        for n in range(int(0.25 * RATE))
    ]


def hat(rng):
    """A closed cymbal: noise without its low part."""
    ring, last, strokes = rng.uniform(0.015, 0.04), 0.0, []
    for n in range(int(0.09 * RATE)):
        noise = rng.uniform(-1, 1)
        strokes.append((noise - last) / 2 * math.exp(-n / RATE / ring))
        last = noise
    return strokes
