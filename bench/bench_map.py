"""What the map costs, measured on the real system with the real engine on a virtual display of 800x480: from the menu to
the map and to its first movement, from a chosen place to its drawn route, from a sentence of the receiver to its label,
and the processor's time of system and engine with a receiver at 1 Hz.  bench_map.py [SECONDS]: how long that is
counted; 30 without.  Needs ./run demo.
"""

import os
import pathlib
import shutil
import statistics
import sys
import threading
import time
import tty

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools"))
from demo_system import DemoSystem  # noqa: E402

ROUNDS, SENTENCES = 7, 20
DEAF = 0.3  # seconds for which a new screen takes no key
NAVIT, BUS = "/usr/bin/navit", "/usr/bin/dbus-daemon"
GROUNDS, GROUND_WIDTH = (0xE6E1D8, 0xF4F1EA, 0x191F2A, 0x10141C), 60  # of the map, by day and by night
WAYS, WAY_WIDTH = (0x1668E8, 0x3AA0FF), 6
LABELS, MAP = (0, 44), (44, 400)  # lines of the screen
CANCEL = (550, 440)
PLACES = "Farm|Steinach|Am Anger|7|\n"
STANDING = 48.900054, 9.101367


def ticks(process):
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return int(fields[11]) + int(fields[12])


def told(name, took):
    print(f"{name}: median {statistics.median(took):.0f} ms, longest {max(took):.0f} ms of {len(took)}")


def sentences(knots, track=90.0):
    """A fix, as a receiver tells it every second."""
    def angle(degrees, width):
        return f"{int(degrees):0{width}d}{(degrees - int(degrees)) * 60:07.4f}"

    north, east = angle(STANDING[0], 2), angle(STANDING[1], 3)
    now = time.strftime("%H%M%S.00")
    text = ""
    for body in (f"GPGGA,{now},{north},N,{east},E,1,09,0.9,240.0,M,47.0,M,,",
                 f"GPRMC,{now},A,{north},N,{east},E,{knots:.2f},{track:.1f},140626,,,A"):
        check = 0
        for letter in body.encode():
            check ^= letter
        text += f"${body}*{check:02X}\r\n"
    return text.encode()


class Receiver:
    """The other end of a serial line, which is heard once a second."""

    def __init__(self):
        self.line, self.port = os.openpty()
        tty.setraw(self.port)
        self.name = os.ttyname(self.port)
        self.ends = threading.Event()
        self.knots = 20.0
        self.thread = threading.Thread(target=self.run)

    def run(self):
        while not self.ends.wait(1):
            self.send()

    def send(self):
        os.write(self.line, sentences(self.knots))

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.ends.set()
        if self.thread.is_alive():
            self.thread.join()
        os.close(self.line)
        os.close(self.port)


class Map(DemoSystem):
    def prepare(self):
        self.fresh()
        shutil.copy(self.demo / "map.bin", self.app)
        (self.app / "kb.ini").write_text("[keyboard]\nup=38\ndown=40\nback=37\nforward=39\nok=13\nquit=27\nkbSWMP=80\n"
                                         "gps=71\n")
        (self.app / "gps.lst").write_text(PLACES)
        self.set_setting("GPS", "GPSModule", 1)
        self.hear(f"log:{self.demo}/town/drive.nmea")
        self.set_setting("main", "ButtonsTold", "velkorandum playlists playmp3 frmGPS")

    def hear(self, receiver):
        self.set_setting("GPS", "receiver", receiver)

    def until(self, what, condition, begin=None):
        begin = begin or time.monotonic()
        while not condition():
            if time.monotonic() > begin + 20:
                raise AssertionError(f"never happened: {what}")
            time.sleep(0.001)
        return (time.monotonic() - begin) * 1000

    def lines(self, rows):
        width = 4 * self.width
        return self.display.screen[-width * (self.height - rows[0]):-width * (self.height - rows[1])]

    def map_shown(self):
        return any(self.display.shows(ground, GROUND_WIDTH) for ground in GROUNDS)

    def way_shown(self):
        return any(self.display.shows(way, WAY_WIDTH) for way in WAYS)

    def open_map(self):
        """To the map, and to another picture of it."""
        begin = time.monotonic()
        self.press("g")
        shown = self.until("the map", self.map_shown, begin)
        first = self.lines(MAP)
        return shown, self.until("a map that moves", lambda: self.lines(MAP) != first, begin)

    def leave_map(self):
        time.sleep(DEAF)
        self.press("Escape")
        self.until("the menu", lambda: not self.map_shown())
        time.sleep(1)

    def starts(self):
        took = []
        for _ in range(3):
            before = self.log().count("Main menu painted")
            self.start()
            self.wait_for("the menu", lambda: self.log().count("Main menu painted") > before)
            time.sleep(DEAF)
            took.append(self.open_map())
            self.end()
        told("menu just painted to map", [shown for shown, _ in took])
        told("menu just painted to a map that has moved", [moved for _, moved in took])

    def opens(self):
        took = []
        for _ in range(ROUNDS):
            took.append(self.open_map())
            self.leave_map()
        told("menu to map, engine warm", [shown for shown, _ in took])
        told("menu to a map that has moved, engine warm", [moved for _, moved in took])

    def routes(self):
        took = []
        self.open_map()
        for _ in range(ROUNDS):
            time.sleep(1)
            self.press("p")
            self.until("the list", lambda: not self.map_shown())
            self.settle("the list")
            begin = time.monotonic()
            self.press("Return")
            took.append(self.until("the route", self.way_shown, begin))
            self.display.send("mousemove", *CANCEL, "click", 1)
            self.until("no route", lambda: self.map_shown() and not self.way_shown())
        told("chosen place to its route on the screen", took)
        self.leave_map()

    def labels(self, receiver):
        took = []
        self.press("g")
        self.until("the map", self.map_shown)
        for number in range(SENTENCES):
            time.sleep(0.7)
            receiver.knots = 20.0 + 10 * number
            before, begin = self.lines(LABELS), time.monotonic()
            receiver.send()
            took.append(self.until("the label", lambda: self.lines(LABELS) != before, begin))
        told("sentence to label on the screen", took)

    def idle(self, what, seconds):
        time.sleep(2)
        processes = {"system": [self.system.pid], "engine": self.alone.processes(NAVIT), "bus": self.alone.processes(BUS)}
        before = {name: sum(map(ticks, numbers)) for name, numbers in processes.items()}
        time.sleep(seconds)
        used = {name: (sum(map(ticks, numbers)) - before[name]) / seconds for name, numbers in processes.items()}
        print(f"{what}: {sum(used.values()):.1f} % of a core (" +
              ", ".join(f"{name} {share:.1f}" for name, share in used.items()) + ")")


def main():
    seconds = int(sys.argv[1]) if len(sys.argv) > 1 else 30
    with Map("800x480") as system, Receiver() as receiver:
        system.prepare()
        system.start_with_catalogue()
        system.end()
        system.starts()
        system.start_to_menu()
        time.sleep(3)
        system.opens()
        system.routes()
        system.press("g")
        system.idle("driving, 1 Hz", seconds)
        system.end()
        system.hear(receiver.name)
        system.start_to_menu()
        system.labels(receiver)
        receiver.thread.start()
        system.idle("standing, 1 Hz", seconds)
        system.end()


main()
