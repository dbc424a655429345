"""The video discs of the tests, as folders and as images.

`disc`: a menu of four buttons (first title, its second chapter, second title, first title in its other language); a
first title of three chapters, red, green and yellow of ten seconds each, with two sound tracks and two subtitles; a
second title, blue. `plain`: one title, blue, and no menu at all. `strict`: like `disc`, as a folder alone; its first
title forbids pausing, the way forwards and the next chapter, and its red and green are two angles of one scene.
"""

import pathlib
import shutil

QUIET = ["ffmpeg", "-nostdin", "-hide_banner", "-loglevel", "error", "-y"]
PAL = ["-target", "pal-dvd", "-aspect", "4:3", "-threads", "1", "-b:v", "800k", "-fflags", "+bitexact",
       "-flags:v", "+bitexact", "-flags:a", "+bitexact"]
# The buttons in the menu's 720 by 576 points, left to right and top to bottom; the names of those that lie
# beside each.
BUTTONS = [((80, 120, 320, 240), {"right": "2", "down": "3"}), ((400, 120, 640, 240), {"left": "1", "down": "4"}),
           ((80, 336, 320, 456), {"right": "4", "up": "1"}), ((400, 336, 640, 456), {"left": "3", "up": "2"})]
COMMANDS = ["jump title 1;", "jump title 1 chapter 2;", "jump title 2;", "audio = 1; jump title 1;"]


def colours(seconds, *names):
    """ffmpeg's inputs for one colour after another, and the filter that joins them."""
    inputs = []
    for name in names:
        inputs += ["-f", "lavfi", "-i", f"color={name}:size=720x576:rate=25:duration={seconds}"]
    joined = "".join(f"[{place}:v]" for place in range(len(names)))
    return inputs, f"{joined}concat=n={len(names)}[picture]"


def tone(pitch):
    return ["-f", "lavfi", "-i", f"sine=frequency={pitch}:sample_rate=48000"]


def title(run, file, seconds, pitches, *names):
    inputs, joined = colours(seconds, *names)
    sounds, maps = [], []
    for place, pitch in enumerate(pitches):
        sounds += tone(pitch)
        maps += ["-map", f"{len(names) + place}:a"]
    run(*QUIET, *inputs, *sounds, "-filter_complex", joined, "-map", "[picture]", *maps,
        "-t", seconds * len(names), *PAL, file)


def box_picture(run, file, boxes, colour, ground="none"):
    drawn = [part for (left, top, right, bottom) in boxes
             for part in ("-draw", f"rectangle {left},{top} {right - 1},{bottom - 1}")]
    run("convert", "-size", "720x576", f"xc:{ground}", "-fill", colour, *drawn, "-type", "Palette", "-colors", "4",
        "+antialias", f"PNG8:{file}")


def frame_picture(run, file, colour):
    """The frames around the buttons, one of which is shown at a time."""
    drawn = [part for ((left, top, right, bottom), _) in BUTTONS
             for part in ("-draw", f"rectangle {left + 8},{top + 8} {right - 9},{bottom - 9}")]
    run("convert", "-size", "720x576", "xc:none", "+antialias", "-fill", "none", "-stroke", colour,
        "-strokewidth", "12", *drawn, f"PNG8:{file}")


def add_pictures(run, folder, source, target, stream, document):
    """spumux: puts sub-pictures into a film."""
    (folder / "spu.xml").write_text(document)
    run("sh", "-c", 'VIDEO_FORMAT=PAL spumux -v 0 -m dvd -s "$1" "$2" <"$3" >"$4" 2>/dev/null', "spumux", stream,
        folder / "spu.xml", source, target)


def menu(run, folder):
    box_picture(run, folder / "ground.png", [place for place, _ in BUTTONS], "#404060", "#101020")
    frame_picture(run, folder / "chosen.png", "#ffff00")
    frame_picture(run, folder / "pressed.png", "#ff8000")
    run("convert", "-size", "720x576", "xc:none", f"PNG8:{folder / 'nothing.png'}")
    run(*QUIET, "-loop", "1", "-framerate", "25", "-i", folder / "ground.png", *tone(330), "-t", 2, *PAL,
        folder / "ground.mpg")
    buttons = "".join(
        f'<button name="{place}" x0="{box[0]}" y0="{box[1]}" x1="{box[2]}" y1="{box[3]}" '
        + " ".join(f'{way}="{to}"' for way, to in ways.items()) + " />"
        for place, (box, ways) in enumerate(BUTTONS, 1))
    add_pictures(run, folder, folder / "ground.mpg", folder / "menu.mpg", 0,
                 f'<subpictures><stream><spu start="00:00:00.0" end="00:00:00.0" image="{folder}/nothing.png" '
                 f'highlight="{folder}/chosen.png" select="{folder}/pressed.png" force="yes">{buttons}</spu>'
                 '</stream></subpictures>')


