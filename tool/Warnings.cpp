#include "tool/Warnings.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <utility>

#include "Paths.h"
#include "Scene.h"
#include "base/LetterCase.h"
#include "data/MapCatalogue.h"
#include "rules/ConsistencyCheck.h"
#include "tool/Printable.h"

namespace corvane {
namespace {

// The edges of a rectangle, in 64 bits, since the numbers in a file can overflow 32.
struct Edges {
  explicit Edges(const StrRect& rect)
      : Left(rect.Left), Top(rect.Top), Right(Left + rect.Width), Bottom(Top + rect.Height) {}
  [[nodiscard]] bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
  [[nodiscard]] bool FitsOnScreen() const {
    return Left >= 0 && Top >= 0 && Right <= ScreenWidth && Bottom <= ScreenHeight;
  }
  [[nodiscard]] bool Holds(const Hotspot& spot) const {
    return spot.CenterX >= Left && spot.CenterX < Right && spot.CenterY >= Top &&
           spot.CenterY < Bottom;
  }
  [[nodiscard]] bool Overlaps(const Edges& other) const {
    return !IsEmpty() && !other.IsEmpty() && Left < other.Right && other.Left < Right &&
           Top < other.Bottom && other.Top < Bottom;
  }
  std::int64_t Left, Top, Right, Bottom;
};

// A warning for each text field of a BTD file that lacks its NUL.
void AppendUnterminated(std::vector<std::string>& texts, const MapFile& file) {
  const auto check = [&](std::span<const char> field, std::size_t width, const std::string& name) {
    if (TrimAtNul({field.data(), field.size()}).size() == width)
      texts.push_back(name + " has no terminating NUL");
  };
  check(file.Text.BaseName, sizeof BtdText::BaseName, "the base name");
  check(file.Text.AlliedBrief, sizeof BtdText::AlliedBrief, "the Allied briefing");
  check(file.Text.AxisBrief, sizeof BtdText::AxisBrief, "the Axis briefing");
  for (std::size_t vl = 0; vl < file.VLs.size(); ++vl)
    check(file.VLs[vl].Name, file.VLs[vl].Name.size(), "the name of VL" + std::to_string(vl));
}

bool IsKnownKind(VLKind kind) {
  return kind == VLKind::Unused || kind == VLKind::Exit || kind == VLKind::MinorObjective ||
         kind == VLKind::MajorObjective;
}

void AppendVLWarnings(std::vector<std::string>& texts, const VictoryLocation& vl,
                      std::size_t slot) {
  const std::string name = "VL" + std::to_string(slot);
  if (!IsKnownKind(vl.Kind))
    texts.push_back(name + " has the unknown kind " +
                    std::to_string(static_cast<std::int32_t>(vl.Kind)));
  if (vl.Kind == VLKind::Exit && !IsMapSlot(vl.Destination) && vl.Destination != OffMap)
    texts.push_back("the exit " + name + " leads to " + std::to_string(vl.Destination) +
                    ", which is not a map");
}

bool IsNamedAsItsFile(const MapFile& file) {
  const std::string title = ToUpper(FileTitle(file.Name));
  return title == ToUpper(FieldText(file.Text.BaseName)) + ".BTD";
}

std::vector<std::string> FileWarnings(const MapFile& file) {
  std::vector<std::string> texts;
  if (file.Length < BtdSize)
    texts.push_back("only " + std::to_string(file.Length) + " bytes long, not " +
                    std::to_string(BtdSize));
  if (file.Header.Magic != BtdMagic)
    texts.push_back("the magic number is " + std::to_string(file.Header.Magic) + ", not " +
                    std::to_string(BtdMagic));
  if (!IsMapSlot(file.Header.MapIndex))
    texts.push_back("the map number is " + std::to_string(file.Header.MapIndex) +
                    ", which is not a map slot");
  if (!file.Name.empty() && !IsNamedAsItsFile(file))
    texts.push_back("the base name is " + Quoted(FieldText(file.Text.BaseName)) +
                    ", not the file's name");
  for (std::size_t vl = 0; vl < file.VLs.size(); ++vl) AppendVLWarnings(texts, file.VLs[vl], vl);
  AppendUnterminated(texts, file);
  return texts;
}

class LayerCheck {
 public:
  explicit LayerCheck(const Layer& layer) : TheLayer(layer) {}

