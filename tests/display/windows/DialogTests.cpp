#include <filesystem>
#include <fstream>
#include <utility>

#include "FileDialogs.h"
#include "Screen.h"
#include "base/WideText.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

HWND MessageText() {
  constexpr int TextOfMessage = 100;
  return GetDlgItem(GetActiveWindow(), TextOfMessage);
}

// Tells a text in a box and plays a script there.
void Show(const std::string& text, const std::function<void()>& inBox) {
  TestForm form;
  form.cmdOK.Click = [&] { Tell(text); };
  PlayWhole(form, [&] {
    WhenNext(inBox);
    PressAt(form.cmdOK);
  });
}

TEST(Messages, ScrollByKeysWhileTheButtonHasTheFocus) {
  Show(std::string(300, '\n'), [] {
    const auto firstLine = [] {
      return static_cast<int>(SendMessageW(MessageText(), EM_GETFIRSTVISIBLELINE, 0, 0));
    };
    EXPECT_EQ(firstLine(), 0);
    PressKey("PageDown");
    const int page = firstLine();
    EXPECT_GT(page, 10);
    PressKey("End");
    EXPECT_GT(firstLine(), 200);
    PressKey("PageUp");
    PressKey("Home");
    EXPECT_EQ(firstLine(), 0);
    PressKey("Esc");
  });
}

std::string Clipboard() {
  std::string text;
  if (!OpenClipboard(nullptr)) return text;
  if (const HANDLE held = GetClipboardData(CF_UNICODETEXT)) {
    text = WideToText(static_cast<const wchar_t*>(GlobalLock(held)));
    GlobalUnlock(held);
  }
  CloseClipboard();
  return text;
}

TEST(TextBoxes, TakeSeveralPastedLinesAsTheyAre) {
  TestForm f;
  Show("1\n2", [] {
    PressKey("Ctrl+C");
    PressKey("Esc");
  });
  ASSERT_EQ(Clipboard(), "1\r\n2");
  PlayWhole(f, [&] {
    PressAt(f.txtNumber);
    SendMessageW(WidgetOf(f.txtNumber), WM_PASTE, 0, 0);
    EXPECT_EQ(f.txtNumber.Text(), "1\r\n2");
    SendMessageW(WidgetOf(f.txtNumber), WM_UNDO, 0, 0);
    EXPECT_EQ(f.txtNumber.Text(), "");
    PressAt(f.txtLines);
    Type("ab");
    PressKey("Home");
    SendMessageW(WidgetOf(f.txtLines), WM_PASTE, 0, 0);
    EXPECT_EQ(f.txtLines.Text(), "1\r\n2ab");
    EXPECT_NE(SendMessageW(WidgetOf(f.txtLines), EM_CANUNDO, 0, 0), 0);
  });
}

DWORD WINAPI NoError() { return 0; }

OPENFILENAMEW Given;
std::wstring GivenFilter;

BOOL WINAPI ChooseNothing(OPENFILENAMEW* dialog) {
  Given = *dialog;
  const wchar_t* end = dialog->lpstrFilter;
  while (*end) end += std::wcslen(end) + 1;
  GivenFilter.assign(dialog->lpstrFilter, end);
  return FALSE;
}

TEST(FileDialogs, AreShownByTheirSettings) {
  CommonDialog settings{.Flags = FileMustExist | PathMustExist,
                        .DefaultExt = ".CRV",
                        .Filter = "Executable|CC4.EXE|All|*.*",
                        .FilterIndex = 2,
                        .InitDir = "C:\\Games"};
  RunFileDialog(nullptr, settings, {ChooseNothing, NoError});
  EXPECT_EQ(GivenFilter, std::wstring(L"Executable\0CC4.EXE\0All\0*.*\0", 27));
  EXPECT_EQ(Given.nFilterIndex, 2U);
  EXPECT_NE(Given.Flags & OFN_FILEMUSTEXIST, 0U);
  EXPECT_NE(Given.Flags & OFN_PATHMUSTEXIST, 0U);
  EXPECT_EQ(Given.Flags & OFN_OVERWRITEPROMPT, 0U);
  EXPECT_EQ(Given.Flags & OFN_NOCHANGEDIR, 0U);
  EXPECT_EQ(settings.FileName, "");  // a cancel leaves it empty
}

DWORD Error;

TEST(FileDialogs, TellWhyTheyFailed) {
  for (const auto& [error, reason] : {std::pair{0x3003, "the path is too long"},
                                      {0x3002, "the file name is invalid"},
                                      {0x0009, "not enough memory"},
                                      {0x0006, "error 6 of comdlg32.dll"}}) {
    TestForm form;
    std::string told;
    Error = static_cast<DWORD>(error);
    form.cmdOK.Click = [] {
      CommonDialog settings;
      RunFileDialog(nullptr, settings, {ChooseNothing, [] { return Error; }});
      EXPECT_EQ(settings.FileName, "");
    };
    PlayWhole(form, [&] {
      WhenNext([&] { told = SeenMessage().Text, PressKey("Return"); });
      PressAt(form.cmdOK);
    });
    EXPECT_EQ(told, std::string("Error: The file dialog failed: ") + reason + ".");
  }
}

// If the invalid library were found, the error would be a different one.
TEST(Program, LoadsNoLibraryFromItsOwnFolder) {
  wchar_t program[MAX_PATH]{};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const fs::path planted = fs::path(program).parent_path() / "planted.dll";
  std::ofstream(planted) << "no library";
  TestForm form;
  PlayWhole(form, [] {});
  SetLastError(0);
  EXPECT_EQ(LoadLibraryW(L"planted.dll"), nullptr);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
  fs::remove(planted);
}

}  // namespace
}  // namespace corvane
