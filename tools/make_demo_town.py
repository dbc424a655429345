#!/usr/bin/env python3
"""Invents a small town for the demo and for tests: an OpenStreetMap extract, and the sentences of a receiver on a drive
through it. The same at each run.

make_demo_town.py FOLDER        writes town.osm and drive.nmea there
"""

import math
import pathlib
import sys

LATITUDE, LONGITUDE = 48.9, 9.1  # the market place
METRE = 1 / 111320
SLOWEST, GENTLE = 6.0, 1.8  # metres a second round a corner; metres a second squared

ROADS = {  # highway: speed in km/h
    "motorway": 120, "motorway_link": 60, "primary": 50, "secondary": 50, "tertiary": 80, "residential": 30}
EAST_WEST = [("Mühlweg", 450), ("Schulstraße", 300), ("Gartenstraße", 150), ("Hauptstraße", 0), ("Marktgasse", -150),
             ("Bahnhofstraße", -300), ("Südring", -450)]
NORTH_SOUTH = [("Westring", -520), ("Kirchgasse", -340), ("Rosenweg", -160), ("Lindenallee", 0), ("Amselweg", 170),
               ("Finkenweg", 340), ("Ostring", 520)]
KINDS = {"Hauptstraße": "primary", "Lindenallee": "secondary", "Bahnhofstraße": "secondary"}
ONE_WAY = {"Kirchgasse", "Marktgasse"}
VILLAGES = [("Oberau", 0, 2500, "Dorfstraße"), ("Niederau", -2800, 0, "Weidenweg"), ("Steinach", 2500, 0, "Am Anger")]


