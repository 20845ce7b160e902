#include "FormWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <map>

#include "base/WideText.h"
#include "services/Gestures.h"

namespace corvane {
namespace {

constexpr UINT Presses[] = {WM_LBUTTONDOWN,   WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                            WM_RBUTTONDBLCLK, WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK};
const std::map<WPARAM, Key> WindowKeys = {
    {VK_TAB, Key::Tab}, {VK_RETURN, Key::Enter}, {VK_ESCAPE, Key::Escape}};

bool IsHeld(int key) { return GetKeyState(key) < 0; }
bool IsDropped(HWND widget) { return SendMessageW(widget, CB_GETDROPPEDSTATE, 0, 0) != 0; }
bool HasLines(HWND widget) {
  return (SendMessageW(widget, WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS) != 0;
}

// Below the last row of a list box, where the system would take that row.
bool IsBelowRows(HWND widget, LPARAM at) {
  const LRESULT nearest = SendMessageW(widget, LB_ITEMFROMPOINT, 0, at);
  RECT row{0, 0, 0, MAXLONG};
  SendMessageW(widget, LB_GETITEMRECT, LOWORD(nearest), reinterpret_cast<LPARAM>(&row));
  return GET_Y_LPARAM(at) >= row.bottom;
}

}  // namespace

FormWindow::FormWindow(Form& form)
    : FormView(form), Owner(Below ? static_cast<FormWindow*>(Below)->Window : nullptr) {
  MakeWindow();
  for (const AnyControl& any : form.Controls) Widgets.push_back(MakeControlWidget(any, Window));
  if (!form.Menus.empty()) SetMenu(Window, MakeMenuBar());
  SetFrame();
  DressAll(DpiOf(Window));
}

void FormWindow::MakeWindow() {
  WNDCLASSW kind{};
  kind.lpfnWndProc = Receive;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hIcon = LoadIconW(kind.hInstance, L"Corvane");
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  kind.lpszClassName = L"CorvaneForm";
  RegisterClassW(&kind);  // which the first window has done
  const bool fixed = Shown.BorderKind == Border::FixedDialog;
  const DWORD style = fixed ? WS_POPUP | WS_CAPTION | WS_SYSMENU : WS_OVERLAPPEDWINDOW;
  Window = CreateWindowExW(fixed ? WS_EX_DLGMODALFRAME : 0, kind.lpszClassName,
                           TextToWide(Shown.Caption).c_str(), style, CW_USEDEFAULT, CW_USEDEFAULT,
                           400, 400, Owner, nullptr, kind.hInstance, nullptr);
  SetWindowLongPtrW(Window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HMENU FormWindow::MakeMenuBar() {
  const HMENU bar = CreateMenu();
  for (const MenuEntry* entry : Shown.Menus) {
    const HMENU menu = CreatePopupMenu();
    for (MenuItem* item : entry->Items) {
      const std::string key = item->Key == Shortcut::CtrlS ? "\tCtrl+S" : "";
      Commands.push_back(item);
      AppendMenuW(menu, MF_STRING, Commands.size(), TextToWide(item->Caption + key).c_str());
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu),
                TextToWide(entry->Caption).c_str());
  }
  return bar;
}

void FormWindow::SetFrame() {
  const auto pixels = [dpi = DpiOf(Window)](int twips) { return LONG{ToPixels(twips, dpi)}; };
  WINDOWINFO now{};
  now.cbSize = sizeof now;
  GetWindowInfo(Window, &now);
  const RECT &whole = now.rcWindow, &client = now.rcClient, screen = ScreenArea(Window);
  const LONG width =
      pixels(Shown.ClientWidth) + whole.right - client.right + client.left - whole.left;
  const LONG height =
      pixels(Shown.ClientHeight) + whole.bottom - client.bottom + client.top - whole.top;
  LONG left = whole.left, top = whole.top;
  if (Shown.ClientAt) {
    left = pixels(Shown.ClientAt->Left) + whole.left - client.left;
    top = pixels(Shown.ClientAt->Top) + whole.top - client.top;
  }
  left = std::max(screen.left, std::min(left, screen.right - width));
  top = std::max(screen.top, std::min(top, screen.bottom - height));
  MoveWindow(Window, left, top, width, height, FALSE);
}

void FormWindow::DressAll(int dpi) {
  for (const ControlWidget& widget : Widgets) Dress(widget, dpi);
}

void FormWindow::Run() {
  EnableWindow(Owner, FALSE);
  ShowWindow(Window, Owner ? SW_SHOW : SW_SHOWDEFAULT);
  MSG message;
  while (Running && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!Takes(message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    FollowFocus();
  }
  Close();
}

void FormWindow::Close() {
  EnableWindow(Owner, TRUE);  // ahead of the hiding, which makes another window active
  ShowWindow(Window, SW_HIDE);
  Running = false;
  PostMessageW(Window, WM_NULL, 0, 0);  // for the loop to see it, whatever brought us here
}

HWND FormWindow::Top() {
  const FormView* top = FormView::Top();
  return top ? static_cast<const FormWindow*>(top)->Window : nullptr;
}

void FormWindow::Mirror(const std::set<const Control*>& changed) {
  for (const ControlWidget& widget : Widgets) {
    if (changed.contains(widget.Shown)) widget.Mirror();
  }
  const auto focused = std::ranges::find(Widgets, Shown.Focused, &ControlWidget::Shown);
  const HWND wanted = focused == Widgets.end() ? Window : focused->Widget;
  if (GetActiveWindow() == Window && GetFocus() != wanted) SetFocus(wanted);
}

// Not only mouse and keyboard move the real focus: a screen reader can, too.
void FormWindow::FollowFocus() {
  const ControlWidget* now = WidgetOf(GetFocus());
  if (!now || now->Shown == Shown.Focused) return;
  static_cast<void>(Attempt([&] { return MoveFocus(*now->Shown); }));
}

const ControlWidget* FormWindow::WidgetOf(HWND window) const {
  const auto at = std::ranges::find(Widgets, window, &ControlWidget::Widget);
  return at == Widgets.end() ? nullptr : &*at;
}

LRESULT FormWindow::Receive(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const auto* at = reinterpret_cast<const RECT*>(second);
  switch (form ? message : WM_NULL) {
    case WM_COMMAND:
      form->Obey(LOWORD(first), HIWORD(first), reinterpret_cast<HWND>(second));
      return 0;
    case WM_INITMENUPOPUP:
      if (HIWORD(second) == 0) form->DropMenu(reinterpret_cast<HMENU>(first), LOWORD(second));
      return 0;
    case WM_SETFOCUS:
      MirrorAll();
      return 0;
    case WM_DPICHANGED:
      MoveWindow(window, at->left, at->top, at->right - at->left, at->bottom - at->top, TRUE);
      form->DressAll(HIWORD(first));
      return 0;
    case WM_CLOSE:  // unloading the form closes the window, or does not
      Perform([&] { CloseWindow(form->Shown); });
      return 0;
    case WM_QUERYENDSESSION:  // the session may go on for all that
      return Attempt(
          [form, cancel = false]() mutable { return form->Shown.QueryUnload(cancel), !cancel; });
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

void FormWindow::Obey(WORD command, WORD code, HWND from) {
  if (const ControlWidget* widget = WidgetOf(from)) return widget->Notice(code);
  if (from || command == 0 || command > Commands.size()) return;
  Perform([&] { Choose(*Commands[command - 1U]); });
}

void FormWindow::DropMenu(HMENU menu, WORD entry) {
  Perform([&] { OpenMenu(*Shown.Menus[entry]); });
  for (UINT at = 0; const MenuItem* item : Shown.Menus[entry]->Items) {
    EnableMenuItem(menu, at++, MF_BYPOSITION | (item->Enabled ? MF_ENABLED : MF_GRAYED));
  }
}

// Looks at a message before the widget that it is for. True: it gets nothing of it.
bool FormWindow::Takes(MSG& message) {
  if (message.hwnd != Window && !IsChild(Window, message.hwnd)) return false;
  if (std::ranges::count(Presses, message.message) > 0) return RefusesPress(message);
  if (message.message == WM_MOUSEWHEEL) return LosesWheel(message);
  // The press was refused, but an edit would take the focus for its menu.
  if (message.message == WM_RBUTTONUP) return WidgetOf(message.hwnd) && message.hwnd != GetFocus();
  if (message.message == WM_KEYDOWN) return TakesKey(message.wParam);
  if (message.message == WM_CHAR && message.wParam == 0x7F) return true;  // Ctrl+Backspace: a box
  if (message.message != WM_SYSCHAR || message.wParam > 0x7F) return false;
  return Attempt([&] { return PressMnemonic(Shown, static_cast<char>(message.wParam)); });
}

// Asks whether the focus may go to the control under a press, before anything reacts to that.
bool FormWindow::RefusesPress(const MSG& press) {
  const ControlWidget* pressed = WidgetOf(press.hwnd);
  if (!pressed) return false;
  const bool moved = Attempt([&] { return MoveFocus(*pressed->Shown); });
  return !moved || (press.message >= WM_MOUSEFIRST && IsBelowRows(press.hwnd, press.lParam));
}

bool FormWindow::TakesKey(WPARAM key) {
  const HWND focused = GetFocus();
  if (IsDropped(focused) && key != VK_TAB) return false;
  if (key == 'S' && IsHeld(VK_CONTROL) && !IsHeld(VK_SHIFT) && !IsHeld(VK_MENU)) {
    Perform([this] { PressShortcut(Shown, Shortcut::CtrlS); });
    return true;
  }
  const auto known = WindowKeys.find(key);
  const bool breaksLine = key == VK_RETURN && IsHeld(VK_CONTROL) && HasLines(focused);
  if (known == WindowKeys.end() || breaksLine) return false;
  const bool back = key == VK_TAB && IsHeld(VK_SHIFT);
  Perform([&] { PressKey(Shown, back ? Key::BackTab : known->second); });
  if (key == VK_TAB && !HasLines(GetFocus())) SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
  return true;
}

// The wheel is for what is under it. A combo box picks a row by it, even one without the focus.
bool FormWindow::LosesWheel(MSG& turn) const {
  if (IsDropped(GetFocus())) return false;
  turn.hwnd = WindowFromPoint({GET_X_LPARAM(turn.lParam), GET_Y_LPARAM(turn.lParam)});
  if (!WidgetOf(turn.hwnd)) return true;  // it may belong to a program that does not answer
  return SendMessageW(turn.hwnd, CB_GETITEMHEIGHT, 0, 0) > 0 && turn.hwnd != GetFocus();
}

}  // namespace corvane
