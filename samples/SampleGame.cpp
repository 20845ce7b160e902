// The sample game as a description: a drawn plan of its maps, and what is derived from it.
#include "samples/SampleGame.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "base/LetterCase.h"
#include "samples/Noise.h"

namespace corvane {
namespace {

// Tiles and the roads between them. The tiles are the map slots in reading order.
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

// In Windows-1252, as everything in a BTD file.
constexpr std::string_view Objectives[] = {"Church",  "Stone bridge", "Ch\xE2teau", "Railway halt",
                                           "Sawmill", "Hill 214",     "M\xFChle",   "Crossroads",
                                           "Quarry",  "Old barracks", "Dairy"};
constexpr std::string_view Extensions[] = {".btd", ".BTD", ".Btd"};

int SlotAt(std::size_t place) {
  return static_cast<int>(std::ranges::count(Plan.substr(0, place), 'o'));
}

// How far before and behind its sign in the plan a road has its ends; 0 for what is no road.
std::size_t ReachOf(char sign) {
  constexpr std::string_view Signs = "-/|\\";
  constexpr std::size_t Reaches[] = {1, PlanWidth - 1, PlanWidth, PlanWidth + 1};
  const std::size_t which = Signs.find(sign);
  return which == Signs.npos ? 0 : Reaches[which];
}

std::int32_t OpaqueWord(Noise& noise) { return 1 + noise.UpTo(0xFFFFFE); }

StrRect MakeRect(Noise& noise, int left, int top, int width, int height) {
  return {OpaqueWord(noise), -OpaqueWord(noise), OpaqueWord(noise), left, top, width, height};
}

void PlaceTiles(SampleTables& tables, Noise& noise) {
  constexpr int Pitch = 96;  // pixels between two tiles of the plan, on the game's 800 x 600
  for (std::size_t place = 0; place < Plan.size(); ++place) {
    if (Plan[place] != 'o') continue;
    const int column = static_cast<int>(place) % PlanWidth / 2;
    const int row = static_cast<int>(place) / PlanWidth / 2;
    const int left = 14 + column * Pitch + noise.UpTo(15);
    const int top = 12 + row * Pitch + noise.UpTo(15);
    const int slot = SlotAt(place);
    const int width = 60 + noise.UpTo(12);
    const int height = 46 + noise.UpTo(10);
    tables.Tiles[slot] = MakeRect(noise, left, top, width, height);
    tables.Hotspots[slot] = {left + width / 4 + noise.UpTo(width / 2),
                             top + height / 4 + noise.UpTo(height / 2)};
  }
}

// The arrow stands halfway between the tiles; that of the way back stands a little aside.
void Connect(SampleTables& tables, Noise& noise, int from, int to, int arrow) {
  const StrRect& start = tables.Tiles[from];
  const StrRect& end = tables.Tiles[to];
  const int across = end.Left + end.Width / 2 - (start.Left + start.Width / 2);
  const int down = end.Top + end.Height / 2 - (start.Top + start.Height / 2);
  const int width = std::max(12, std::abs(across) / 3);
  const int height = std::max(12, std::abs(down) / 3);
  const int aside = from < to ? -4 : 4;
  const int left = start.Left + (start.Width + across - width) / 2 + aside;
  const int top = start.Top + (start.Height + down - height) / 2 + aside;
  tables.Arrows[arrow] = MakeRect(noise, left, top, width, height);
  tables.Connections(from, to) = arrow;
}

void ConnectTiles(SampleTables& tables, Noise& noise) {
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
    if (++road % 5 != 0) ++arrow;  // each fifth road has one arrow for both ways: 81 in all
    Connect(tables, noise, to, from, arrow++);
  }
}

template <std::size_t Width>
void Put(std::array<char, Width>& field, std::string_view text) {
  text.copy(field.data(), Width);
}

VictoryLocation MakeLocation(Noise& noise, std::int32_t kind, std::string_view name,
                             std::uint8_t destination = 0) {
  VictoryLocation vl;
  vl.TileX = noise.Byte();
  vl.TileY = noise.Byte();
  vl.Opaque0 = {noise.Byte(), noise.Byte()};
  vl.Kind = kind;
  Put(vl.Name, name);
  vl.Opaque1 = noise.Byte();
  vl.Destination = destination;
  vl.Opaque2 = {noise.Byte(), noise.Byte()};
  return vl;
}

VictoryLocation MakeExit(Noise& noise, int to, const std::string& name) {
  return MakeLocation(noise, 50, name, static_cast<std::uint8_t>(to));
}

VictoryLocation MakeObjective(Noise& noise, std::size_t which) {
  return MakeLocation(noise, which % 3 == 0 ? 200 : 100, Objectives[which % std::size(Objectives)]);
}

// A slot out of use in which an older name still stands, with bytes behind its end.
VictoryLocation MakeLeftOver(Noise& noise) {
  using namespace std::string_view_literals;
  return MakeLocation(noise, 0, "Ford\0east bank"sv, noise.Byte());
}

void FillLocations(SampleMap& map, SampleTables& tables, int slot, Noise& noise) {
  auto next = map.VLs.begin();
  for (int to = 0; to < MapSlotCount; ++to) {
    if (tables.Connections(slot, to) == NoConnection) continue;
    *next++ = MakeExit(noise, to, std::string(Places[to]) + " road");
  }
  const std::int32_t left = tables.Tiles[slot].Left;
  if (left < 40) *next++ = MakeExit(noise, 254, "West edge");
  if (left > 680) *next++ = MakeExit(noise, 254, "East edge");
  const auto which = static_cast<std::size_t>(slot);
  for (std::size_t i = 0; i < 2 + which % 3; ++i) *next++ = MakeObjective(noise, which + i);
  if (which % 4 == 0) *next++ = MakeLeftOver(noise);
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

SampleMap MakeMap(SampleTables& tables, int slot, Noise& noise) {
  const auto which = static_cast<std::size_t>(slot);
  SampleMap map;
  map.FileName = which % 4 == 1 ? InCapitals(Places[which]) : std::string(Places[which]);
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
  return game;
}

}  // namespace corvane
