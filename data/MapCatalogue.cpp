#include "data/MapCatalogue.h"

#include <algorithm>
#include <system_error>

#include "base/FolderScan.h"
#include "base/LetterCase.h"
#include "base/RawFile.h"
#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::size_t RowDigits = 3;

std::string MapsFolder() { return GamePath + Separator + NameInFolder(GamePath, "Maps"); }

std::string NoMapFiles(const std::string& folder, std::error_code error) {
  std::string text = "Error: No map files were found in the folder " + folder + ".";
  if (error && error != std::errc::no_such_file_or_directory)
    text.append(" ").append(Reason(error)).append(".");
  return text;
}

std::string Unreadable(const std::string& failures) {
  return "Error: Not all map files could be read. Those have no row, so the rows and the map "
         "numbers may no longer agree:" +
         failures;
}

// Gives back what failed, on a line of its own.
std::string AddMapFile(const std::string& folder, const std::string& name) {
  BtdHeader header;
  VictoryLocations vls;
  const FileResult read = ReadBtdHead(folder + Separator + name, header, vls);
  if (!read.Done()) return "\r\n" + read.Failure;
  SetDestinations(header.MapIndex, vls);
  InsertMapRow(ThreeDigits(header.MapIndex) + ' ' + name);
  return {};
}

}  // namespace

std::string LoadMapCatalogue() {
  MapRows.clear();
  ArrowRows.clear();
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) ArrowRows.push_back(ThreeDigits(arrow));

  const std::string folder = MapsFolder();
  std::vector<std::string> names;
  const std::error_code error = ScanFolder(folder, ".BTD", MapSlotCount, names);
  if (names.empty()) return NoMapFiles(folder, error);

  std::string failures;
  for (const std::string& name : names) failures += AddMapFile(folder, name);
  if (error) failures += "\r\n" + folder + " could not be listed whole: " + Reason(error) + ".";
  return failures.empty() ? std::string() : Unreadable(failures);
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
  constexpr std::size_t start = RowDigits + 1;
  return std::string(row.size() > start ? row.substr(start) : std::string_view());
}

std::string ThreeDigits(int number) {
  std::string digits = std::to_string(number);
  if (digits.size() < RowDigits) digits.insert(0, RowDigits - digits.size(), '0');
  return digits;
}

void InsertMapRow(const std::string& row) {
  MapRows.insert(std::ranges::upper_bound(MapRows, row, OrderedBefore), row);
}

void ReplaceMapRow(int map, const std::string& row) {
  if (map >= 0 && static_cast<std::size_t>(map) < MapRows.size()) {
    MapRows[static_cast<std::size_t>(map)] = row;
  }
}

void SetDestinations(int map, const VictoryLocations& vls) {
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    const VictoryLocation& location = vls[static_cast<std::size_t>(vl)];
    VLDest(map, vl) = location.Kind == KindExit ? location.Destination : NotAnExit;
  }
}

std::string BtdPath(const std::string& name, const std::string& listed) {
  const std::string folder = MapsFolder();
  return folder + Separator + NameInFolder(folder, name, listed);
}

}  // namespace corvane
