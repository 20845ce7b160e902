// Injects faults into file steps. Programs that link corvane_faulty_files use these steps instead
// of the system's.
#pragma once

#include <functional>
#include <system_error>

namespace corvane {

enum class FileStep { Open, Status, PathStatus, Read, Write, SetLength, Flush, Close, Remove };
inline constexpr char FileStepLetters[] = "OSPRWLFCX";

/// When a fault occurs: before the step, which then has no effect, or after its full effect.
enum class Moment { Before, After };

/// Called at both moments of every step. An error fails the step; a smaller `bytes` before a
/// transfer makes it short. A close always releases the file.
using FileFault = std::function<std::error_code(FileStep step, Moment moment, std::size_t& bytes)>;
inline FileFault InjectedFault;

}  // namespace corvane
