#include "services/Display.h"

#include <algorithm>
#include <filesystem>

#include "base/FolderScan.h"
#include "base/LetterCase.h"
#include "services/FormView.h"

namespace corvane {
namespace {

int Boxes = 0;  // open message boxes and file dialogs

// Updates the windows, then shows a box or dialog and counts it while it is open.
template <class Show>
void ShowOverForms(const Show& show) {
  if (TheDisplay.HasEnded) return;
  ShowChanges();
  ++Boxes;
  show();
  --Boxes;
}

MessageAnswer ShowBox(const std::string& text, MessageButtons buttons) {
  MessageAnswer answer = MessageAnswer::No;
  ShowOverForms([&] { answer = TheDisplay.ShowMessage(text, buttons); });
  return answer;
}

// Paths in the program are UTF-8 on every system.
std::filesystem::path PathOf(const std::string& text) {
  return {std::u8string(text.begin(), text.end())};
}

std::size_t NameStart(const std::string& path) {
  const std::size_t separator = path.find_last_of(std::string("/") + Separator);
  return separator == path.npos ? 0 : separator + 1;
}

bool EndsWith(const std::string& name, const std::string& extension) {
  return ToUpper(name).ends_with(ToUpper(extension));
}

// Every second part of a filter is a pattern, e.g. "*.crv" or "*.a;*.b".
bool MatchesFilter(const std::string& name, const std::string& filter) {
  bool pattern = false;
  for (std::size_t at = 0; at <= filter.size(); pattern = !pattern) {
    const std::size_t end = std::min(filter.find('|', at), filter.size());
    while (pattern && at < end) {
      const std::size_t next = std::min(filter.find(';', at), end);
      if (filter[at] == '*' && EndsWith(name, filter.substr(at + 1, next - at - 1))) return true;
      at = next + 1;
    }
    at = end + 1;
  }
  return false;
}

// The folder of a path, as NameInFolder expects it.
std::string FolderOf(const std::string& path) {
  const std::size_t start = NameStart(path);
  return path.substr(0, start > 1 ? start - 1 : start);
}

// The path in the letter case of the existing file, if there is one.
std::string SpelledOnDisk(const std::string& path) {
  const std::size_t start = NameStart(path);
  return path.substr(0, start) + NameInFolder(FolderOf(path), path.substr(start));
}

void Show(CommonDialog& dialog, FileDialogKind kind) {
  dialog.Kind = kind;
  dialog.FileName.clear();
  ShowOverForms([&] { TheDisplay.ShowFileDialog(dialog); });
}

void SetResult(CommonDialog& dialog, const std::string& path) {
  dialog.FileName = path.empty() ? path : SpelledOnDisk(path);
  dialog.FileTitle = dialog.FileName.substr(NameStart(dialog.FileName));
}

}  // namespace

void CommonDialog::ShowOpen() {
  Show(*this, FileDialogKind::Open);
  SetResult(*this, FileName);
}

void CommonDialog::ShowSave() {
  Show(*this, FileDialogKind::Save);
  const bool complete = FileName.empty() || MatchesFilter(FileName, Filter);
  SetResult(*this, complete ? FileName : FileName + DefaultExt);
}

std::string CommonDialog::Refusal(const std::string& path) const {
  std::error_code ignored;  // an inaccessible path counts as missing
  if ((Flags & PathMustExist) && !std::filesystem::is_directory(PathOf(FolderOf(path)), ignored)) {
    return path + "\r\nPath does not exist.";
  }
  if ((Flags & FileMustExist) && !std::filesystem::exists(PathOf(SpelledOnDisk(path)), ignored)) {
    return path + "\r\nFile not found.";
  }
  return {};
}

std::span<const MessageButton> ButtonsOf(MessageButtons buttons) {
  static constexpr MessageButton Ok[] = {{"OK", MessageAnswer::Ok}};
  static constexpr MessageButton YesNo[] = {{"&Yes", MessageAnswer::Yes},
                                            {"&No", MessageAnswer::No}};
  if (buttons == MessageButtons::YesNo) return YesNo;
  return Ok;
}

MessageAnswer AnswerOf(MessageButtons buttons, std::ptrdiff_t pressed) {
  const std::span<const MessageButton> choices = ButtonsOf(buttons);
  const bool closed = pressed < 0 || pressed >= std::ssize(choices);
  return closed ? choices.back().Answer : choices[static_cast<std::size_t>(pressed)].Answer;
}

void Tell(const std::string& text) { static_cast<void>(ShowBox(text, MessageButtons::Ok)); }

bool Ask(const std::string& text) {
  return ShowBox(text, MessageButtons::YesNo) == MessageAnswer::Yes;
}

bool IsBoxOpen() { return Boxes > 0; }

void EndProgram() {
  TheDisplay.HasEnded = true;
  TheDisplay.EndProgram();
}

}  // namespace corvane
