// A failure of a file operation: what failed, on which file, and why. FailureMessage composes the
// message that both programs show.
#pragma once

#include <string>
#include <system_error>

namespace corvane {

enum class FileAction { Read, List, Create, Save };

/// What a failed save left behind.
enum class FileState {
  Unchanged,    // also after any failure of another action
  NotCreated,   // the file did not exist and still does not
  Removed,      // the file that the save had created was removed
  Gone,         // another program removed the file during the save
  Unconfirmed,  // the old bytes were put back, but the disk did not confirm them
  Damaged,      // the old bytes could not be put back
  NotRemoved,   // the unfinished file that the save had created is still there
  Unknown,      // the contents of the file, or whether it exists, could not be determined
  Untouched,    // the save failed before it reached any file
};

/// True if a failed save left some of its own bytes in the file.
[[nodiscard]] constexpr bool IsTorn(FileState state) {
  return state == FileState::Damaged || state == FileState::NotRemoved;
}

struct Failure {
  FileAction Action = FileAction::Read;
  std::string Path;
  std::error_code Reason;
  FileState State = FileState::Unchanged;
  std::string LinkTarget = {};  // the target of Path, if a save failed on a link
};

/// Reasons for which the system has no error code.
enum class FileError {
  ChangedByAnother = 1,  // the bytes to be replaced differ from those last read or written
  Replaced,              // the path of the open file now names another file
  Removed,               // the path of the open file no longer names a file
  NotAFileName,          // a name that leaves its folder or names a device
  NotOrdinary,           // a pipe, a socket or a device
};
[[nodiscard]] std::error_code make_error_code(FileError error);

/// The system's message for an error, in UTF-8, without a period. Adds a hint in parentheses if
/// one is known for this error on the file at `path`.
[[nodiscard]] std::string ReasonText(std::error_code error, const std::string& path = {});

/// The message for the user: the file, what failed, the reason and, after a save, the state of the
/// file.
[[nodiscard]] std::string FailureMessage(const Failure& failure);

}  // namespace corvane

template <>
struct std::is_error_code_enum<corvane::FileError> : std::true_type {};
