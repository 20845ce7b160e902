#!/usr/bin/env python3
"""picture_tests.py CORVANE_SAMPLE CORVANE_TOOL: reads what the tool draws with a strict XML
parser."""

import itertools
import os
import sys
import tempfile
import unittest
from xml.etree import ElementTree

from games import Game, connect

SVG = "{http://www.w3.org/2000/svg}"
MARGIN, WIDTH, HEIGHT = 36, 800, 600  # of the sheet, and the screen inside it
PROGRAMS = []


class Picture:
    """A picture that is well-formed XML."""

    def __init__(self, file):
        self.root = ElementTree.parse(file).getroot()
        self.parents = {child: parent for parent in self.root.iter() for child in parent}

    def all(self, name, style=""):
        return [each for each in self.root.iter(SVG + name)
                if each.get("class", "").startswith(style)]

    def id(self, name):
        found = [each for each in self.root.iter() if each.get("id") == name]
        assert len(found) < 2, name + " occurs twice"
        return found[0] if found else None

    def child(self, of, name):
        return self.id(of).find(SVG + name)

    def boxes(self, style):
        """The boxes of all rectangles in the nested groups of this class."""
        return [box_of(rect) for group in self.all("g", style)
                for rect in group.findall(SVG + "g/" + SVG + "rect")]

    def roads(self):
        """Class, start, heads and end of each road, without the legend's."""
        return sorted("%s %s%s%s" % (
            road.get("class").split()[1], road.get("data-from"),
            ">" if road.get("marker-start", "none") == "none" else "<>", road.get("data-to"))
            for road in self.all("path", "road ") if road.get("data-from"))


def box_of(rect):
    left, top, width, height = (int(rect.get(name)) for name in ("x", "y", "width", "height"))
    return left, top, left + width, top + height


def tile(left, top, width=60, height=50):
    return {"Word0": 0, "Word1": 0, "Word2": 0, "Left": left, "Top": top, "Width": width,
            "Height": height}


def overlap(one, other):
    return (one[0] < other[2] and other[0] < one[2] and one[1] < other[3] and other[1] < one[3])