  Marks Found;

  void CheckMap(int map) {
    if (IsInUse(map)) {
      CheckTile(map);
      CheckHotspot(map);
      CheckOverlaps(map);
    }
    for (int to = 0; to < MapSlotCount; ++to) CheckConnection(map, to);
    if (HasRow(map)) {
      CheckExits(map);
      CheckNumber(map);
      const MapFile& file = TheLayer.Files[static_cast<std::size_t>(map)];
      for (const std::string& text : FileWarnings(file)) Warn(map, text);
    }
    if (IsInUse(map) && !IsReached(map)) Warn(map, "no other map leads to it");
  }

  void CheckArrow(int arrow) {
    const Edges edges(TheLayer.Arrows[arrow]);
    if (!edges.IsEmpty() && !edges.FitsOnScreen())
      WarnOfArrow(arrow, "it extends beyond 800 x 600");
    const auto& users = Users[arrow];
    if (users.empty()) WarnOfArrow(arrow, "no connection uses it");
    if (users.size() > 1) WarnOfArrow(arrow, "unrelated connections use it: " + Names(users));
  }

  void CheckFolder() {
    if (TheLayer.FilesLeftOut)
      Add({MarkKind::Warning, "the Maps folder contains more than 43 BTD files; some are ignored"});
    int last = -1;
    for (const MapFile& file : TheLayer.Files) last = std::max<int>(last, file.Header.MapIndex);
    for (int number = 0; number < std::min(last, MapSlotCount); ++number) {
      const auto has = [=](const MapFile& file) { return file.Header.MapIndex == number; };
      if (std::ranges::none_of(TheLayer.Files, has))
        Add({MarkKind::Warning, "no BTD file has the map number " + std::to_string(number),
             number});
    }
  }

 private:
  using Pair = std::pair<int, int>;  // of maps, the lower first

  void Add(Mark mark) { Found.push_back(std::move(mark)); }
  void Warn(int map, const std::string& text) {
    Add({MarkKind::Warning, "map " + MapLabel(TheLayer, map) + ": " + text, map});
  }
  void WarnOfArrow(int arrow, const std::string& text) {
    Add({MarkKind::Warning, "arrow " + ThreeDigits(arrow) + ": " + text, -1, arrow});
  }

  [[nodiscard]] bool HasRow(int map) const {
    return static_cast<std::size_t>(map) < TheLayer.Rows.size();
  }
  // Without a catalogue, it is unknown which slots are in use.
  [[nodiscard]] bool IsInUse(int map) const { return TheLayer.Rows.empty() || HasRow(map); }
  [[nodiscard]] bool Connects(int from, int to) const {
    return TheLayer.Connections(from, to) != NoConnection;
  }
  [[nodiscard]] bool IsReached(int map) const {
    for (int from = 0; from < MapSlotCount; ++from)
      if (from != map && Connects(from, map)) return true;
    return false;
  }

  // The check already reports an empty tile.
  void CheckTile(int map) {
    const StrRect& tile = TheLayer.Tiles[map];
    const Edges edges(tile);
    if (!edges.IsEmpty() && !edges.FitsOnScreen()) Warn(map, "its tile extends beyond 800 x 600");
  }

  void CheckHotspot(int map) {
    const Hotspot& spot = TheLayer.Hotspots[map];
    if (spot.CenterX < 0 || spot.CenterX >= ScreenWidth || spot.CenterY < 0 ||
        spot.CenterY >= ScreenHeight) {
      Warn(map, "its hotspot is outside 800 x 600");
    } else if (!Edges(TheLayer.Tiles[map]).Holds(spot)) {
      Warn(map, "its hotspot is outside its tile");
    }
  }

