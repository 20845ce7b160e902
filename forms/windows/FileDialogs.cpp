#include "FileDialogs.h"

#include <cderr.h>

#include <algorithm>
#include <optional>
#include <string>

#include "Dialogs.h"
#include "SystemFunction.h"
#include "base/WideText.h"

namespace corvane {
namespace {

// Loads the library on first use, because it and its dependencies take 6 MiB and a quarter of the
// start-up time. Empty if it cannot be loaded.
std::optional<SystemDialog> LoadDialog(FileDialogKind kind) {
  constexpr wchar_t Library[] = L"comdlg32";
  if (!LoadLibraryW(Library)) return {};
  const bool opens = kind == FileDialogKind::Open;
  return SystemDialog{
      SystemFunction<decltype(SystemDialog::Choose)>(
          Library, opens ? "GetOpenFileNameW" : "GetSaveFileNameW"),
      SystemFunction<decltype(SystemDialog::Error)>(Library, "CommDlgExtendedError")};
}

std::string ReasonOf(DWORD error) {
  switch (error) {
    case CDERR_MEMALLOCFAILURE:
    case CDERR_MEMLOCKFAILURE:
    case FNERR_SUBCLASSFAILURE:
      return "not enough memory";
    case FNERR_INVALIDFILENAME:
      return "the file name is invalid";
    case FNERR_BUFFERTOOSMALL:
      return "the path is too long";
    default:
      return "error " + std::to_string(error) + " of comdlg32.dll";
  }
}

void ShowFailure(HWND owner, const std::string& failure) {
  ShowMessageBox(owner, "Error: " + failure + ".", MessageButtons::Ok);
}

}  // namespace

void ShowFileDialog(HWND owner, CommonDialog& settings) {
  if (const auto system = LoadDialog(settings.Kind)) return RunFileDialog(owner, settings, *system);
  ShowFailure(owner,
              "comdlg32.dll could not be loaded: system error " + std::to_string(GetLastError()));
}

void RunFileDialog(HWND owner, CommonDialog& settings, const SystemDialog& system) {
  constexpr std::size_t MaxPath = 32768;
  std::wstring path(MaxPath, L'\0');
  std::wstring filters = TextToWide(settings.Filter) + L'|';
  std::ranges::replace(filters, L'|', L'\0');
  const std::wstring folder = TextToWide(settings.InitDir);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filters.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(settings.FilterIndex);
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = MaxPath;
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  // Adds only flags that affect the appearance. Choosing a file makes its folder the current one.
  dialog.Flags = static_cast<DWORD>(settings.Flags) | OFN_EXPLORER | OFN_HIDEREADONLY;
  if (system.Choose(&dialog)) {
    settings.FileName = WideToText(path.c_str());
  } else if (const DWORD error = system.Error()) {
    ShowFailure(owner, "The file dialog failed: " + ReasonOf(error));
  }
}

}  // namespace corvane
