#include "services/Display.h"

namespace corvane {

void CommonDialog::ShowOpen() { TheDisplay.ShowOpenDialog(*this); }

void CommonDialog::ShowSave() { TheDisplay.ShowSaveDialog(*this); }

void Tell(const std::string& text) {
  static_cast<void>(TheDisplay.ShowMessage(text, MessageButtons::Ok));
}

bool Ask(const std::string& text) {
  return TheDisplay.ShowMessage(text, MessageButtons::YesNo) == MessageAnswer::Yes;
}

}  // namespace corvane
