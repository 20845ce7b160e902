// The sample game in memory: a plan of its maps, and everything derived from it.
#include "samples/SampleGame.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/LetterCase.h"
#include "samples/Noise.h"

namespace corvane {
namespace {

// Tiles and the roads between them. The tiles are the map slots, numbered in reading order.
constexpr std::string_view Plan =
    "  o-o-o o-o-o  "
    "  |  \\  |   |  "
    "o-o-o o-o o-o-o"
    "|   | |   |\\   "
    "o-o o-o   o o-o"
    "  | |  \\    |  "
    "o-o o-o-o-o o-o"
    "    |  /  |   |"
    "o-o-o o-o o-o-o"
    "  |   |   |    "
    "  o-o o-o o-o  ";
constexpr int PlanWidth = 15;
static_assert(Plan.size() == std::size_t{PlanWidth} * 11);

constexpr std::string_view Places[] = {
    "Merlaut",  "Dornesch", "Alverin",  "Havrune",  "Jarvoy",   "Brenvau",  "Corvelle", "Gelbrun",
    "Lasserol", "Ebervau",  "Tournec",  "Kaltrou",  "Barvoise", "Orsenne",  "Falvoix",  "Wieldorn",
    "Cassert",  "Delmoy",   "Ustrel",   "Ivelmont", "Nessau",   "Gaumoy",   "Pellerac", "Ferrune",
    "Rodelle",  "Hartvel",  "Sankrath", "Landruy",  "Belcour",  "Zellrode", "Vaucrin",  "Kerlach",
    "Thionac",  "Daurange", "Moselk",   "Elsarre",  "Quevrin",  "Aubrisse", "Stolvenn", "Petivaux",
    "Ronchel",  "Leuvrin",  "Hombrai"};
static_assert(std::size(Places) == MapSlotCount);

// In Windows-1252, like all texts in a BTD file.
constexpr std::string_view Objectives[] = {"Church",  "Stone bridge", "Ch\xE2teau", "Railway halt",
                                           "Sawmill", "Hill 214",     "M\xFChle",   "Crossroads",
                                           "Quarry",  "Old barracks", "Dairy"};
constexpr std::string_view Extensions[] = {".btd", ".BTD", ".Btd"};

int SlotAt(std::size_t place) {
  return static_cast<int>(std::ranges::count(Plan.substr(0, place), 'o'));
}

// The distance in the plan from a road's symbol to each of its ends; 0 if it is not a road.
std::size_t ReachOf(char symbol) {
  constexpr std::string_view Symbols = "-/|\\";
  constexpr std::size_t Reaches[] = {1, PlanWidth - 1, PlanWidth, PlanWidth + 1};
  const std::size_t which = Symbols.find(symbol);
  return which == Symbols.npos ? 0 : Reaches[which];
}

std::int32_t OpaqueWord(Noise& noise) { return 1 + noise.UpTo(0xFFFFFE); }

StrRect MakeRect(Noise& noise, int left, int top, int width, int height) {
  return {OpaqueWord(noise), -OpaqueWord(noise), OpaqueWord(noise), left, top, width, height};
}

void PlaceTiles(GameTables& tables, Noise& noise) {
  constexpr int Pitch = 96;  // pixels between neighbouring tiles, on the game's 800 x 600
  for (std::size_t place = 0; place < Plan.size(); ++place) {
    if (Plan[place] != 'o') continue;
    const int column = static_cast<int>(place) % PlanWidth / 2;
    const int row = static_cast<int>(place) / PlanWidth / 2;
    const int left = 14 + column * Pitch + noise.UpTo(9);
    const int top = 12 + row * Pitch + noise.UpTo(9);
    const int slot = SlotAt(place);
    const int width = 56 + noise.UpTo(10);
    const int height = 44 + noise.UpTo(10);
    tables.Tiles[slot] = MakeRect(noise, left, top, width, height);
    tables.Hotspots[slot] = {left + width / 4 + noise.UpTo(width / 2),
                             top + height / 4 + noise.UpTo(height / 2)};
  }
}

// A range on one axis, in pixels.
struct Stretch {
  int Start;
  int Length;
  [[nodiscard]] int End() const { return Start + Length; }
};

// The gap between two stretches, or the overlap if there is no gap.
Stretch Between(Stretch a, Stretch b) {
  const auto [start, end] = std::minmax({std::max(a.Start, b.Start), std::min(a.End(), b.End())});
  return {start, end - start};
}

// Places the arrow between the two tiles, next to the arrow of the opposite direction.
void Connect(GameTables& tables, Noise& noise, int from, int to, int arrow) {
  constexpr int Margin = 2;
  const StrRect& start = tables.Tiles[from];
  const StrRect& end = tables.Tiles[to];
  Stretch across = Between({start.Left, start.Width}, {end.Left, end.Width});
  Stretch down = Between({start.Top, start.Height}, {end.Top, end.Height});
  Stretch& longer = across.Length > down.Length ? across : down;
  longer.Length /= 2;
  if (from > to) longer.Start = longer.End();
  tables.Arrows[arrow] = MakeRect(noise, across.Start + Margin, down.Start + Margin,
                                  across.Length - 2 * Margin, down.Length - 2 * Margin);
  tables.Connections(from, to) = arrow;
}

void ConnectTiles(GameTables& tables, Noise& noise) {
  for (int cell = 0; cell < MapSlotCount * MapSlotCount; ++cell) {
    tables.Connections(cell % MapSlotCount, cell / MapSlotCount) = NoConnection;
  }
  int arrow = 0;
  int road = 0;
  for (std::size_t place = 0; place < Plan.size(); ++place) {
    const std::size_t reach = ReachOf(Plan[place]);
    if (reach == 0) continue;
    const int from = SlotAt(place - reach);
    const int to = SlotAt(place + reach);
    Connect(tables, noise, from, to, arrow);
    if (++road % 5 != 0) ++arrow;  // both directions of every fifth road share one: 81 in all
    Connect(tables, noise, to, from, arrow++);
  }
}

template <std::size_t Width>
void Put(std::array<char, Width>& field, std::string_view text) {
  text.copy(field.data(), Width);
}

// The position of a location on its battle map: low numbers are in the north and west.
struct Square {
  std::uint8_t X;
  std::uint8_t Y;
};

// The direction of an exit along each axis: -1, 0 or 1.
struct Heading {
  int X;
  int Y;
};

constexpr int BattleMapSize = 100;  // squares along each axis: two digits suffice

// A position in the first tenth, the middle or the last tenth of an axis.
int PlaceTowards(int direction, Noise& noise) {
  constexpr int Edge = BattleMapSize / 10;
  if (direction < 0) return noise.UpTo(Edge - 1);
  if (direction > 0) return BattleMapSize - 1 - noise.UpTo(Edge - 1);
  return BattleMapSize * 3 / 10 + noise.UpTo(BattleMapSize * 4 / 10 - 1);
}

// X and Y always differ, so that a test notices if they are swapped.
Square SquareTowards(Heading heading, Noise& noise) {
  const int x = PlaceTowards(heading.X, noise);
  int y = PlaceTowards(heading.Y, noise);
  if (x == y) y ^= 1;
  return {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y)};
}

Heading HeadingTo(const StrRect& from, const StrRect& to) {
  const auto sign = [](int distance) {
    constexpr int HalfPitch = 48;  // pixels; tiles in the same row or column differ by less
    return distance > HalfPitch ? 1 : distance < -HalfPitch ? -1 : 0;
  };
  return {sign(to.Left - from.Left), sign(to.Top - from.Top)};
}

VictoryLocation MakeLocation(Noise& noise, std::int32_t kind, std::string_view name,
                             Heading heading = {}, std::uint8_t destination = 0) {
  const Square square = SquareTowards(heading, noise);
  VictoryLocation vl;
  vl.TileX = square.X;
  vl.TileY = square.Y;
  vl.Opaque0 = {noise.Byte(), noise.Byte()};
  vl.Kind = static_cast<VLKind>(kind);
  Put(vl.Name, name);
  vl.Opaque1 = noise.Byte();
  vl.Destination = destination;
  vl.Opaque2 = {noise.Byte(), noise.Byte()};
  return vl;
}

VictoryLocation MakeExit(Noise& noise, int to, Heading heading, const std::string& name) {
  return MakeLocation(noise, 50, name, heading, static_cast<std::uint8_t>(to));
}

VictoryLocation MakeObjective(Noise& noise, std::size_t which) {
  return MakeLocation(noise, which % 3 == 0 ? 200 : 100, Objectives[which % std::size(Objectives)]);
}

// An unused slot that still holds an old name, with bytes after its NUL.
VictoryLocation MakeLeftover(Noise& noise) {
  using namespace std::string_view_literals;
  return MakeLocation(noise, 0, "Ford\0east bank"sv, {}, noise.Byte());
}

void FillLocations(SampleMap& map, GameTables& tables, int slot, Noise& noise) {
  auto next = map.VLs.begin();
  const StrRect& tile = tables.Tiles[slot];
  for (int to = 0; to < MapSlotCount; ++to) {
    if (tables.Connections(slot, to) == NoConnection) continue;
    const Heading heading = HeadingTo(tile, tables.Tiles[to]);
    *next++ = MakeExit(noise, to, heading, std::string(Places[to]) + " road");
  }
  if (tile.Left < 40) *next++ = MakeExit(noise, OffMap, {-1, 0}, "West edge");
  if (tile.Left > 680) *next++ = MakeExit(noise, OffMap, {1, 0}, "East edge");
  const auto which = static_cast<std::size_t>(slot);
  for (std::size_t i = 0; i < 2 + which % 3; ++i) *next++ = MakeObjective(noise, which + i);
  if (which % 4 == 0) *next++ = MakeLeftover(noise);
  while (next != map.VLs.end()) *next++ = MakeLocation(noise, 0, "");
}

void FillTexts(BtdText& text, std::string_view place, std::string_view objective) {
  const std::string name(place);
  Put(text.BaseName, place);
  Put(text.AlliedBrief, (name + " lies on our road to the river.\r\n\r\nHold the ")
                            .append(objective)
                            .append(" until relieved. The password is \x93P\xE8lerin\x94.\r\n"));
  Put(text.AxisBrief, ("Whoever holds " + name + " holds the M\xFChlsteg.\r\nTake the ")
                          .append(objective)
                          .append(" before dusk \x96 fuel is short."));
}

SampleMap MakeMap(GameTables& tables, int slot, Noise& noise) {
  const auto which = static_cast<std::size_t>(slot);
  SampleMap map;
  map.FileName = which % 4 == 1 ? ToUpper(Places[which]) : std::string(Places[which]);
  map.FileName += Extensions[which % std::size(Extensions)];
  map.Header = {19990326, static_cast<std::uint8_t>(slot)};
  FillLocations(map, tables, slot, noise);
  FillTexts(map.Text, Places[which], Objectives[which % std::size(Objectives)]);
  map.Rest = noise.Bytes(which * 53);
  return map;
}

}  // namespace

SampleGame MakeSampleGame() {
  constexpr std::uint32_t Seed = 43;
  Noise noise(Seed);
  SampleGame game;
  PlaceTiles(game.Tables, noise);
  ConnectTiles(game.Tables, noise);
  for (int map = 0; map < MapSlotCount; ++map) {
    game.Maps.push_back(MakeMap(game.Tables, map, noise));
  }
  game.Maps.back().VLs.back().TileX = 211;  // a file can hold more than two digits
  return game;
}

}  // namespace corvane
