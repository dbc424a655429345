#!/usr/bin/env python3
"""Render the skins that ship: render_skins.py OUTDIR

For each palette in palettes/ writes OUTDIR/<palette>.skn and, into OUTDIR/<palette>/, the pictures of
pictures.txt and GPSMain.isn with its pictures; these in the first palette also into COMMON/GPSPICS beside OUTDIR,
for skins without any. Needs rsvg-convert (librsvg2-bin), mogrify (imagemagick) and DejaVu Sans
(fonts-dejavu-core). Does nothing for a skin whose files are all newer than the sources."""

import configparser
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import gps_pictures

HERE = Path(__file__).resolve().parent
OWN_SOURCES = ("render_skins.py", "gps_pictures.py", "pictures.txt", "torque.skn.in", "gpsmain.isn.in")
COMMON_PALETTE = "Torque"
PLACEHOLDER = re.compile(r"@([A-Z_]+)@")
# A GIF pixel is there or not: cut at half, without dithering the flat colours.
GIF_OPTIONS = ["-channel", "A", "-threshold", "50%", "+channel", "+dither"]
# Full colour resolution: the thin lines of the bars keep their edges.
JPEG_OPTIONS = ["-background", "black", "-flatten", "-quality", "92", "-sampling-factor", "4:4:4"]


def read_pictures():
    """The rows of pictures.txt as (file, frame, source, state, word)."""
    rows = []
    for line in (HERE / "pictures.txt").read_text(encoding="utf-8").splitlines():
        fields = line.split("#")[0].split()
        if fields:
            rows.append((*fields[:4], " ".join(fields[4:])))
    return rows


def read_palette(path):
    palette = configparser.ConfigParser(interpolation=None)
    palette.optionxform = str
    palette.read(path, encoding="utf-8")
    return palette


def fill(text, values, origin):
    """Replace each @NAME@ of text; a name that the palette lacks ends the run."""

    def value(match):
        if match[1] not in values:
            sys.exit(f"render_skins: {origin}: the palette has no {match[1]}")
        return values[match[1]]

    return PLACEHOLDER.sub(value, text)


def colours_of(palette, state):
    """Colour by name for one state; a detail wears the accent unless the state says otherwise."""
    colours = dict(palette["colors"])
    colours["DETAIL"] = colours["ACCENT"]
    if state == "chosen":
        colours.update(palette["chosen"])
    return colours


def svg_of(row, palette):
    """The finished drawing: the source inside its frame, every colour and word filled in."""
    _, frame, source, state, word = row
    glyph = (HERE / "svg" / f"{source}.svg").read_text(encoding="utf-8")
    framed = (HERE / "frames" / f"{frame}.svg").read_text(encoding="utf-8")
    values = colours_of(palette, state) | {"WORD": word}
    return fill(framed.replace("@GLYPH@", glyph), values, f"{source}.svg in {frame}.svg")


def skin_number(colour):
    """#RRGGBB as the number that a .skn file holds: blue, green, red from the top byte down."""
    return str(int(colour[5:7] + colour[3:5] + colour[1:3], 16))


def skin_text(palette):
    values = {name: skin_number(colour) for name, colour in palette["colors"].items()}
    values |= dict(palette["skin"])
    return fill((HERE / "torque.skn.in").read_text(encoding="utf-8"), values, "torque.skn.in")


def isn_text(palette):
    values = {name: skin_number(colour) for name, colour in palette["colors"].items()}
    return fill(gps_source(), values, "gpsmain.isn.in")


def gps_source():
    return (HERE / "gpsmain.isn.in").read_text(encoding="utf-8")


def draw_map_screen(palette, folder, isn):
    """The .isn and its pictures."""
    folder.mkdir(parents=True, exist_ok=True)
    pngs = []
    for file, audio, external, pressed in gps_pictures.pictures(gps_source()):
        svg = gps_pictures.svg_of(gps_source(), HERE / "svg", audio, external)
        png = (folder / file).with_suffix(".png")
        colours = colours_of(palette, "chosen" if pressed else "plain")
        subprocess.run(["rsvg-convert", "-o", png], input=fill(svg, colours, file).encode(), check=True)
        pngs.append(png)
    convert(pngs, "jpg", JPEG_OPTIONS)
    (folder / isn).write_text(isn_text(palette), encoding="utf-8")


def newest_source(palette_path):
    sources = [palette_path, *(HERE / name for name in OWN_SOURCES)]
    sources += [*(HERE / "svg").glob("*.svg"), *(HERE / "frames").glob("*.svg")]
    return max(p.stat().st_mtime for p in sources)


def common_folder(out):
    return out.parent / "COMMON" / "GPSPICS"


def is_current(skin, folder, rows, palette_path):
    wanted = [skin, *(folder / row[0] for row in rows), folder / "GPSMain.isn"]
    if skin.stem == COMMON_PALETTE:
        wanted.append(common_folder(skin.parent) / "DEFAULT.isn")
    if not all(p.is_file() for p in wanted):
        return False
    return min(p.stat().st_mtime for p in wanted) > newest_source(palette_path)


def draw_png(row, palette, folder):
    png = (folder / row[0]).with_suffix(".png")
    subprocess.run(["rsvg-convert", "-o", png], input=svg_of(row, palette).encode(), check=True)
    return png


def convert(pngs, extension, options):
    if pngs:
        subprocess.run(["mogrify", "-format", extension, *options, *pngs], check=True)
        for png in pngs:
            png.unlink()


def draw_pictures(rows, palette, folder):
    def pngs(extension):
        return [draw_png(row, palette, folder) for row in rows if row[0].endswith(extension)]

    convert(pngs(".gif"), "gif", GIF_OPTIONS)
    convert(pngs(".jpg"), "jpg", JPEG_OPTIONS)
    pngs(".png")


def render(palette_path, out):
    """Draw one skin beside its place, then put it there, so that an ended run leaves no half skin."""
    name, rows = palette_path.stem, read_pictures()
    skin, folder = out / f"{name}.skn", out / name
    if is_current(skin, folder, rows, palette_path):
        return
    palette, fresh = read_palette(palette_path), out / f"{name}.new"
    shutil.rmtree(fresh, ignore_errors=True)
    fresh.mkdir(parents=True)
    draw_pictures(rows, palette, fresh)
    draw_map_screen(palette, fresh, "GPSMain.isn")
    if name == COMMON_PALETTE:
        draw_map_screen(palette, common_folder(out), "DEFAULT.isn")
    shutil.rmtree(folder, ignore_errors=True)
    fresh.rename(folder)
    skin.write_text(skin_text(palette), encoding="utf-8")


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: render_skins.py OUTDIR")
    for tool, package in (("rsvg-convert", "librsvg2-bin"), ("mogrify", "imagemagick")):
        if not shutil.which(tool):
            sys.exit(f"render_skins: {tool} is missing (Debian package {package})")
    out = Path(sys.argv[1])
    with ThreadPoolExecutor() as pool:
        list(pool.map(render, sorted((HERE / "palettes").glob("*.ini")), [out, out]))


if __name__ == "__main__":
    main()
