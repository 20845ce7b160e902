#include <filesystem>
#include <fstream>
#include <utility>

#include "FileDialogs.h"
#include "Screen.h"
#include "base/WideText.h"

using namespace corvane;

static HWND MessageText() {
  constexpr int TextOfMessage = 100;
  return GetDlgItem(GetActiveWindow(), TextOfMessage);
}

// Shows a message and plays a script in its box.
static void Show(const std::string& text, const std::function<void()>& inBox) {
  TestForm form;
  form.cmdOK.Click = [&] { Tell(text); };
  PlayWhole(form, [&] {
    WhenNext(inBox);
    PressAt(form.cmdOK);
  });
}

TEST(Messages, ScrollByKeys) {
  Show(std::string(300, '\n'), [] {
    const auto firstLine = [] {
      return static_cast<int>(SendMessageW(MessageText(), EM_GETFIRSTVISIBLELINE, 0, 0));
    };
    PressKey("PageDown");
    EXPECT_GT(firstLine(), 10);
    PressKey("End");
    EXPECT_GT(firstLine(), 200);
    PressKey("Home");
    EXPECT_EQ(firstLine(), 0);
    PressKey("Tab");
    PressKey("End");  // of the line
    EXPECT_EQ(firstLine(), 0);
    PressKey("PageDown");
    EXPECT_GT(firstLine(), 0);
    PressKey("Esc");
  });
}

TEST(Messages, AppearInTheMiddleOfTheirOwner) {
  Show("1", [] {
    const RECT box = PlaceOf(GetActiveWindow());
    const RECT owner = PlaceOf(GetWindow(GetActiveWindow(), GW_OWNER));
    EXPECT_NEAR(box.left + box.right, owner.left + owner.right, 1);
    EXPECT_NEAR(box.top + box.bottom, owner.top + owner.bottom, 1);
    PressKey("Esc");
  });
}

static std::string Clipboard() {
  std::string text;
  if (!OpenClipboard(nullptr)) return text;
  if (const HANDLE held = GetClipboardData(CF_UNICODETEXT)) {
    text = WideToText(static_cast<const wchar_t*>(GlobalLock(held)));
    GlobalUnlock(held);
  }
  CloseClipboard();
  return text;
}

TEST(TextBoxes, KeepAllPastedLines) {
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

static DWORD Error;

static DWORD WINAPI LastError() { return Error; }

static OPENFILENAMEW Given;
static std::wstring GivenFilter;

static BOOL WINAPI ChooseNothing(OPENFILENAMEW* dialog) {
  Given = *dialog;
  const wchar_t* end = dialog->lpstrFilter;
  while (*end) end += std::wcslen(end) + 1;
  GivenFilter.assign(dialog->lpstrFilter, end);
  return FALSE;
}

TEST(FileDialogs, PassOnTheirSettings) {
  CommonDialog settings{.Flags = FileMustExist | PathMustExist,
                        .DefaultExt = ".CRV",
                        .Filter = "Executable|CC4.EXE|All|*.*",
                        .FilterIndex = 2,
                        .InitDir = "C:\\Games"};
  Error = 0;
  RunFileDialog(nullptr, settings, {ChooseNothing, LastError});
  EXPECT_EQ(GivenFilter, std::wstring(L"Executable\0CC4.EXE\0All\0*.*\0", 27));
  EXPECT_EQ(Given.nFilterIndex, 2U);
  constexpr DWORD Wanted = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
  EXPECT_EQ(Given.Flags & (Wanted | OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR), Wanted);
  EXPECT_EQ(settings.FileName, "");  // a cancel leaves it empty
}

TEST(FileDialogs, ReportWhyTheyFailed) {
  for (const auto& [error, reason] :
       {std::pair{0x3003, "the path is too long"}, {0x0006, "error 6 of comdlg32.dll"}}) {
    TestForm form;
    Error = static_cast<DWORD>(error);
    form.cmdOK.Click = [] {
      CommonDialog settings;
      RunFileDialog(nullptr, settings, {ChooseNothing, LastError});
      EXPECT_EQ(settings.FileName, "");
    };
    PlayWhole(form, [&, text = std::string(reason)] {
      WhenNext([&] {
        EXPECT_EQ(SeenMessage().Text, "Error: The file dialog failed: " + text + ".");
        PressKey("Return");
      });
      PressAt(form.cmdOK);
    });
  }
}

// If the invalid library were found, the error would be a different one.
TEST(Program, LoadsNoLibraryFromItsOwnFolder) {
  wchar_t program[MAX_PATH]{};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::filesystem::path planted =
      std::filesystem::path(program).parent_path() / "planted.dll";
  std::ofstream(planted) << "no library";
  TestForm form;
  PlayWhole(form, [] {});
  SetLastError(0);
  EXPECT_EQ(LoadLibraryW(L"planted.dll"), nullptr);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
  std::filesystem::remove(planted);
}
