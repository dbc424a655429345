"""The pictures of the map's screen: the touch areas of gpsmain.isn.in, drawn where they are touched."""

import re

# Larger than the panels that they are shown on, so that they are only ever made smaller.
SCALE = 2
MARGIN = 3  # between a touch area's edge and its plate, in the skin's own pixels
FADED = 0.3  # what another program's map has no use for
GLYPHS = {"QUIT": "moveback", "GPSLIST": "lists", "SEARCH": "search", "ADDFAV": "addfav", "SHOWROUTE": "route",
          "CANCELROUTE": "cancelroute", "ZOOMOUT": "zoomout", "ZOOMIN": "zoomin", "BACK": "rw", "PAUSE": "pause",
          "FORWARD": "ff", "VOLUP": "vup", "VOLDOWN": "vdown"}
MUSIC = ("BACK", "PAUSE", "FORWARD", "VOLUP", "VOLDOWN")
ENGINE = ("SEARCH", "ADDFAV", "GPSLIST", "SHOWROUTE", "CANCELROUTE", "ZOOMOUT", "ZOOMIN")


def records(isn, kind):
    """The fields behind the record's letter, of every line of that kind."""
    return [line.split(",")[1:] for line in isn.splitlines() if line.startswith(kind + ",")]


def pictures(isn):
    """(file, audio, external, pressed) of the eight pictures."""
    for key, file in records(isn, "G"):
        yield file, not key.startswith("NO"), "EXT" in key, key.endswith("ON")


def inner(svg):
    """A drawing without its outermost element."""
    return re.sub(r"^.*?<svg[^>]*>|</svg>\s*$", "", svg, flags=re.DOTALL)


def plate(box, glyph, opacity):
    left, top, width, height = box
    side = min(width, height) * 0.72
    x, y = left + (width - side) / 2, top + (height - side) / 2
    return (f'<g opacity="{opacity}"><rect x="{left + MARGIN}" y="{top + MARGIN}" width="{width - 2 * MARGIN}" '
            f'height="{height - 2 * MARGIN}" rx="12" fill="@PLATE@" stroke="@EDGE@" stroke-width="2.5"/>'
            f'<g transform="translate({x} {y}) scale({side / 256})">{glyph}</g></g>')


def svg_of(isn, folder, audio, external):
    """One picture, its colours still by name."""
    width, height = (int(field) for field in records(isn, "N")[0])
    areas = {fields[4]: [int(field) for field in fields[:4]] for fields in records(isn, "A")}
    area = areas["MUSIC" if audio else "STANDARD"]
    foot = area[1] + area[3]
    parts = [f'<svg width="{width}" height="{height}" viewBox="0 0 1280 720" preserveAspectRatio="none">',
             inner((folder / "gpsback.svg").read_text(encoding="utf-8")), "</svg>",
             f'<rect width="{width}" height="{area[1]}" fill="@BAR@"/>',
             f'<rect y="{foot}" width="{width}" height="{height - foot}" fill="@BAR@"/>']
    if audio:
        parts.append(f'<rect x="{area[2]}" width="{width - area[2]}" height="{height}" fill="@BAR@"/>')
    for fields in records(isn, "B"):
        name, box = fields[4], [int(field) for field in fields[:4]]
        if name in MUSIC and not audio:
            continue
        glyph = inner((folder / f"{GLYPHS[name]}.svg").read_text(encoding="utf-8"))
        # Names within a drawing count for the whole picture.
        glyph = glyph.replace("clear", f"clear{name}")
        parts.append(plate(box, glyph, FADED if external and name in ENGINE else 1))
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width * SCALE}" height="{height * SCALE}" '
            f'viewBox="0 0 {width} {height}">{"".join(parts)}</svg>')
