#include "base/Failure.h"

#include "SystemFile.h"

namespace corvane {
namespace {

class FileErrors : public std::error_category {
 public:
  [[nodiscard]] const char* name() const noexcept override { return "file"; }
  [[nodiscard]] std::string message(int error) const override {
    switch (static_cast<FileError>(error)) {
      case FileError::ChangedByAnother:
        return "another program has changed it";
      case FileError::Replaced:
        return "another file has taken its place";
      case FileError::Removed:
        return "another program has removed it";
      case FileError::NotAFileName:
        return "this cannot be the name of a file in that folder";
      case FileError::NotOrdinary:
        return "it is not an ordinary file";
    }
    return "unknown error";
  }
};

const char* Verb(FileAction action) {
  switch (action) {
    case FileAction::Read:
      return "read";
    case FileAction::List:
      return "listed completely";
    case FileAction::Create:
      return "created";
    case FileAction::Save:
      return "saved";
  }
  return "used";
}

const char* StateText(FileState state) {
  switch (state) {
    case FileState::Unchanged:
      return "The file is unchanged.";
    case FileState::NotCreated:
      return "The file does not exist and was not created.";
    case FileState::Removed:
      return "The unfinished new file was removed.";
    case FileState::Gone:
      return "The file no longer exists.";
    case FileState::Unconfirmed:
      return "Its old contents were restored, but the disk did not confirm them. Check the file.";
    case FileState::Damaged:
      return "The file is DAMAGED: its old contents could not be restored. Use your backup.";
    case FileState::NotRemoved:
      return "The unfinished new file could not be removed. Do not use it.";
    case FileState::Unknown:
      return "What the file holds now is unknown. Check it before you use it.";
    case FileState::Untouched:
      return "No file was changed.";
  }
  return "";
}

}  // namespace

std::error_code make_error_code(FileError error) {
  static const FileErrors category;
  return {static_cast<int>(error), category};
}

std::string ReasonText(std::error_code error, const std::string& path) {
  const std::string text = SystemMessage(error);
  const std::string hint = SystemHint(error, path);
  return hint.empty() ? text : text + " (" + hint + ")";
}

std::string FailureMessage(const Failure& failure) {
  std::string text = failure.Path;
  if (!failure.LinkTarget.empty()) text.append(" (a link to ").append(failure.LinkTarget) += ')';
  text.append(" could not be ").append(Verb(failure.Action)).append(": ");
  text.append(ReasonText(failure.Reason, failure.Path)) += '.';
  if (failure.Action == FileAction::Save) text.append(" ").append(StateText(failure.State));
  return text;
}

}  // namespace corvane
