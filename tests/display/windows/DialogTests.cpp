#include <filesystem>
#include <fstream>
#include <utility>

#include "FileDialogs.h"
#include "Screen.h"
#include "base/WideText.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

NONCLIENTMETRICSW Metrics() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return metrics;
}

// Changes the height of the message font until the end of the test.
class MessageHeight {
 public:
  explicit MessageHeight(int pixels) {
    NONCLIENTMETRICSW changed = Before;
    changed.lfMessageFont.lfHeight = -pixels;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof changed, &changed, 0);
  }
  MessageHeight(const MessageHeight&) = delete;
  MessageHeight& operator=(const MessageHeight&) = delete;
  ~MessageHeight() { SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof Before, &Before, 0); }

 private:
  NONCLIENTMETRICSW Before = Metrics();
};

constexpr int TextOfMessage = 100, FirstButtonOfMessage = 101;

HWND MessageText() { return GetDlgItem(GetActiveWindow(), TextOfMessage); }

int HeightOfLetters(HWND widget) {
  LOGFONTW font{};
  const auto handle = reinterpret_cast<HFONT>(SendMessageW(widget, WM_GETFONT, 0, 0));
  GetObjectW(handle, sizeof font, &font);
  return -font.lfHeight;
}

std::string Findings(int count) {
  std::string text = "Error: \n";
  for (int line = 0; line < count; ++line) {
    text += "No STRARROW defined for BTD link from 000 a.btd to map " + std::to_string(line) + "\n";
  }
  return text;
}

// Asks a question in the form's window, and plays a script in the box.
std::string AnswerTo(const std::string& text, const std::function<void()>& inBox) {
  TestForm form;
  std::string answer;
  form.cmdOK.Click = [&] { answer = Ask(text) ? "Yes" : "No"; };
  PlayWhole(form, [&] {
    WhenNext(inBox);
    PressAt(form.cmdOK);
  });
  return answer;
}

TEST(Messages, AreAnsweredByKeysAndByTheCloseBox) {
  const auto press = [](const char* key) { return [key] { PressKey(key); }; };
  const auto pressInText = [](const char* key) {
    return [key] {
      SetFocus(MessageText());
      PressKey(key);
    };
  };
  const auto pressOnNo = [] {
    PressKey("Tab");
    PressKey("Return");
  };
  const struct {
    const char* Case;
    std::function<void()> Act;
    const char* Answer;
  } cases[] = {{"Esc", press("Esc"), "No"},
               {"close box", [] { SendMessageW(GetActiveWindow(), WM_CLOSE, 0, 0); }, "No"},
               {"Return", press("Return"), "Yes"},
               {"N", press("N"), "No"},
               {"Y", press("Y"), "Yes"},
               {"Return on No", pressOnNo, "No"},
               {"Y in the text", pressInText("Y"), "Yes"},
               {"Esc in the text", pressInText("Esc"), "No"}};
  for (const auto& [name, act, answer] : cases) EXPECT_EQ(AnswerTo("Go on?", act), answer) << name;
}

TEST(Messages, ScrollByKeysWhileTheButtonHasTheFocus) {
  AnswerTo(Findings(300), [] {
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

TEST(Messages, CopyAllOfTheirTextOrWhatIsSelected) {
  AnswerTo("one\ntwo", [] {
    PressKey("Ctrl+C");
    EXPECT_EQ(Clipboard(), "one\r\ntwo");
    SendMessageW(MessageText(), EM_SETSEL, 1, 3);
    PressKey("Ctrl+C");
    EXPECT_EQ(Clipboard(), "ne");
    PressKey("Esc");
  });
}

TEST(Messages, AreWholeOnTheScreenInTheSystemsFont) {
  for (const int height : {12, 26}) {
    const MessageHeight font(height);
    AnswerTo(Findings(24), [&] {
      EXPECT_TRUE(SeenMessage().OnScreen) << height;
      EXPECT_EQ(HeightOfLetters(MessageText()), height);
      EXPECT_EQ(HeightOfLetters(GetDlgItem(GetActiveWindow(), FirstButtonOfMessage)), height);
      PressKey("Esc");
    });
  }
}

TEST(Messages, FollowTheFontWhileTheyStand) {
  AnswerTo("Go on?", [] {
    const SIZE before = ClientOf(GetActiveWindow());
    const MessageHeight font(30);
    SendMessageW(GetActiveWindow(), WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
    EXPECT_EQ(HeightOfLetters(MessageText()), 30);
    EXPECT_GT(ClientOf(GetActiveWindow()).cy, before.cy);
    PressKey("Esc");
  });
}

TEST(TextBoxes, TakeSeveralPastedLinesAsTheyAre) {
  TestForm f;
  AnswerTo("1\n2", [] {
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

BOOL WINAPI ChooseAFile(OPENFILENAMEW* dialog) {
  const std::wstring path = L"C:\\Games\\\x00E9.crv";
  path.copy(dialog->lpstrFile, dialog->nMaxFile);
  dialog->nFileOffset = 9;
  return TRUE;
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

TEST(FileDialogs, GiveBackThePathAndTheName) {
  CommonDialog settings;
  RunFileDialog(nullptr, settings, {ChooseAFile, NoError});
  EXPECT_EQ(settings.FileName, "C:\\Games\\\xC3\xA9.crv");
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
