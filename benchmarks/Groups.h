// The groups of rows. Each adds its own; all work on one sample game.
#pragma once

#include <string>

namespace corvane {

/// Opens the game in that folder, or ends the run.
void Open(const std::string& folder);

void AddFileRows(const std::string& folder);
void AddCheckRows(const std::string& folder);
void AddWindowRows(const std::string& folder);
void AddToolRows(const std::string& folder);

/// The windows of the Windows programs in `programs`, under Wine.
void AddWindowsRows(const std::string& folder, const std::string& programs);

}  // namespace corvane
