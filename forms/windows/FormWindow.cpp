#include "FormWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "Fonts.h"
#include "Widgets.h"
#include "base/WideText.h"
#include "services/Gestures.h"
#include "services/Pixels.h"

namespace corvane {
namespace {

constexpr UINT Presses[] = {WM_LBUTTONDOWN,   WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                            WM_RBUTTONDBLCLK, WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK};

constexpr NativeKey Keys[] = {{VK_TAB, Key::Tab},
                              {VK_RETURN, Key::Enter},
                              {VK_ESCAPE, Key::Escape},
                              {VK_BACK, Key::Backspace}};

KeyStroke StrokeOf(WPARAM key) {
  const Modifiers with = {IsHeld(VK_CONTROL), IsHeld(VK_SHIFT), IsHeld(VK_MENU)};
  return StrokeOf(static_cast<int>(key), with, Keys);
}

// Below the last row, where the system would still select that row.
bool IsBelowRows(HWND widget, LPARAM at) {
  const LRESULT nearest = SendMessageW(widget, LB_ITEMFROMPOINT, 0, at);
  RECT row{0, 0, 0, MAXLONG};
  SendMessageW(widget, LB_GETITEMRECT, LOWORD(nearest), reinterpret_cast<LPARAM>(&row));
  return GET_Y_LPARAM(at) >= row.bottom;
}

SIZE ClientSize(const Form& form, int dpi) {
  return {ToPixels(form.ClientWidth, dpi), ToPixels(form.ClientHeight, dpi)};
}

}  // namespace

FormWindow::FormWindow(Form& form)
    : FormView(form), Owner(Below ? static_cast<FormWindow*>(Below)->Window : nullptr) {
  MakeWindow();
  MakeControls();
  if (!form.Menus.empty()) SetMenu(Window, MakeMenuBar());
  Dpi = DpiOf(Window);
  SetClientSize(ClientSize(Shown, Dpi));
  SetFirstPlace();
  ApplyLayout(Widgets, Dpi);
  MirrorEverything();
}

FormWindow::~FormWindow() {
  for (const ControlWidget& widget : Widgets) ReleaseWidget(widget);
  DestroyWindow(Window);
}

void FormWindow::MakeControls() {
  for (const AnyControl& any : Shown.Controls) {
    ControlWidget& made = Widgets.emplace_back(MakeControlWidget(any, Window));
    AddView({made.Shown, made.Widget, std::move(made.Mirror)});
  }
}

void FormWindow::MakeWindow() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = WindowProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hIcon = LoadIconW(windowClass.hInstance, L"Corvane");
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = L"CorvaneForm";
  RegisterClassW(&windowClass);  // fails harmlessly after the first window
  const bool fixed = Shown.BorderKind == Border::FixedDialog;
  const DWORD style =
      WS_CLIPCHILDREN | (fixed ? WS_POPUP | WS_CAPTION | WS_SYSMENU : WS_OVERLAPPEDWINDOW);
  Window = CreateWindowExW(fixed ? WS_EX_DLGMODALFRAME : 0, windowClass.lpszClassName,
                           TextToWide(Shown.Caption).c_str(), style, CW_USEDEFAULT, CW_USEDEFAULT,
                           400, 400, Owner, nullptr, windowClass.hInstance, nullptr);
  SetWindowLongPtrW(Window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HMENU FormWindow::MakeMenuBar() {
  const HMENU bar = CreateMenu();
  for (const MenuEntry* entry : Shown.Menus) {
    const HMENU menu = CreatePopupMenu();
    for (MenuItem* item : entry->Items) {
      const std::string keys = KeysOf(item->Key);
      const std::string text = item->Caption + (keys.empty() ? "" : "\t" + keys);
      Commands.push_back(item);
      AppendMenuW(menu, MF_STRING, Commands.size(), TextToWide(text).c_str());
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu),
                TextToWide(entry->Caption).c_str());
  }
  return bar;
}

void FormWindow::SetClientSize(SIZE client) {
  for (int pass = 0; pass < 2; ++pass) {  // a new width may wrap the menu bar differently
    const SIZE whole = WholeSize(Window, client);
    SetWindowPos(Window, nullptr, 0, 0, whole.cx, whole.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

// At the form's preferred place, if any, but always on the screen.
void FormWindow::SetFirstPlace() {
  auto [whole, client] = std::pair(PlacesOf(Window).rcWindow, PlacesOf(Window).rcClient);
  if (Shown.ClientAt) {
    OffsetRect(&whole, ToPixels(Shown.ClientAt->Left, Dpi) - client.left,
               ToPixels(Shown.ClientAt->Top, Dpi) - client.top);
  }
  MoveOntoScreen(whole);
}

void FormWindow::MoveOntoScreen(const RECT& place) {
  const POINT at = FitOnScreen(Window, place);
  SetWindowPos(Window, nullptr, at.x, at.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Adapts to a new resolution, or to new system fonts and colours, which change the frame.
void FormWindow::ApplySettings(int dpi, const RECT* place) {
  SIZE client = SizeOf(PlacesOf(Window).rcClient);
  const SIZE usual = ClientSize(Shown, Dpi);
  const bool resized = client.cx != usual.cx || client.cy != usual.cy;
  client = resized ? SIZE{MulDiv(client.cx, dpi, Dpi), MulDiv(client.cy, dpi, Dpi)}
                   : ClientSize(Shown, dpi);
  Dpi = dpi;
  const RECT before = PlacesOf(Window).rcWindow;
  const RECT at = place ? *place : before;
  if (!IsIconic(Window) && !IsZoomed(Window)) {
    SetWindowPos(Window, nullptr, at.left, at.top, SizeOf(at).cx, SizeOf(at).cy,
                 SWP_FRAMECHANGED | SWP_NOZORDER | SWP_NOACTIVATE);
    SetClientSize(client);
    const RECT now = PlacesOf(Window).rcWindow;
    if (!EqualRect(&now, &before)) MoveOntoScreen(now);
  }
  ApplyLayout(Widgets, Dpi);
  MirrorEverything();
  RedrawWindow(Window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void FormWindow::Run() {
  EnableWindow(Owner, FALSE);
  ShowWindow(Window, Owner ? SW_SHOW : SW_SHOWDEFAULT);
  MSG message;
  while (Running && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!PreTranslate(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    // Other programs, e.g. screen readers, can also move the native focus.
    if (Control* now = ControlOf(GetFocus())) FollowFocus(*now);
  }
  Close();
}

void FormWindow::Close() {
  EnableWindow(Owner, TRUE);  // before hiding, which activates another window
  ShowWindow(Window, SW_HIDE);
  Running = false;
  PostMessageW(Window, WM_NULL, 0, 0);  // wakes the loop
}

HWND FormWindow::Top() {
  const FormView* top = FormView::Top();
  return top ? static_cast<const FormWindow*>(top)->Window : nullptr;
}

void FormWindow::MirrorFocus(void* widget) {
  const HWND wanted = widget ? static_cast<HWND>(widget) : Window;
  if (GetActiveWindow() == Window && GetFocus() != wanted) SetFocus(wanted);
}

LRESULT FormWindow::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!form) return DefWindowProcW(window, message, wParam, lParam);  // still in CreateWindowExW
  return form->OnMessage(message, wParam, lParam);
}

LRESULT FormWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_DRAWITEM:
      OnDrawRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_INITMENUPOPUP:
      if (HIWORD(lParam) == 0) OnMenuDrop(reinterpret_cast<HMENU>(wParam), LOWORD(lParam));
      return 0;
    case WM_SETFOCUS:
      ShowChanges();
      return 0;
    case WM_DPICHANGED:
      ApplySettings(HIWORD(wParam), reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_SYSCOLORCHANGE:
      for (const ControlWidget& widget : Widgets) SendMessageW(widget.Widget, message, 0, 0);
      [[fallthrough]];
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      ApplySettings(Dpi);
      return 0;
    case WM_CLOSE:  // the form decides whether the window closes
      CloseWindow(Shown);
      return 0;
    case WM_QUERYENDSESSION:
      return OnQueryEndSession();
    case WM_ENDSESSION:
      if (wParam) EndProgram();
      return 0;
    default:
      return DefWindowProcW(Window, message, wParam, lParam);
  }
}

void FormWindow::OnCommand(WORD command, WORD code, HWND from) {
  const auto widget = std::ranges::find(Widgets, from, &ControlWidget::Widget);
  if (from && widget != Widgets.end()) return widget->OnNotify(code);
  if (from || command == 0 || command > Commands.size()) return;
  Choose(*Commands[command - 1U]);
}

void FormWindow::OnDrawRow(const DRAWITEMSTRUCT& row) {
  const auto widget = std::ranges::find(Widgets, row.hwndItem, &ControlWidget::Widget);
  if (widget != Widgets.end()) widget->DrawRow(row);
}

void FormWindow::OnMenuDrop(HMENU menu, WORD entry) {
  if (entry >= Shown.Menus.size()) return;
  OpenMenu(*Shown.Menus[entry]);
  for (UINT at = 0; const MenuItem* item : Shown.Menus[entry]->Items) {
    EnableMenuItem(menu, at++, MF_BYPOSITION | (item->Enabled ? MF_ENABLED : MF_GRAYED));
  }
}

// The system asks every window; the main window answers for all.
LRESULT FormWindow::OnQueryEndSession() {
  if (Below) return TRUE;
  ShutdownBlockReasonCreate(Window, TextToWide(EndSessionReason).c_str());
  const bool agreed = QueryEndSession();
  ShutdownBlockReasonDestroy(Window);
  return agreed;
}

bool FormWindow::PreTranslate(MSG& message) {
  if (message.hwnd != Window && !IsChild(Window, message.hwnd)) return false;
  if (std::ranges::count(Presses, message.message) > 0) return RefusesPress(message);
  switch (message.message) {
    case WM_MOUSEWHEEL:
      return RefusesWheel(message);
    case WM_RBUTTONUP:  // after a refused press, an edit would take the focus for its menu
      return ControlOf(message.hwnd) && message.hwnd != GetFocus();
    case WM_KEYDOWN:
      return HandleKey(message);
    case WM_SYSKEYDOWN:
      // The system must see that a key came with Alt, or releasing Alt would open the menu.
      return message.wParam == VK_BACK && HandleKey(message) &&
             DefWindowProcW(Window, message.message, message.wParam, message.lParam) == 0;
    case WM_SYSCHAR:
      return message.wParam < 0x80 &&
             PressKey(Shown, {static_cast<char>(message.wParam), {.Alt = true}});
    case WM_CHAR:
      return message.wParam == 0x7F;  // Ctrl+Backspace would type a box character
    default:
      return false;
  }
}

// Runs before any control reacts to the press.
bool FormWindow::RefusesPress(const MSG& press) {
  Control* pressed = ControlOf(press.hwnd);
  if (!AllowPress(Shown, pressed)) return true;
  const bool list = dynamic_cast<ListBox*>(pressed) && press.message >= WM_MOUSEFIRST;
  return list && IsBelowRows(press.hwnd, press.lParam);
}

// Whether the list of the focused combo box is open.
bool FormWindow::IsListOpen() const {
  const HWND focused = GetFocus();
  return dynamic_cast<ComboBox*>(ControlOf(focused)) &&
         SendMessageW(focused, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

bool FormWindow::HandleKey(const MSG& key) {
  if (IsListOpen() && key.wParam != VK_TAB) return false;
  return PressKey(Shown, StrokeOf(key.wParam));
}

// The wheel goes to the widget under the pointer, but never to another program, which may not
// respond.
bool FormWindow::RefusesWheel(MSG& turn) const {
  if (IsListOpen()) return false;
  turn.hwnd = WindowFromPoint({GET_X_LPARAM(turn.lParam), GET_Y_LPARAM(turn.lParam)});
  return !AllowWheel(Shown, ControlOf(turn.hwnd));
}

}  // namespace corvane
