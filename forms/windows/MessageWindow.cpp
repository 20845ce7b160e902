#include "Dialogs.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "AccessibleText.h"
#include "Fonts.h"
#include "SystemFunction.h"
#include "Widgets.h"
#include "base/WideText.h"
#include "services/TextEditing.h"

namespace corvane {
namespace {

// The box does its own layout for a new resolution; the system would scale it again.
void DisableDialogScaling(HWND box) {
  using Setter = BOOL(WINAPI*)(HWND, int, int);  // Windows 10 and later
  constexpr int All = 7;                         // DDC_DISABLE_ALL and the flags it covers
  const auto set = SystemFunction<Setter>(L"user32", "SetDialogDpiChangeBehavior");
  if (set) set(box, All, All);
}

// One box for all messages: the system's cannot scroll, and its questions ignore Esc.
class MessageWindow {
 public:
  MessageWindow(std::wstring text, MessageButtons choices)
      : Text(std::move(text)), Choices(choices) {}
  MessageWindow(const MessageWindow&) = delete;
  MessageWindow& operator=(const MessageWindow&) = delete;
  ~MessageWindow() { DeleteObject(Font); }

  MessageAnswer Run(HWND owner);

 private:
  static INT_PTR CALLBACK DialogProc(HWND box, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK ChildProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam,
                                    UINT_PTR, DWORD_PTR self);
  INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnOpen();
  bool OnKey(HWND child, WPARAM key) const;
  void CopyText() const;

  HWND MakeChild(const wchar_t* className, const wchar_t* text, DWORD style, int id);
  void ApplyLayout(int dpi);
  void MakeFont(int dpi);
  SIZE PlaceText(SIZE room);
  void PlaceWindow(SIZE client);
  [[nodiscard]] int TitleWidth(int dpi) const;

  // Dialog units depend on the font: 1/4 of the average letter width, 1/8 of the height.
  [[nodiscard]] int Across(int units) const { return MulDiv(units, Letter.tmAveCharWidth, 4); }
  [[nodiscard]] int Down(int units) const { return MulDiv(units, Letter.tmHeight, 8); }

  static constexpr int Margin = 7, Gap = 4, ButtonWidth = 50, ButtonHeight = 14;
  static constexpr int MaxTextWidth = 400;               // dialog units; about 100 letters
  static constexpr int TextId = 100, FirstButton = 101;  // must differ from IDCANCEL, which closes

  const std::wstring Text;
  const MessageButtons Choices;
  HWND Box = nullptr, View = nullptr;  // the view shows the text
  std::vector<HWND> Buttons;
  HFONT Font = nullptr;
  TEXTMETRICW Letter{};
};

MessageAnswer MessageWindow::Run(HWND owner) {
  struct {
    DLGTEMPLATE Window;
    WORD Menu, Class, Title;  // none, default, none
  } form{};
  form.Window.style = DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
  const INT_PTR pressed = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &form.Window, owner,
                                                  DialogProc, reinterpret_cast<LPARAM>(this));
  return AnswerOf(Choices, pressed - FirstButton);
}

INT_PTR CALLBACK MessageWindow::DialogProc(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(box, DWLP_USER, lParam);
    auto* self = reinterpret_cast<MessageWindow*>(lParam);
    self->Box = box;
    self->OnOpen();
    return FALSE;  // the focus is already set
  }
  auto* self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(box, DWLP_USER));
  return self ? self->OnMessage(message, wParam, lParam) : FALSE;
}

INT_PTR MessageWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) == TextId || HIWORD(wParam) != BN_CLICKED) return FALSE;
      EndDialog(Box, LOWORD(wParam));
      return TRUE;
    case WM_DPICHANGED:
      ApplyLayout(HIWORD(wParam));
      return TRUE;
    case WM_SETTINGCHANGE:
      ApplyLayout(DpiOf(Box));
      return TRUE;
    case WM_SYSCOLORCHANGE:
      for (const HWND button : Buttons) SendMessageW(button, message, wParam, lParam);
      SendMessageW(View, message, wParam, lParam);
      return FALSE;
    case WM_DESTROY:
      ClearAccessibleText(Box);
      return FALSE;
    default:
      return FALSE;
  }
}

void MessageWindow::OnOpen() {
  SetWindowTextW(Box, TextToWide(ProgramName).c_str());
  SetAccessibleDescription(Box, Text);
  DisableDialogScaling(Box);
  for (int id = FirstButton; const MessageButton& choice : ButtonsOf(Choices)) {
    const DWORD style = Buttons.empty() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    Buttons.push_back(
        MakeChild(WC_BUTTONW, TextToWide(choice.Caption).c_str(), style | WS_TABSTOP, id++));
  }
  SendMessageW(Box, DM_SETDEFID, FirstButton, 0);
  ApplyLayout(DpiOf(Box));
  SetFocus(Buttons.front());
}

HWND MessageWindow::MakeChild(const wchar_t* className, const wchar_t* text, DWORD style, int id) {
  const HWND child = CreateWindowExW(
      0, className, text, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, Box,
      reinterpret_cast<HMENU>(INT_PTR{id}), GetModuleHandleW(nullptr), nullptr);
  SetWindowSubclass(child, ChildProc, 0, reinterpret_cast<DWORD_PTR>(this));
  return child;
}

LRESULT CALLBACK MessageWindow::ChildProc(HWND child, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR, DWORD_PTR self) {
  const auto* box = reinterpret_cast<const MessageWindow*>(self);
  if (message == WM_KEYDOWN && box->OnKey(child, wParam)) return 0;
  const LRESULT result = DefSubclassProc(child, message, wParam, lParam);
  // The box handles the text's Tab, Esc, Enter and letters.
  if (message == WM_GETDLGCODE && child == box->View) return DLGC_WANTARROWS;
  return result;
}

