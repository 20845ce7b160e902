// The list of maps, built from the BTD files in the Maps folder of GamePath. The position of a row
// is its map slot, whatever number its text begins with. That number is used only when VLDest is
// loaded, for the rows of connections, and for the file of a cleared slot.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "data/BtdFile.h"

namespace corvane {

// A row is three digits (the file's MapIndex), a space, and the file's name as the folder lists it.
inline std::vector<std::string> MapRows;    // in text order, letter case ignored; at most 43
inline std::vector<std::string> ArrowRows;  // "000" to "080" once a catalogue is loaded

/// Reads the head of a map file for the catalogue. A caller that needs complete files can read and
/// keep them here, so that each file is read only once.
using HeadReader = std::function<Result<BtdHead>(const std::string& path)>;

/// The path of the Maps folder, in its own letter case.
[[nodiscard]] std::string MapsFolder();

struct CatalogueReport {
  std::string Folder;             // the Maps folder
  bool FoundFiles = false;        // the folder holds map files
  std::vector<Failure> Failures;  // files that could not be read, and an incomplete listing
};

/// Rebuilds both lists, and VLDest for every map that has a file.
[[nodiscard]] CatalogueReport LoadMapCatalogue(const HeadReader& readHead = ReadBtdHead);

/// The row of a map slot; empty if it has none.
[[nodiscard]] const std::string& MapRow(int map);

/// The number at the start of a row; -1 if its first three characters are not digits.
[[nodiscard]] int RowMapIndex(std::string_view row);

/// The end of the row of a cleared map slot, which names no file.
inline constexpr std::string_view ClearedRowEnd = " UNUSED";

/// The file name in a row; empty if it has none.
[[nodiscard]] std::string RowFileName(std::string_view row);

/// A slot number in the format of the rows: "007".
[[nodiscard]] std::string ThreeDigits(int number);

/// Inserts a row into MapRows in text order.
void InsertMapRow(const std::string& row);

/// Replaces the row of a map slot, if it has one.
void ReplaceMapRow(int map, const std::string& row);

/// Sets the ten VLDest values of a map from its victory locations.
void SetDestinations(int map, const VictoryLocations& vls);

/// The path of a BTD file in the Maps folder, in the letter case of an existing file. If several
/// match `name`, prefers the one that the catalogue listed as `listed`.
[[nodiscard]] std::string BtdPath(const std::string& name, const std::string& listed);

/// The path to which a map with this base name is saved: `baseName`.btd in the Maps folder, found
/// as by BtdPath. Fails for a name that leaves that folder or names a device.
[[nodiscard]] Result<std::string> BtdSavePath(const std::string& baseName,
                                              const std::string& listed);

}  // namespace corvane
