#include "Dialogs.h"

#include <algorithm>
#include <string>

#include "base/WideText.h"

namespace corvane {

void ShowFileDialog(HWND owner, CommonDialog& settings, BOOL(WINAPI* choose)(OPENFILENAMEW*)) {
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
