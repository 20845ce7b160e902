// Where the installed game lies, as its installer left it in the registry.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace corvane {

// The key is looked up under HKEY_LOCAL_MACHINE.
inline constexpr char InstallKey[] = R"(Software\Strategic Simulations Inc.\Close Combat\4.00\)";
inline constexpr char InstallValue[] = "InstalledTo";
inline constexpr std::size_t InstallValueLimit = 1024;  // bytes, the closing NUL included

/// The value's text up to its first NUL, as a folder of this system; it may be empty. Nothing if
/// the key cannot be opened, the value cannot be read, or it is longer than the limit.
[[nodiscard]] std::optional<std::string> ReadInstalledTo();

}  // namespace corvane
