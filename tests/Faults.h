// Faults around every step on a file. Programs that link corvane_faulty_files have them in place of
// the system's own steps.
#pragma once

#include <functional>
#include <system_error>

namespace corvane {

enum class FileStep { Open, Status, PathStatus, Read, Write, SetLength, Flush, Close, Remove };
inline constexpr char FileStepLetters[] = "OSPRWLFCX";

/// When a fault strikes: the step then has no effect, or all of it.
enum class Moment { Before, After };

/// Asked at both moments of every step. An error fails the step; a smaller `bytes` at the first
/// moment makes a transfer a short one. A close gives the file up in any case.
using FileFault = std::function<std::error_code(FileStep step, Moment moment, std::size_t& bytes)>;
inline FileFault InjectedFault;

}  // namespace corvane
