#include "data/MapCatalogue.h"

#include <algorithm>

#include "base/FolderScan.h"
#include "base/LetterCase.h"
#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::size_t RowDigits = 3;

void AddMapFile(const std::string& name, const HeadReader& readHead, CatalogueReport& report) {
  const auto head = readHead(JoinPath(report.Folder, name));
  if (!head.Done()) return report.Failures.push_back(head.Error());
  SetDestinations(head->Header.MapIndex, head->VLs);
  InsertMapRow(ThreeDigits(head->Header.MapIndex) + ' ' + name);
}

}  // namespace

std::string MapsFolder() { return JoinPath(GamePath, NameInFolder(GamePath, "Maps")); }

CatalogueReport LoadMapCatalogue(const HeadReader& readHead) {
  MapRows.clear();
  ArrowRows.clear();
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) ArrowRows.push_back(ThreeDigits(arrow));

  CatalogueReport report;
  report.Folder = MapsFolder();
  std::vector<std::string> names;
  const std::error_code error = ScanFolder(report.Folder, ".BTD", MapSlotCount, names);
  report.FoundFiles = !names.empty();
  for (const std::string& name : names) AddMapFile(name, readHead, report);
  if (error) report.Failures.push_back({FileAction::List, report.Folder, error});
  return report;
}

const std::string& MapRow(int map) {
  static const std::string none;
  return map >= 0 && static_cast<std::size_t>(map) < MapRows.size()
             ? MapRows[static_cast<std::size_t>(map)]
             : none;
}

int RowMapIndex(std::string_view row) {
  const std::string_view digits = row.substr(0, RowDigits);
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (digits.size() < RowDigits || !std::ranges::all_of(digits, isDigit)) return -1;
  return (digits[0] - '0') * 100 + (digits[1] - '0') * 10 + (digits[2] - '0');
}

std::string RowFileName(std::string_view row) {
  constexpr std::size_t NameStart = RowDigits + 1;
  if (row.size() <= NameStart || row.substr(RowDigits) == ClearedRowEnd) return {};
  return std::string(row.substr(NameStart));
}

std::string ThreeDigits(int number) {
  std::string digits = std::to_string(number);
  if (digits.size() < RowDigits) digits.insert(0, RowDigits - digits.size(), '0');
  return digits;
}

void InsertMapRow(const std::string& row) {
  MapRows.insert(std::ranges::upper_bound(MapRows, row, LessIgnoringCase), row);
}

void ReplaceMapRow(int map, const std::string& row) {
  if (map >= 0 && static_cast<std::size_t>(map) < MapRows.size()) {
    MapRows[static_cast<std::size_t>(map)] = row;
  }
}

void SetDestinations(int map, const VictoryLocations& vls) {
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    const VictoryLocation& location = vls[static_cast<std::size_t>(vl)];
    VLDest(map, vl) = location.Kind == VLKind::Exit ? location.Destination : NotAnExit;
  }
}

std::string BtdPath(const std::string& name, const std::string& listed) {
  const std::string folder = MapsFolder();
  return JoinPath(folder, NameInFolder(folder, name, listed));
}

Result<std::string> BtdSavePath(const std::string& baseName, const std::string& listed) {
  const std::string name = baseName + ".btd";
  if (IsFileName(name)) return BtdPath(name, listed);
  return Failure{FileAction::Save, JoinPath(MapsFolder(), name), FileError::NotAFileName,
                 FileState::Untouched};
}

}  // namespace corvane