  void CheckOverlaps(int map) {
    const Edges edges(TheLayer.Tiles[map]);
    for (int other = map + 1; other < MapSlotCount; ++other) {
      if (IsInUse(other) && edges.Overlaps(Edges(TheLayer.Tiles[other])))
        Warn(map, "its tile overlaps that of map " + MapLabel(TheLayer, other));
    }
  }

  void CheckConnection(int from, int to) {
    if (!Connects(from, to)) return;
    const std::string name = "the connection to map " + MapLabel(TheLayer, to);
    const std::int32_t arrow = TheLayer.Connections(from, to);
    if (arrow < 0 || arrow >= ArrowSlotCount) {
      Warn(from, name + " names arrow " + std::to_string(arrow) + ", which does not exist");
    } else {
      AddUser(arrow, {std::min(from, to), std::max(from, to)});
    }
    if (from == to) Warn(from, "it is connected to itself");
    if (!Connects(to, from)) Warn(from, name + " has no connection back");
    if (HasRow(from) && !HasExitTo(TheLayer.Destinations, from, to))
      Warn(from, name + " has no exit");
  }

  void CheckExits(int map) {
    for (int vl = 0; vl < VLSlotCount; ++vl) {
      const std::int32_t to = TheLayer.Destinations(map, vl);
      if (!IsMapSlot(to)) continue;
      const std::string name = "the exit VL" + std::to_string(vl);
      if (to == map) Warn(map, name + " leads to the map itself");
      if (!TheLayer.Rows.empty() && !HasRow(to))
        Warn(map, name + " leads to map " + ThreeDigits(to) + ", which has no BTD file");
      if (Connects(map, to) && !Connects(to, map))
        Warn(map,
             name + " leads to map " + MapLabel(TheLayer, to) + ", which has no connection back");
    }
  }

  void CheckNumber(int map) {
    const int number = TheLayer.Files[static_cast<std::size_t>(map)].Header.MapIndex;
    if (number != map)
      Warn(map, "its file has the map number " + std::to_string(number) + ", but is in row " +
                    std::to_string(map));
    const auto next = static_cast<std::size_t>(map) + 1;
    if (next < TheLayer.Files.size() && TheLayer.Files[next].Header.MapIndex == number)
      Warn(map, TheLayer.Files[next].Name + " has the same map number");
  }

  void AddUser(int arrow, Pair maps) {
    auto& users = Users[arrow];
    if (std::ranges::find(users, maps) == users.end()) users.push_back(maps);
  }

  static std::string Names(const std::vector<Pair>& users) {
    constexpr std::size_t MaxNames = 4;
    std::string names;
    for (const auto& [from, to] : std::span(users).first(std::min(MaxNames, users.size()))) {
      if (!names.empty()) names += ", ";
      names += ThreeDigits(from) + " - " + ThreeDigits(to);
    }
    if (users.size() > MaxNames)
      names += " and " + std::to_string(users.size() - MaxNames) + " more";
    return names;
  }

  const Layer& TheLayer;
  std::map<int, std::vector<Pair>> Users;  // by arrow
};

}  // namespace

Marks FindingMarks() {
  const Findings findings = LocateFindings();
  Marks marks;
  for (const Finding& found : findings.Lines)
    marks.push_back({MarkKind::Finding, findings.Text.substr(found.Start, found.Length), found.Map,
                     found.Arrow});
  return marks;
}

Marks WarningsOf(const Layer& layer) {
  LayerCheck check(layer);
  for (int map = 0; map < MapSlotCount; ++map) check.CheckMap(map);
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) check.CheckArrow(arrow);
  check.CheckFolder();
  return std::move(check.Found);
}

Marks WarningsOf(const MapFile& file) {
  Marks marks;
  for (const std::string& text : FileWarnings(file))
    marks.push_back({MarkKind::Warning, text, -1, -1});
  return marks;
}

}  // namespace corvane