class Town:
    """Points in metres east and north of the market place."""

    def __init__(self):
        self.points, self.ways, self.relations, self.places = {}, [], [], []

    def node(self, x, y):
        return self.points.setdefault((round(x, 1), round(y, 1)), len(self.points) + 1)

    def way(self, corners, **tags):
        self.ways.append(([self.node(x, y) for x, y in corners], tags))
        return len(self.ways) + 100000

    def place(self, x, y, **tags):
        self.places.append((x, y, tags))

    def street(self, name, kind, corners, **tags):
        self.way(corners, name=name, highway=kind, maxspeed=str(ROADS[kind]), **tags)

    def houses(self, street, city, corners, step=28):
        """Odd numbers on the left, even ones on the right."""
        number = 1
        for (x0, y0), (x1, y1) in zip(corners, corners[1:]):
            length = math.hypot(x1 - x0, y1 - y0)
            along = ((x1 - x0) / length, (y1 - y0) / length)
            for place in range(step, int(length) - step // 2, step):
                for side in (0, 1):
                    off = 12 if side == 0 else -12
                    self.place(x0 + along[0] * place - along[1] * off, y0 + along[1] * place + along[0] * off,
                               **{"addr:housenumber": str(number + side), "addr:street": street, "addr:city": city,
                                  "addr:postcode": "71001"})
                number += 2

    def area(self, x, y, width, height, **tags):
        corners = [(x, y), (x + width, y), (x + width, y + height), (x, y + height), (x, y)]
        return self.way(corners, **tags)

    def boundary(self, way, **tags):
        self.relations.append((way, dict(tags, type="boundary", boundary="administrative")))

    def settlement(self, name, kind, x, y, reach, people):
        self.place(x, y, place=kind, name=name, is_in="Germany", population=str(people))
        self.area(x - reach, y - reach, 2 * reach, 2 * reach, landuse="residential")
        edge = self.area(x - reach - 60, y - reach - 60, 2 * reach + 120, 2 * reach + 120)
        self.boundary(edge, admin_level="8", name=name)


def bent(x, y):
    """Streets are not ruled lines."""
    return x + 14 * math.sin(y / 170 + 1), y + 12 * math.sin(x / 190)


def crossings(name, fixed, along, other):
    """The corners of a street of the grid."""
    return [bent(place, fixed) if along == "x" else bent(fixed, place) for _, place in other]


def build():
    town = Town()
    town.boundary(town.area(-9000, -9000, 18000, 18000), **{"admin_level": "2", "name": "Germany", "ISO3166-1": "DE"})
    town.settlement("Marlingen", "town", 0, 0, 600, 12000)
    streets = [(name, crossings(name, y, "x", NORTH_SOUTH)) for name, y in EAST_WEST]
    streets += [(name, crossings(name, x, "y", sorted(EAST_WEST, key=lambda street: street[1])))
                for name, x in NORTH_SOUTH]
    for name, corners in streets:
        tags = {"oneway": "yes"} if name in ONE_WAY else {}
        town.street(name, KINDS.get(name, "residential"), corners, **tags)
        town.houses(name, "Marlingen", corners)
    for name, x, y, street in VILLAGES:
        town.settlement(name, "village", x, y, 250, 600)
        corners = [(x - 150, y - 120), (x, y - 130), (x + 160, y - 110)]
        town.street(street, "residential", corners)
        town.houses(street, name, corners)
    country_roads(town)
    motorway(town)
    landscape(town)
    return town


def country_roads(town):
    west, east = bent(-520, 0), bent(520, 0)
    town.street("Niederauer Straße", "tertiary", [west, (-1300, 90), (-2100, 40), (-2800, 0), (-2800, -130)])
    town.street("Steinacher Straße", "tertiary", [east, (1100, 60), (1800, -40), (2500, 0)])
    town.street("Oberauer Straße", "tertiary", [bent(0, 450), (60, 1100), (-40, 1800), (0, 2370)])
    town.street("Niederauer Weg", "residential", [(-2800, -130), (-2950, -120)])
    town.street("Steinach", "tertiary", [(2500, 0), (2500, -130), (2510, -700), (2500, -1400), (2500, -1600)])
    town.street("Südstraße", "tertiary", [bent(0, -450), (10, -900), (0, -1400), (0, -1600)])


def motorway(town):
    lane = {"highway": "motorway", "ref": "A 99", "oneway": "yes", "maxspeed": "120"}
    link = {"highway": "motorway_link", "oneway": "yes", "maxspeed": "60"}
    town.way([(-6000, -1710), (-2000, -1530), (300, -1512), (2200, -1512), (6000, -1650)], **lane)
    town.way([(6000, -1630), (2200, -1488), (300, -1488), (-2000, -1506), (-6000, -1690)], **lane)
    town.way([(0, -1600), (140, -1556), (300, -1512)], **link)
    town.way([(2200, -1512), (2370, -1556), (2500, -1600)], **link)
    town.way([(2500, -1400), (2370, -1444), (2200, -1488)], **link)
    town.way([(300, -1488), (140, -1444), (0, -1400)], **link)


def landscape(town):
    town.way([(-6000, 900), (-2500, 760), (-1000, 820), (0, 740), (1200, 900), (3000, 780), (6000, 1000)],
             waterway="river", name="Marl")
    town.area(-1500, -1000, 700, 500, natural="water", name="Baggersee")
    town.area(900, 1100, 1400, 900, landuse="forest", name="Marlinger Wald")
    town.area(-2300, 1200, 1500, 700, landuse="forest")
    town.area(190, 170, 130, 110, leisure="park", name="Stadtpark")
    town.way([(-6000, -640), (-1500, -560), (700, -610), (6000, -700)], railway="rail")
    for x, y, tags in [(-60, 30, {"amenity": "townhall"}), (120, -330, {"railway": "station", "name": "Marlingen"}),
                       (400, 40, {"amenity": "fuel", "name": "Tankstelle Ost"}), (-300, 330, {"amenity": "school"}),
                       (60, -170, {"amenity": "parking"}), (-200, -30, {"amenity": "pharmacy"})]:
        town.place(x, y, **tags)


def degrees(x, y):
    return LATITUDE + y * METRE, LONGITUDE + x * METRE / math.cos(math.radians(LATITUDE))


# Those who read it take it line by line, each element on one of its own.
def tags_of(tags):
    return "".join(f'<tag k="{key}" v="{value}"/>\n' for key, value in tags.items())


def write_osm(town, path):
    def node(number, x, y, tags):
        latitude, longitude = degrees(x, y)
        return f'<node id="{number}" version="1" lat="{latitude:.7f}" lon="{longitude:.7f}">\n{tags_of(tags)}</node>'

    lines = ['<?xml version="1.0" encoding="UTF-8"?>', '<osm version="0.6" generator="make_demo_town">']
    lines += [node(number, x, y, {}) for (x, y), number in town.points.items()]
    lines += [node(50000 + at, *place) for at, place in enumerate(town.places)]
    for at, (nodes, tags) in enumerate(town.ways):
        refs = "".join(f'<nd ref="{number}"/>\n' for number in nodes)
        lines.append(f'<way id="{at + 100001}" version="1">\n{refs}{tags_of(tags)}</way>')
    for at, (way, tags) in enumerate(town.relations):
        lines.append(f'<relation id="{at + 200001}" version="1">\n<member type="way" ref="{way}" role="outer"/>\n'
                     f'{tags_of(tags)}</relation>')
    path.write_text("\n".join(lines + ["</osm>", ""]), encoding="utf-8")


# The drive: along the main street, out to the motorway, to the next village and back. ---------------------------------

def tour():
    """Corners and the speed on the way to each, km/h."""
    main = [bent(x, 0) for _, x in NORTH_SOUTH]
    down = [bent(0, y) for _, y in EAST_WEST if y <= 0]
    ways = [(main[:4], 45), (down[1:], 45), ([(10, -900), (0, -1400), (0, -1600)], 75),
            ([(140, -1556), (300, -1512)], 60), ([(2200, -1512)], 115), ([(2370, -1556), (2500, -1600)], 50),
            ([(2500, -1400), (2510, -700), (2500, -130)], 75), ([(2500, 0)], 40),
            ([(1800, -40), (1100, 60)], 80), ([main[-1]], 60), (main[-2::-1], 45)]
    return [(corner, speed / 3.6) for corners, speed in ways for corner in corners]


def turn(before, at, after):
    first = math.atan2(at[1] - before[1], at[0] - before[0])
    second = math.atan2(after[1] - at[1], after[0] - at[0])
    return abs((second - first + math.pi) % (2 * math.pi) - math.pi)


def drive():
    """Once a second: place, course in degrees, metres a second."""
    corners = tour()
    places = [corner for corner, _ in corners]
    # The fastest at each corner from which the next ones can still be taken.
    most = [SLOWEST] * len(places)
    for at in range(len(places) - 2, 0, -1):
        bend = turn(*places[at - 1:at + 2])
        length = math.dist(places[at], places[at + 1])
        most[at] = min(40.0 if bend < 0.4 else SLOWEST, math.sqrt(most[at + 1] ** 2 + 2 * GENTLE * length))
    speed, samples = 0.0, []
    for at in range(1, len(places)):
        start, end, length = places[at - 1], places[at], math.dist(places[at - 1], places[at])
        course = math.degrees(math.atan2(end[0] - start[0], end[1] - start[1])) % 360
        gone = 0.0
        while gone < length:
            brake = math.sqrt(most[at] ** 2 + 2 * GENTLE * (length - gone))
            speed = max(SLOWEST / 2, min(speed + GENTLE, corners[at][1], brake))
            gone += speed
            share = min(1.0, gone / length)
            samples.append(((start[0] + share * (end[0] - start[0]), start[1] + share * (end[1] - start[1])),
                            course, speed))
    return samples


def sentence(text):
    check = 0
    for byte in text.encode("ascii"):
        check ^= byte
    return f"${text}*{check:02X}\r\n"


def write_drive(path):
    def angle(value, width):
        return f"{int(value):0{width}d}{value % 1 * 60:07.4f}"

    lines = []
    for second, (place, course, speed) in enumerate(drive()):
        latitude, longitude = degrees(*place)
        clock = f"{10 + second // 3600:02d}{second // 60 % 60:02d}{second % 60:02d}.00"
        where = f"{angle(latitude, 2)},N,{angle(longitude, 3)},E"
        lines.append(sentence(f"GPGGA,{clock},{where},1,09,0.9,240.0,M,47.0,M,,"))
        lines.append(sentence(f"GPRMC,{clock},A,{where},{speed * 1.9438:.2f},{course:.1f},140626,,,A"))
    path.write_bytes("".join(lines).encode("ascii"))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    write_osm(build(), folder / "town.osm")
    write_drive(folder / "drive.nmea")