// Returns true if the key was handled.
bool MessageWindow::OnKey(HWND child, WPARAM key) const {
  if (IsHeld(VK_CONTROL) && (key == 'C' || key == VK_INSERT)) {
    CopyText();
    return true;
  }
  if (child == View) return false;
  constexpr std::pair<WPARAM, WPARAM> Scrolls[] = {
      {VK_PRIOR, SB_PAGEUP}, {VK_NEXT, SB_PAGEDOWN}, {VK_HOME, SB_TOP}, {VK_END, SB_BOTTOM}};
  const auto* scroll = std::ranges::find(Scrolls, key, &std::pair<WPARAM, WPARAM>::first);
  if (scroll == std::end(Scrolls)) return false;
  SendMessageW(View, WM_VSCROLL, scroll->second, 0);
  return true;
}

// Copies the selection, or the entire text if there is none.
void MessageWindow::CopyText() const {
  const auto [start, end] = SelectionOf(View);
  if (start == end) SendMessageW(View, EM_SETSEL, 0, -1);
  SendMessageW(View, WM_COPY, 0, 0);
  SendMessageW(View, EM_SETSEL, start, static_cast<LPARAM>(end));
}

void MessageWindow::MakeFont(int dpi) {
  const LOGFONTW message = GetSystemFonts(dpi).Message;
  const HFONT before = std::exchange(Font, CreateFontIndirectW(&message));
  Letter = MetricsOf(Font);
  for (const HWND button : Buttons) SetFontOf(button, Font);
  if (View) DestroyWindow(std::exchange(View, nullptr));
  DeleteObject(before);
}

int MessageWindow::TitleWidth(int dpi) const {
  const LOGFONTW title = GetSystemFonts(dpi).Title;
  const HFONT font = CreateFontIndirectW(&title);
  const int closeBox = 2 * GetSystemMetrics(SM_CXSIZE);
  const int width = MeasureText(TextToWide(ProgramName), font).cx + closeBox;
  DeleteObject(font);
  return width;
}

// Recreates the view at the size of the text; it scrolls if the text exceeds the room.
SIZE MessageWindow::PlaceText(SIZE room) {
  const int maxWidth = std::min<int>(room.cx, Across(MaxTextWidth));
  const int edge = Across(2);  // the view keeps part of its width free
  const auto show = [&](DWORD style, int width) {
    View = MakeChild(WC_EDITW, nullptr, style | ES_MULTILINE | ES_READONLY, TextId);
    SetFontOf(View, Font);
    SetWindowPos(View, HWND_BOTTOM, 0, 0, width, room.cy, SWP_NOACTIVATE);
    SendMessageW(View, EM_SETLIMITTEXT, 0, 0);
    SetWindowTextW(View, Text.c_str());
    const auto lines = static_cast<int>(SendMessageW(View, EM_GETLINECOUNT, 0, 0));
    return lines * static_cast<int>(Letter.tmHeight);
  };
  const int width = std::min<int>(maxWidth, MeasureText(Text, Font, maxWidth).cx + 2 * edge);
  const int height = show(0, width);
  if (height <= room.cy) return {width, height};
  DestroyWindow(View);
  const int bar = GetSystemMetrics(SM_CXVSCROLL);
  const int wider = std::min<int>(room.cx, width + bar);
  show(WS_VSCROLL | WS_BORDER | WS_TABSTOP, wider);
  return {wider, room.cy};
}

void MessageWindow::PlaceWindow(SIZE client) {
  const SIZE whole = WholeSize(Box, client);
  const HWND owner = GetWindow(Box, GW_OWNER);
  const RECT over = owner ? PlacesOf(owner).rcWindow : WorkArea(Box);
  RECT place{0, 0, whole.cx, whole.cy};
  OffsetRect(&place, (over.left + over.right - whole.cx) / 2,
             (over.top + over.bottom - whole.cy) / 2);
  const POINT at = FitOnScreen(owner ? owner : Box, place);
  MoveWindow(Box, at.x, at.y, whole.cx, whole.cy, TRUE);
}

void MessageWindow::ApplyLayout(int dpi) {
  MakeFont(dpi);
  const SIZE screen = SizeOf(WorkArea(Box));
  const SIZE frame{2 * Across(Margin), Down(3 * Margin + ButtonHeight)};
  const int titleBar = Down(2 * ButtonHeight);  // including the window's edges, generously
  const SIZE text = PlaceText({screen.cx - 2 * frame.cx, screen.cy - frame.cy - titleBar});
  const auto count = static_cast<int>(Buttons.size());
  const int buttons = count * Across(ButtonWidth) + (count - 1) * Across(Gap);
  const int inner = std::max({static_cast<int>(text.cx), buttons, TitleWidth(dpi)});
  MoveWindow(View, Across(Margin), Down(Margin), inner, text.cy, TRUE);
  int left = Across(Margin) + (inner - buttons) / 2;
  for (const HWND button : Buttons) {
    MoveWindow(button, left, Down(2 * Margin) + text.cy, Across(ButtonWidth), Down(ButtonHeight),
               TRUE);
    left += Across(ButtonWidth) + Across(Gap);
  }
  PlaceWindow({inner + frame.cx, text.cy + frame.cy});
  RedrawWindow(Box, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace

MessageAnswer ShowMessageBox(HWND owner, const std::string& text, MessageButtons buttons) {
  return MessageWindow(TextToWide(WithLineBreaks(text, "\r\n")), buttons).Run(owner);
}

}  // namespace corvane
