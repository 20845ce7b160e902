// The groups of rows. Each Add function adds its rows; all use one sample game.
#pragma once

#include <string>

namespace corvane {

/// Opens the game in `folder`; exits on failure.
void Open(const std::string& folder);

void AddFileRows(const std::string& folder);
void AddCheckRows(const std::string& folder);
void AddWindowRows(const std::string& folder);
void AddToolRows(const std::string& folder);

/// Rows for the Windows programs in `programs`, under Wine.
void AddWindowsRows(const std::string& folder, const std::string& programs);

}  // namespace corvane
