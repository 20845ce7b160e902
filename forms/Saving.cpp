#include "Saving.h"

#include "services/Display.h"

namespace corvane {

bool SaveAndReport(const std::string& path, const std::function<Result<>(OthersChanges)>& save) {
  auto saved = save(OthersChanges::Keep);
  if (!saved.Done() && saved.Error().Reason == FileError::ChangedByAnother) {
    if (!Ask("The file " + path +
             " was changed by another program since it was opened. Save and lose those changes?"))
      return false;
    saved = save(OthersChanges::Overwrite);
  }
  if (!saved.Done()) Tell("Error: " + FailureMessage(saved.Error()));
  return saved.Done();
}

}  // namespace corvane
