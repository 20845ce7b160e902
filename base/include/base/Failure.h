// A failure of a file operation: what failed, on which file, and why. Whoever shows one to the user
// takes its sentence from here.
#pragma once

#include <string>
#include <system_error>

namespace corvane {

enum class FileAction { Read, List, Create, Save };

/// What a failed save left behind.
enum class FileState {
  Unchanged,    // also after any failure of another action
  NotCreated,   // no file was there, and none is
  Removed,      // the file that the save had created is gone again
  Gone,         // another program removed the file during the save
  Unconfirmed,  // the old bytes were put back, but the disk did not confirm them
  Damaged,      // the old bytes could not be put back
  NotRemoved,   // the unfinished file that the save had created is still there
  Unknown,      // what the file holds, or whether it exists, could not be found out
  Untouched,    // no file was looked for
};

/// True if a save left some of its own bytes in the file, so that it differs from what was there.
[[nodiscard]] constexpr bool IsTorn(FileState state) {
  return state == FileState::Damaged || state == FileState::NotRemoved;
}

struct Failure {
  FileAction Action = FileAction::Read;
  std::string Path;
  std::error_code Reason;
  FileState State = FileState::Unchanged;
  std::string LinkTarget = {};  // where Path leads, if it is a link that a save failed on
};

/// Reasons of our own, beside those of the system.
enum class FileError {
  ChangedByAnother = 1,  // the bytes to be replaced are not those that were last read or written
  Replaced,              // another file has taken the place of the open one
  Removed,               // no file stands in the place of the open one
  NotAFileName,          // a name that leads out of its folder or means a device
  NotOrdinary,           // a pipe, a socket or a device
};
[[nodiscard]] std::error_code make_error_code(FileError error);

/// The system's message for an error, in UTF-8, without a period; with what helps, where that is
/// known of the error and the file at `path`.
[[nodiscard]] std::string ReasonText(std::error_code error, const std::string& path = {});

/// The sentences for the user: the file, what could not be done with it, the reason and, after a
/// save, the file's state.
[[nodiscard]] std::string FailureMessage(const Failure& failure);

}  // namespace corvane

template <>
struct std::is_error_code_enum<corvane::FileError> : std::true_type {};
