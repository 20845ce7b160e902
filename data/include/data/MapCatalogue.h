// The list of maps, built from the BTD files in the Maps folder of GamePath. The position of a row
// is its map slot, whatever number the row's text begins with; only the rows of connections and the
// file of a cleared slot go by that number.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "data/BtdFile.h"

namespace corvane {

// A row is three digits (the file's MapIndex), a blank, and the file's name as the folder lists it.
inline std::vector<std::string> MapRows;    // in text order, letter case ignored; at most 43
inline std::vector<std::string> ArrowRows;  // "000" to "080" once a catalogue was loaded

/// How the catalogue reads the head of a map file. Who needs whole files reads them here, once.
using HeadReader = std::function<Result<BtdHead>(const std::string& path)>;

struct CatalogueReport {
  std::string Folder;             // the Maps folder
  bool FoundFiles = false;        // the folder holds map files
  std::vector<Failure> Failures;  // files without a row, and a listing that broke off
};

/// Rebuilds both lists, and VLDest for every map that has a file.
[[nodiscard]] CatalogueReport LoadMapCatalogue(const HeadReader& readHead = ReadBtdHead);

/// The row of a map slot; the empty text if there is none.
[[nodiscard]] const std::string& MapRow(int map);

/// The number that a row begins with; -1 if its first three characters are no digits.
[[nodiscard]] int RowMapIndex(std::string_view row);

/// The row of a cleared map slot ends in this, and names no file.
inline constexpr std::string_view ClearedRowEnd = " UNUSED";

/// The file name that a row holds; empty for a row without one.
[[nodiscard]] std::string RowFileName(std::string_view row);

/// A slot number as rows spell it: "007".
[[nodiscard]] std::string ThreeDigits(int number);

/// Puts a row at its place in the text order of MapRows.
void InsertMapRow(const std::string& row);

/// Replaces the row of a map slot in place, where there is one.
void ReplaceMapRow(int map, const std::string& row);

/// Sets the ten VLDest values of a map from its victory locations.
void SetDestinations(int map, const VictoryLocations& vls);

/// Full name of a BTD file in the Maps folder. Reaches a file that differs from `name` in letter
/// case only; of several such, the one that the catalogue listed as `listed`.
[[nodiscard]] std::string BtdPath(const std::string& name, const std::string& listed);

/// Where the base name `baseName` saves to: `baseName`.btd in the Maps folder, found as by BtdPath.
/// Fails for a name that leads out of that folder or means a device.
[[nodiscard]] Result<std::string> BtdSavePath(const std::string& baseName,
                                              const std::string& listed);

}  // namespace corvane
