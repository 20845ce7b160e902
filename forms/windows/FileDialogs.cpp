#include "FileDialogs.h"

#include <algorithm>
#include <string>

#include "Dialogs.h"
#include "SystemFunction.h"
#include "base/WideText.h"

namespace corvane {
namespace {

// Loaded by the first dialog: the library and those that it needs take 6 MiB and a quarter of the
// start. Nullptr if it cannot be loaded.
Chooser LoadChooser(FileDialogKind kind) {
  if (!LoadLibraryW(L"comdlg32")) return nullptr;
  const bool opens = kind == FileDialogKind::Open;
  return SystemFunction<Chooser>(L"comdlg32", opens ? "GetOpenFileNameW" : "GetSaveFileNameW");
}

}  // namespace

void ShowFileDialog(HWND owner, CommonDialog& settings, FileDialogKind kind) {
  if (const Chooser choose = LoadChooser(kind)) return RunFileDialog(owner, settings, choose);
  const std::string reason = "system error " + std::to_string(GetLastError());
  ShowMessageBox(owner, "Error: comdlg32.dll could not be loaded: " + reason + ".",
                 MessageButtons::Ok);
}

void RunFileDialog(HWND owner, CommonDialog& settings, Chooser choose) {
  constexpr std::size_t LongestPath = 32768;
  std::wstring path(LongestPath, L'\0');
  std::wstring filters = TextToWide(settings.Filter) + L'|';
  std::ranges::replace(filters, L'|', L'\0');
  const std::wstring folder = TextToWide(settings.InitDir);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filters.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(settings.FilterIndex);
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = LongestPath;
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  // Beside the settings' own only how it looks. The folder of a choice becomes the current one.
  dialog.Flags = static_cast<DWORD>(settings.Flags) | OFN_EXPLORER | OFN_HIDEREADONLY;
  const bool chosen = choose(&dialog) != 0;
  settings.FileName = chosen ? WideToText(path.c_str()) : "";
  settings.FileTitle = chosen ? WideToText(path.c_str() + dialog.nFileOffset) : "";
}

}  // namespace corvane
