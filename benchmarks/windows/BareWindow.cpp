// The floor for the program's window: the same controls, texts and rows, created with system calls
// only. Its argument is the control list.
#include <windows.h>

#include <commctrl.h>

#include "../ControlList.h"
#include "OwnCosts.h"

namespace {

using corvane::ListedControl;
using corvane::ListedKind;

std::wstring Wide(const std::string& text) { return {text.begin(), text.end()}; }  // ASCII only

struct Class {
  const wchar_t* Name;
  DWORD Style, Extended;
};

Class ClassOf(const ListedControl& control) {
  constexpr DWORD Alignments[] = {SS_LEFT, SS_RIGHT, SS_CENTER};
  switch (control.Kind) {
    case ListedKind::Label:
      return {WC_STATICW, Alignments[control.Align] | SS_CENTERIMAGE, 0};
    case ListedKind::Frame:
      return {WC_BUTTONW, BS_GROUPBOX, 0};
    case ListedKind::Button:
      return {WC_BUTTONW, BS_PUSHBUTTON, 0};
    case ListedKind::ListBox:
      return {WC_LISTBOXW, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL,
              WS_EX_CLIENTEDGE};
    case ListedKind::ComboBox:
      return {WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL, 0};
    default:
      return {WC_EDITW, ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
  }
}

void AddRows(HWND widget, const ListedControl& control) {
  const bool combo = control.Kind == ListedKind::ComboBox;
  for (const std::string& row : control.Rows)
    SendMessageW(widget, combo ? CB_ADDSTRING : LB_ADDSTRING, 0,
                 reinterpret_cast<LPARAM>(Wide(row).c_str()));
  SendMessageW(widget, combo ? CB_SETCURSEL : LB_SETCURSEL, static_cast<WPARAM>(control.Selected),
               0);
}

void AddControl(HWND window, const ListedControl& control, const ListedControl& frame, HFONT font) {
  const auto [name, style, extended] = ClassOf(control);
  const DWORD shown = (control.Visible ? WS_VISIBLE : 0U) | (control.Enabled ? 0U : WS_DISABLED);
  const HWND widget =
      CreateWindowExW(extended, name, Wide(control.Text).c_str(), WS_CHILD | style | shown,
                      frame.Left + control.Left, frame.Top + control.Top, control.Width,
                      control.Height, window, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(widget, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  AddRows(widget, control);
}

void AddMenu(HMENU bar, const ListedControl& menu) {
  std::wstring text = Wide(menu.Text);
  if (menu.Kind == ListedKind::Menu) {
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopupMenu()), text.c_str());
    return;
  }
  for (const std::string& keys : menu.Rows) text += L'\t' + Wide(keys);
  AppendMenuW(GetSubMenu(bar, GetMenuItemCount(bar) - 1), MF_STRING, 1, text.c_str());
}

HWND MakeWindow() {
  WNDCLASSW kind{};
  kind.lpfnWndProc = DefWindowProcW;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hIcon = LoadIconW(kind.hInstance, L"Corvane");
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.lpszClassName = L"Bare";
  RegisterClassW(&kind);
  RECT whole{0, 0, 447, 319};  // the client area of the main window
  AdjustWindowRect(&whole, WS_OVERLAPPEDWINDOW, TRUE);
  return CreateWindowExW(0, kind.lpszClassName, L"Bare", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                         CW_USEDEFAULT, whole.right - whole.left, whole.bottom - whole.top, nullptr,
                         nullptr, kind.hInstance, nullptr);
}

void Fill(HWND window, const std::vector<ListedControl>& controls) {
  const HFONT font =
      CreateFontW(-11, 0, 0, 0, 0, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"MS Shell Dlg");
  const HMENU bar = CreateMenu();
  for (const ListedControl& control : controls) {
    if (control.Kind >= ListedKind::Menu) {
      AddMenu(bar, control);
      continue;
    }
    const bool framed = control.Parent >= 0;
    AddControl(window, control,
               framed ? controls[static_cast<std::size_t>(control.Parent)] : ListedControl{}, font);
  }
  SetMenu(window, bar);
}

// Timer messages arrive only after all painting is done.
void CALLBACK Measure(HWND, UINT, UINT_PTR, DWORD) { PrintOwnCosts(); }

}  // namespace

int main(int, char** argv) {
  SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Measure);
  InitCommonControls();
  const std::vector<ListedControl> controls = corvane::ReadControls(argv[1]);
  if (controls.empty()) return 1;
  const HWND window = MakeWindow();
  Fill(window, controls);
  ShowWindow(window, SW_SHOWDEFAULT);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 1;
}
