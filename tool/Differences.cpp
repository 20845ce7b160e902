#include <algorithm>
#include <cstdint>

#include "Fields.h"
#include "Words.h"
#include "base/LetterCase.h"
#include "data/MapCatalogue.h"
#include "tool/Printable.h"
#include "tool/Text.h"

namespace corvane {
namespace {

std::string Change(std::string_view label, const std::string& before, const std::string& after) {
  return std::string(label).append(" ").append(before).append(" -> ").append(after);
}

// Collects the changes of one map, arrow or file, each prefixed by its name.
class Changes {
 public:
  Changes(Lines& found, std::string name) : Found(found), Name(std::move(name)) {}

  void Add(const std::string& line) { Found.push_back(Name.empty() ? line : Name + ": " + line); }

  void Compare(std::string_view label, std::int64_t before, std::int64_t after) {
    if (before != after) Add(Change(label, std::to_string(before), std::to_string(after)));
  }

  template <typename Record, std::size_t Count>
  void Compare(const Record& before, const Record& after,
               const std::array<NumberField<Record>, Count>& fields) {
    for (const auto& field : fields)
      Compare(field.Label, before.*field.Number, after.*field.Number);
  }

  void CompareField(const std::string& label, std::span<const char> before,
                    std::span<const char> after) {
    if (std::ranges::equal(before, after)) return;
    const std::string old = QuotedField(before);
    Add(Change(label, old, QuotedField(after)));
  }

 private:
  Lines& Found;
  std::string Name;
};

// The name of a map that may have a row in one layer only.
std::string NameInEither(const Layer& before, const Layer& after, int map) {
  const bool known = static_cast<std::size_t>(map) < before.Rows.size();
  return MapName(known ? before : after, map);
}

void CompareConnections(Changes& changes, const Layer& before, const Layer& after, int map) {
  for (int to = 0; to < MapSlotCount; ++to) {
    const std::int32_t old = before.Connections(map, to);
    const std::int32_t now = after.Connections(map, to);
    if (old == now) continue;
    changes.Add(Change("connection to " + NameInEither(before, after, to) + ": arrow",
                       ArrowNumber(old), ArrowNumber(now)));
  }
}

void CompareVLs(Lines& found, const std::string& name, const VictoryLocation& before,
                const VictoryLocation& after) {
  Changes changes(found, name);
  if (before.Kind != after.Kind)
    changes.Add(Change("Kind", KindName(before.Kind), KindName(after.Kind)));
  for (const ByteField& field : VLByteFields)
    changes.Compare(field.Label, before.*field.Byte, after.*field.Byte);
  for (const BytePairField& field : VLPairFields) {
    if (before.*field.Bytes != after.*field.Bytes)
      changes.Add(Change(field.Name, HexBytes(before.*field.Bytes), HexBytes(after.*field.Bytes)));
  }
  changes.CompareField("Name", before.Name, after.Name);
}

// The length of the longest common subsequence of two texts, starting at each pair of lines.
class CommonLines {
 public:
  CommonLines(const Lines& before, const Lines& after)
      : Width(after.size() + 1), Counts((before.size() + 1) * Width) {
    for (std::size_t old = before.size(); old-- > 0;) {
      for (std::size_t now = after.size(); now-- > 0;) {
        Counts[old * Width + now] = static_cast<std::uint16_t>(
            before[old] == after[now] ? From(old + 1, now + 1) + 1
                                      : std::max(From(old + 1, now), From(old, now + 1)));
      }
    }
  }
  [[nodiscard]] std::uint16_t From(std::size_t old, std::size_t now) const {
    return Counts[old * Width + now];
  }

 private:
  std::size_t Width;
  std::vector<std::uint16_t> Counts;
};

void CompareLines(Changes& changes, const std::string& label, const Lines& before,
                  const Lines& after) {
  const CommonLines common(before, after);
  for (std::size_t old = 0, now = 0; old < before.size() || now < after.size();) {
    if (old < before.size() && now < after.size() && before[old] == after[now]) {
      ++old, ++now;
    } else if (now == after.size() ||
               (old < before.size() && common.From(old + 1, now) >= common.From(old, now + 1))) {
      changes.Add(label + ": - " + before[old++]);
    } else {
      changes.Add(label + ": + " + after[now++]);
    }
  }
}

void CompareFiles(Lines& found, const std::string& name, const MapFile& before,
                  const MapFile& after) {
  Changes changes(found, name);
  changes.Compare("Magic number", before.Header.Magic, after.Header.Magic);
  changes.Compare("Map number", before.Header.MapIndex, after.Header.MapIndex);
  changes.CompareField("Base name", before.Text.BaseName, after.Text.BaseName);
  const std::string start = name.empty() ? "VL" : name + ": VL";
  for (std::size_t vl = 0; vl < before.VLs.size(); ++vl) {
    CompareVLs(found, start + std::to_string(vl), before.VLs[vl], after.VLs[vl]);
  }
  for (const BriefField& brief : BriefFields) {
    const auto& old = before.Text.*brief.Text;
    const auto& now = after.Text.*brief.Text;
    if (old != now) CompareLines(changes, brief.Label, BriefLines(old), BriefLines(now));
  }
}

const MapFile* FileNamed(const Layer& layer, const std::string& name) {
  const auto same = [capitals = ToUpper(name)](const MapFile& file) {
    return ToUpper(file.Name) == capitals;
  };
  const auto found = std::ranges::find_if(layer.Files, same);
  return found == layer.Files.end() ? nullptr : &*found;
}

std::string FileName(const Layer& layer, const MapFile& file) {
  return MapName(layer, static_cast<int>(&file - layer.Files.data()));
}

void AddLoneFiles(Lines& found, const Layer& layer, const Layer& other, std::string_view name) {
  for (const MapFile& file : layer.Files) {
    if (FileNamed(other, file.Name) == nullptr)
      found.push_back(FileName(layer, file) + ": only in " + Printable(name));
  }
}

}  // namespace

Lines TableDifferences(const Layer& before, const Layer& after) {
  Lines found;
  for (int map = 0; map < MapSlotCount; ++map) {
    Changes changes(found, NameInEither(before, after, map));
    changes.Compare(before.Tiles[map], after.Tiles[map], RectFields);
    changes.Compare(before.Hotspots[map], after.Hotspots[map], HotspotFields);
    CompareConnections(changes, before, after, map);
  }
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) {
    Changes changes(found, "arrow " + ThreeDigits(arrow));
    changes.Compare(before.Arrows[arrow], after.Arrows[arrow], RectFields);
  }
  return found;
}

Lines BtdDifferences(const MapFile& before, const MapFile& after) {
  Lines found;
  CompareFiles(found, {}, before, after);
  return found;
}

Lines FileDifferences(const Layer& before, const Layer& after, std::string_view beforeName,
                      std::string_view afterName) {
  Lines found;
  for (const MapFile& file : before.Files) {
    if (const MapFile* other = FileNamed(after, file.Name))
      CompareFiles(found, FileName(before, file), file, *other);
  }
  AddLoneFiles(found, before, after, beforeName);
  AddLoneFiles(found, after, before, afterName);
  return found;
}

}  // namespace corvane