def subtitled(run, folder, source, target):
    """Boxes for words: at the bottom left in the first stream, at the bottom right in the second."""
    for stream, box in enumerate([(60, 480, 300, 520), (420, 480, 660, 520)]):
        box_picture(run, folder / f"words{stream}.png", [box], "#ffffff")
        after = target if stream else folder / "half.mpg"
        add_pictures(run, folder, folder / "half.mpg" if stream else source, after, stream,
                     f'<subpictures><stream><spu start="00:00:00.5" end="00:00:29.5" '
                     f'image="{folder}/words{stream}.png" /></stream></subpictures>')


def author(run, folder, target, document):
    (folder / "disc.xml").write_text(document)
    run("sh", "-c", 'VIDEO_FORMAT=PAL dvdauthor -o "$1" -x "$2" >/dev/null 2>&1', "dvdauthor", target,
        folder / "disc.xml")
    run("genisoimage", "-quiet", "-dvd-video", "-V", target.name.upper(), "-o", f"{target}.iso", target)


def disc_with_menu(run, folder, target):
    buttons = "".join(f'<button name="{place}">{command}</button>' for place, command in enumerate(COMMANDS, 1))
    video = '<video format="pal" aspect="4:3" />'
    author(run, folder, target,
           f'<dvdauthor><vmgm><menus>{video}<pgc entry="title"><pre>jump titleset 1 menu;</pre></pgc></menus></vmgm>'
           f'<titleset><menus>{video}<pgc entry="root"><vob file="{folder}/menu.mpg" pause="inf" />{buttons}</pgc>'
           f'</menus><titles>{video}<audio lang="de" /><audio lang="en" /><subpicture lang="de" />'
           f'<subpicture lang="en" />'
           f'<pgc><vob file="{folder}/first.mpg" chapters="0,0:10,0:20" /><post>call menu;</post></pgc>'
           f'<pgc><vob file="{folder}/second.mpg" /><post>call menu;</post></pgc></titles></titleset></dvdauthor>')


def restrict(disc, operations):
    """In the first title's program chain; the format has it at the eighth byte. Of the chain's cells the first two
    become a block of angles, of which the disc's list of titles tells the number."""
    index = pathlib.Path(disc) / "VIDEO_TS" / "VIDEO_TS.IFO"
    titles = bytearray(index.read_bytes())
    titles[int.from_bytes(titles[0xC4:0xC8], "big") * 2048 + 8 + 1] = 2
    index.write_bytes(titles)
    file = pathlib.Path(disc) / "VIDEO_TS" / "VTS_01_0.IFO"
    data = bytearray(file.read_bytes())

    def number(at, size=4):
        return int.from_bytes(data[at:at + size], "big")

    parts, chains = number(0xC8) * 2048, number(0xCC) * 2048
    first = number(parts + number(parts + 8), 2)
    chain = chains + number(chains + 8 + (first - 1) * 8 + 4)
    data[chain + 8:chain + 12] = operations.to_bytes(4, "big")
    cells = chain + number(chain + 0xE8, 2)
    data[cells] |= 0x50
    data[cells + 24] |= 0xD0
    file.write_bytes(data)


def make(films, run):
    folder = films / "parts"
    folder.mkdir()
    title(run, folder / "colours.mpg", 10, [440, 220], "red", "green", "yellow")
    subtitled(run, folder, folder / "colours.mpg", folder / "first.mpg")
    title(run, folder / "second.mpg", 15, [330, 330], "blue")
    menu(run, folder)
    disc_with_menu(run, folder, films / "disc")
    author(run, folder, films / "plain",
           f'<dvdauthor><vmgm /><titleset><titles><video format="pal" aspect="4:3" />'
           f'<pgc><vob file="{folder}/second.mpg" /></pgc></titles></titleset></dvdauthor>')
    shutil.copytree(films / "disc", films / "strict")
    restrict(films / "strict", 0x100 | 0x80 | 0x80000)
    shutil.rmtree(folder)