class TwoMaps(unittest.TestCase):
    """Two maps side by side, each with a tile and a hotspot in it, and nothing between them."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(folder.name)
        self.game = Game(*PROGRAMS, "game")
        self.tables = self.game.read(self.game.exe)
        self.sample = self.game.read(self.game.exe)
        for number in range(2, 43):
            os.remove(self.game.map(self.game.maps[number]))
        self.game.rename(0, "West")
        self.game.rename(1, "East")
        self.exits({}, {})
        self.tables["MapConnections"] = []
        self.tables["StrMap"] = [tile(100, 200), tile(500, 200)] + [tile(0, 0, 0, 0)] * 41
        self.tables["MapHotspots"][:2] = [{"CenterX": 130, "CenterY": 220},
                                          {"CenterX": 530, "CenterY": 220}]

    def exits(self, *maps):
        """Sets the exits of the two maps: destinations by victory location."""
        for number, exits in enumerate(maps):
            def change(record, exits=exits):
                for vl, place in enumerate(record["VictoryLocations"]):
                    place.update(Kind=50 if vl in exits else 0, Destination=exits.get(vl, 0))
            self.game.change_map(number, change)

    def draw(self, *options, tables=None):
        self.game.write(tables or self.tables, "now.json", "--force")
        self.game.run("draw", "now.json", "--game", "game", "now.svg", *options)
        return Picture("now.svg")

    def test_draws_a_road_through_its_arrow_on_the_sheet(self):
        for to, x, y, path in ((1, 330, 240, "M130 220Q330 260 530 220"),
                               (1, 30, 590, "M130 220L30 590L530 220"),
                               (0, 130, 160, "M130 220c-20 -80 20 -80 0 0")):
            self.tables["MapConnections"] = []
            self.tables["StrArrow"][4] = tile(x - 10, y - 10, 20, 20)
            connect(self.tables, 0, to, 4)
            self.assertEqual(self.draw().all("path", "road no-exit")[0].get("d"), path)

    def test_distinguishes_kinds_of_roads(self):
        # The arrows there and back, where an exit of either map leads, and what is drawn.
        for there, back, exit_there, exit_back, roads in (
                (None, None, None, None, []),
                (7, 7, 1, 0, ["both 0<>1"]),
                (7, 8, 1, 0, ["both 0>1", "both 1>0"]),
                (7, None, 1, None, ["one-way 0>1"]),
                (None, 0, None, 0, ["one-way 1>0"]),
                (7, None, None, None, ["no-exit 0>1"]),
                (7, 7, 1, None, ["both 0>1", "no-exit 1>0"]),
                (7, 7, None, None, ["no-exit 0<>1"]),
                (None, None, 1, None, ["missing 0>1"]),
                (81, -2, 1, 0, ["both 0>1", "both 1>0"])):
            connect(self.tables, 0, 1, there)
            connect(self.tables, 1, 0, back)
            self.exits(*({} if each is None else {0: each} for each in (exit_there, exit_back)))
            self.assertEqual(self.draw().roads(), roads, (there, back, exit_there, exit_back))

    def test_points_off_the_map_at_the_nearest_edge(self):
        self.exits({3: 254}, {})
        for left, top, path in ((10, 300, "M10 320v10l-9-5z"), (730, 300, "M790 320v10l9-5z"),
                                (400, 4, "M425 4h10l-5-9z"), (400, 540, "M425 590h10l-5 9z")):
            self.tables["StrMap"][0] = tile(left, top)
            self.assertEqual(self.draw().all("path", "off-map")[0].get("d"), path)

    def test_keeps_extreme_numbers_on_the_sheet(self):
        wild = (-2**31, -1, 0, 801, 2**31 - 1)
        for place, size in itertools.product(wild, wild):
            self.tables["StrMap"][1] = tile(place, place, size, size)
            left, top, right, bottom = box_of(self.draw().child("map-1", "rect"))
            self.assertTrue(-MARGIN <= left < right <= WIDTH + MARGIN, (place, size))
            self.assertTrue(-MARGIN <= top < bottom <= HEIGHT + MARGIN, (place, size))

    def test_shows_hostile_names(self):
        for name, shown in (("<script>alert(1)", "<script>alert(1)"),
                            ("\"' onload=\"x", "\"' onload=\"x"),
                            ("&amp;]]><!--", "&amp;]]><!--"),
                            ("a\nb\x1b[31m", "a\\nb\\x1B[31m"),
                            ("\u202egpj.\u2066x", "\\u202Egpj.\\u2066x"),
                            (os.fsdecode(b"\xff\xed\xa0\x80"), "\\xFF\\xED\\xA0\\x80"),
                            ("\u05d0\u05d1 \u6771", "\u05d0\u05d1 \u6771")):
            self.game.rename(0, name)
            self.assertEqual(self.draw().id("map-0").get("aria-label"), "Map 0 " + shown)

    def test_lists_all_findings_and_numbers_those_that_have_a_place(self):
        self.tables["StrMap"][1]["Width"] = 0
        self.tables["StrArrow"][4] = tile(300, 210, 0, 20)
        picture = self.draw()
        listed = " ".join(line.text for line in picture.all("text")
                          if picture.parents[line].get("class") == "list"
                          and line.get("class") != "title")
        self.game.write(self.tables, "now.json", "--force")
        check = self.game.run("check", "now.json", "--game", "game", status=1)
        found = [line.removeprefix("warning: ") for line in check.decode().splitlines()]
        self.assertGreater(len(found), 100)
        self.assertEqual(listed, " ".join(found))
        bottom = int(picture.root.get("height"))
        self.assertTrue(all(int(line.get("y")) < bottom for line in picture.all("text")))
        marks = {badge.find(SVG + "title").text: badge for badge in picture.all("a", "badge")}
        for text, style, place in (("Invalid size for STRMAP 1", "finding", (500, 200, 560, 250)),
                                   ("Invalid size for STRARROW 4", "finding", (300, 210, 320, 230)),
                                   ("arrow 004: no connection uses it", "warning",
                                    (300, 210, 320, 230))):
            self.assertEqual(marks[text].get("class"), "badge " + style)
            self.assertTrue(overlap(box_of(marks[text].find(SVG + "rect")), place), text)
            number = marks[text].get("data-mark")
            self.assertEqual(picture.child("mark-" + number, "text").text, number)
            self.assertEqual(found[int(number) - 1], text)
        self.assertEqual(picture.id("map-1").get("class"), "tile flawed")
        self.assertEqual(picture.id("map-0").get("class"), "tile")

    def test_outlines_previous_positions_and_removed_connections(self):
        connect(self.tables, 0, 1, 3)
        connect(self.tables, 1, 0, 3)
        self.exits({0: 1}, {})  # an exit alone is not a connection
        self.game.write(self.tables, "before.crv")
        self.tables["StrMap"][1]["Left"] = 600
        for arrow, gone in ((3, 0), (5, 0), (None, 1)):
            connect(self.tables, 1, 0, arrow)
            picture = self.draw("--against", "before.crv")
            self.assertEqual(len(picture.all("path", "gone")), gone, arrow)
            self.assertEqual(picture.boxes("old"), [(500, 200, 560, 250)])
            self.assertEqual(box_of(picture.child("map-1", "rect"))[0], 600)

    def test_draws_the_tables_to_scale(self):
        picture = self.draw(tables=self.sample)
        for number, record in enumerate(self.sample["StrArrow"]):
            wanted = (record["Left"], record["Top"], record["Left"] + record["Width"],
                      record["Top"] + record["Height"])
            self.assertEqual(box_of(picture.child("arrow-%d" % number, "rect")), wanted)
        spots = [(int(spot.get("cx")), int(spot.get("cy"))) for spot in picture.all("circle", "spot")]
        for number in (0, 1):
            record, spot = self.sample["StrMap"][number], self.sample["MapHotspots"][number]
            box = box_of(picture.child("map-%d" % number, "rect"))
            self.assertEqual(box[:2], (record["Left"], record["Top"]))
            self.assertIn((spot["CenterX"], spot["CenterY"]), spots)


if __name__ == "__main__":
    PROGRAMS = [os.path.abspath(program) for program in sys.argv[1:3]]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
