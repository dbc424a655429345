"""Album pictures: a geometric pattern in a few colours, drawn from a seed."""

import colorsys
import math
import random

SIZE = 360  # pixels a side


def _rings(x, y, k):
    return math.hypot(x - 0.5 - 0.3 * math.cos(k), y - 0.5 - 0.3 * math.sin(k)) * 9


def _stripes(x, y, k):
    return (x * math.cos(k) + y * math.sin(k)) * 8 + 16


def _waves(x, y, k):
    return y * 8 + 0.8 * math.sin(9 * x + k) + 8


def _tiles(x, y, k):
    return int(x * 6 + k) + int(y * 6) * (1 + int(k) % 3)


def _rays(x, y, k):
    return math.atan2(y - 0.7, x - 0.2 - k / 12) * 4 + 16


def draw(seed):
    """A picture as SIZE rows of SIZE pixels, 3 bytes each: red, green, blue."""
    rng = random.Random(seed)
    pattern, k = rng.choice((_rings, _stripes, _waves, _tiles, _rays)), rng.uniform(0, 6)
    hue = rng.random()
    colours = [
        colorsys.hsv_to_rgb((hue + rng.choice((0, 0.04, 0.5, 0.55))) % 1, rng.uniform(0.4, 0.9),
                            0.25 + 0.7 * n / 4)
        for n in range(5)
    ]
    rng.shuffle(colours)
    sun, sun_x, sun_y = rng.uniform(0.1, 0.22), rng.uniform(0.25, 0.75), rng.uniform(0.2, 0.6)
    pixels = [[bytes(int(255 * c * (1 - 0.35 * row / SIZE)) for c in colour)
               for colour in colours] for row in range(SIZE)]
    rows = []
    for row in range(SIZE):
        y, shades = row / SIZE, pixels[row]
        for column in range(SIZE):
            x = column / SIZE
            inside = (x - sun_x) ** 2 + (y - sun_y) ** 2 < sun * sun
            rows.append(shades[(int(pattern(x, y, k)) + 2 * inside) % 5])
    return b"".join(rows)
