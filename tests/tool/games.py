"""Creates games for the tests of what corvane-tool draws, with the programs' own commands."""

import json
import os
import subprocess

HARM = "document.title='harm'"
# Harmful if they were taken for markup.
NAMES = ["<script>%s" % HARM, '"onmouseover="%s' % HARM, "two\nlines\x1b[31m",
         "\u202edtb.left-to-right\u202c", "<img src=x onerror=%s>" % HARM,
         "\u05e9\u05dc\u05d5\u05dd \u6771\u4eac",
         "A name far longer than any tile could ever hold without help",
         os.fsdecode(b"\xff\xfe'&amp;")]


class Game:
    """A sample game in a folder."""

    def __init__(self, sample, tool, folder):
        self.tool, self.folder = tool, folder
        self.exe = os.path.join(folder, "CC4.EXE")
        subprocess.run([sample, folder], check=True, stdout=subprocess.DEVNULL)
        names = os.listdir(os.path.join(folder, "Maps"))
        self.maps = {self.read(self.map(name))["MapIndex"]: name for name in names}

    def map(self, name):
        return os.path.join(self.folder, "Maps", name)

    def run(self, *arguments, status=0):
        done = subprocess.run([self.tool, *arguments], stdout=subprocess.PIPE)
        assert done.returncode == status, (arguments, done.returncode)
        return done.stdout

    def read(self, file):
        return json.loads(self.run("show", "--json", file))

    def write(self, record, file, *options):
        with open("record.json", "w", encoding="utf-8") as text:
            json.dump(record, text)
        self.run("copy", "--unchecked", *options, "record.json", file)

    def change_map(self, number, change):
        file = self.map(self.maps[number])
        record = self.read(file)
        change(record)
        self.write(record, file)

    def rename(self, number, name):
        os.rename(self.map(self.maps[number]), self.map(name + ".btd"))
        self.maps[number] = name + ".btd"


def connect(tables, start, end, arrow):
    """Sets the arrow of a connection; None removes it."""
    others = [each for each in tables["MapConnections"]
              if (each["From"], each["To"]) != (start, end)]
    fresh = [] if arrow is None else [{"From": start, "To": end, "Arrow": arrow}]
    tables["MapConnections"] = others + fresh


def break_places(tables):
    tiles, spots, arrows = tables["StrMap"], tables["MapHotspots"], tables["StrArrow"]
    tiles[10]["Left"] = 801
    tiles[11]["Width"] = 0
    tiles[12].update(Left=740, Top=560, Width=120, Height=90)
    tiles[16]["Left"] -= 60
    spots[13]["CenterX"] = -1
    spots[14].update(CenterX=790, CenterY=590)
    arrows[20]["Left"] = -3
    arrows[21]["Height"] = 0
    arrows[22].update(Left=780, Top=400, Width=60, Height=20)


def break_roads(tables):
    connect(tables, 0, 1, None)    # an exit without a connection
    connect(tables, 24, 23, None)  # one way
    connect(tables, 20, 36, 5)     # no exit; an arrow of other maps
    connect(tables, 30, 30, 40)    # connected to itself
    connect(tables, 16, 17, 99)    # no arrow


def break_game(game):
    """Adds every kind of fault to a game."""
    tables = game.read(game.exe)
    break_places(tables)
    break_roads(tables)
    game.write(tables, game.exe)
    game.change_map(8, lambda record: record["VictoryLocations"][0].update(Name="<b>\"&\x02'<b>"))
    game.change_map(41, lambda record: record["VictoryLocations"][9].update(
        Kind=50, Destination=200))  # to nowhere
    game.change_map(42, lambda record: record.update(Magic=7))
    for number, name in enumerate(NAMES):
        game.rename(number, name)


def move(game):
    """Moves a tile, its hotspot and an arrow, and removes a connection."""
    tables = game.read(game.exe)
    tables["StrMap"][9]["Left"] += 30
    tables["StrMap"][9]["Top"] -= 12
    tables["MapHotspots"][9]["CenterX"] += 30
    tables["StrArrow"][53]["Top"] += 20
    connect(tables, 5, 12, None)
    connect(tables, 12, 5, None)
    game.write(tables, game.exe)


def crowd(game):
    """Puts all tiles in nearly the same place."""
    tables = game.read(game.exe)
    for number, record in enumerate(tables["StrMap"]):
        record.update(Left=300 + number, Top=300, Width=60, Height=50)
    game.write(tables, game.exe)


def draw_pages(sample, tool):
    """Draws sample, faulty and moved, each as .svg and .html, and crowded; returns a game to
    change."""
    folders = ("sample", "faulty", "moved", "crowded", "watched")
    games = [Game(sample, tool, folder) for folder in folders]
    plain, faulty, moved, crowded, watched = games
    break_game(faulty)
    move(moved)
    crowd(crowded)
    crowded.run("draw", crowded.exe, "crowded.html")
    faulty.run("copy", "--unchecked", faulty.exe, "<i>harm.crv")
    for end in (".svg", ".html"):
        plain.run("draw", plain.exe, "sample" + end)
        faulty.run("draw", "<i>harm.crv", "--game", "faulty", "faulty" + end)
        moved.run("draw", moved.exe, "--against", plain.exe, "moved" + end)
    return watched
