#include <windows.h>

#include <algorithm>
#include <map>
#include <utility>

#include "AccessibleText.h"
#include "Driver.h"
#include "base/WideText.h"
#include "services/Program.h"
#include "services/TextEditing.h"

namespace corvane {
namespace {

// The user and the program take turns on one thread, each on a fiber: the user acts whenever the
// program is idle, even in one of the system's loops.
void *UserFiber, *ProgramFiber;
const std::function<void()>* Script;
std::function<void()> AtNext;
HWND BeforeNext;
const Form* Played;

struct AccessibleText {
  std::string Name, Description;
};
std::map<HWND, AccessibleText> Accessible;

void CALLBACK Act(HWND, UINT, UINT_PTR, DWORD) { SwitchToFiber(UserFiber); }

void LetProgramReact() {
  do SwitchToFiber(ProgramFiber);
  while (AtNext && !IsWindowVisible(GetActiveWindow()));  // wait for the next window
  if (AtNext && GetActiveWindow() != BeforeNext) std::exchange(AtNext, nullptr)();
}

void CALLBACK RunUser(void*) {
  LetProgramReact();
  (*Script)();
  Script = nullptr;
  EndProgram();
  for (;;) SwitchToFiber(ProgramFiber);
}

constexpr DWORD Press = MOUSEEVENTF_LEFTDOWN | MOUSEEVENTF_LEFTUP;

void Mouse(const RECT& at, std::initializer_list<DWORD> acts, int turn = 0) {
  static int aside = 0;
  aside = (aside + 12) % 36;                     // moved, or two clicks would make a double click
  const auto share = [](LONG twice, int side) {  // of 65536 across the screen
    return static_cast<DWORD>(MulDiv(twice + 1, 32768, GetSystemMetrics(side)));
  };
  for (const DWORD act : acts) {
    mouse_event(act | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE,
                share(at.left + at.right + aside, SM_CXSCREEN),
                share(at.top + at.bottom, SM_CYSCREEN), static_cast<DWORD>(turn), 0);
  }
  LetProgramReact();
}

void SendKey(const std::string& key, DWORD how) {
  static const std::map<std::string, int> keys = {
      {"Tab", VK_TAB},        {"Return", VK_RETURN}, {"Esc", VK_ESCAPE},   {"Space", VK_SPACE},
      {"End", VK_END},        {"Home", VK_HOME},     {"Up", VK_UP},        {"Down", VK_DOWN},
      {"F4", VK_F4},          {"Shift", VK_SHIFT},   {"Ctrl", VK_CONTROL}, {"Alt", VK_MENU},
      {"Backspace", VK_BACK}, {"PageUp", VK_PRIOR},  {"PageDown", VK_NEXT}};
  const auto known = keys.find(key);
  keybd_event(static_cast<BYTE>(known == keys.end() ? key[0] : known->second), 0, how, 0);
}

std::string TextOf(HWND window) {
  wchar_t text[10000]{};
  GetWindowTextW(window, text, 10000);
  return WithLineBreaks(WideToText(text), "\n");
}

HWND Top() {  // only windows that show a form
  constexpr ULONG_PTR Dialog = 32770;
  const HWND top = GetActiveWindow();
  return GetClassLongPtrW(top, GCW_ATOM) == Dialog ? GetWindow(top, GW_OWNER) : top;
}

HWND WindowOf(const Form& form) { return FindWindowW(nullptr, TextToWide(form.Caption).c_str()); }

HWND Find(const Control& control) { return GetDlgItem(Top(), control.TabIndex); }

RECT PlaceOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

RECT CornerOf(HWND window) {
  const RECT place = PlaceOf(window);
  return {place.right - 24, place.bottom - 16, place.right - 6, place.bottom - 8};
}

RECT PlaceOf(const ListBox& list, int row) {
  RECT place{};
  SendMessageW(Find(list), LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&place));
  OffsetRect(&place, 0, row * (place.bottom - place.top));
  MapWindowPoints(Find(list), nullptr, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

template <class Entry>
UINT PlaceIn(const std::vector<Entry*>& entries, const Entry& entry) {
  return static_cast<UINT>(std::ranges::find(entries, &entry) - entries.begin());
}

HMENU MenuOf(const MenuEntry& entry) {
  return GetSubMenu(GetMenu(Top()), static_cast<int>(PlaceIn(entry.Owner.Menus, entry)));
}

}  // namespace

// These replace the display's functions, because texts given to the system cannot be read back.
void SetAccessibleName(HWND window, const std::wstring& name) {
  Accessible[window].Name = WideToText(name);
}
void SetAccessibleDescription(HWND window, const std::wstring& description) {
  Accessible[window].Description = WithLineBreaks(WideToText(description), "\n");
}
void ClearAccessibleText(HWND window) { Accessible.erase(window); }

int Play(Form& form, const std::function<void()>& script) {
  Script = &script, Played = &form;
  ProgramFiber = ConvertThreadToFiber(nullptr), UserFiber = CreateFiber(0, RunUser, nullptr);
  const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Act);  // fires after all input
  const int status = RunProgram(0, nullptr, form);
  KillTimer(nullptr, timer);
  while (Script) SwitchToFiber(UserFiber);  // the program may end during the script
  DeleteFiber(UserFiber);
  ConvertFiberToThread();
  return Accessible.empty() ? status : 1;  // a new window with the handle would inherit the name
}

void WhenNext(const std::function<void()>& then) { AtNext = then, BeforeNext = GetActiveWindow(); }
void PressAt(const Control& control) { Mouse(PlaceOf(Find(control)), {Press}); }
void ClickEmptyArea() { Mouse(CornerOf(Top()), {Press}); }

void PressRow(const ListBox& list, int row, bool ctrl) {
  if (ctrl) SendKey("Ctrl", 0);
  Mouse(PlaceOf(list, row), {Press});
  if (ctrl) SendKey("Ctrl", KEYEVENTF_KEYUP);
}
void DoubleClickRow(const ListBox& list, int row) { Mouse(PlaceOf(list, row), {Press, Press}); }
void PressScrollBar(const ListBox& list) { Mouse(CornerOf(Find(list)), {Press}); }

void Type(const std::string& text) {
  for (const wchar_t letter : TextToWide(text)) {
    PostMessageW(GetFocus(), WM_CHAR, letter, 0);
    LetProgramReact();
  }
}

void PressKey(const std::string& key) {
  const std::size_t plus = key.find('+');
  SendKey(key.substr(0, plus), 0);
  if (plus != key.npos) PressKey(key.substr(plus + 1));
  SendKey(key.substr(0, plus), KEYEVENTF_KEYUP);
  LetProgramReact();
}

void TurnWheel(const Control& control) {
  Mouse(PlaceOf(Find(control)), {MOUSEEVENTF_WHEEL}, -WHEEL_DELTA);
}

void PressMenu(const MenuEntry& entry) {
  RECT place{};
  GetMenuItemRect(Top(), GetMenu(Top()), PlaceIn(entry.Owner.Menus, entry), &place);
  Mouse(place, {Press});
}

void PressItem(const MenuItem& item) {
  RECT at{};
  GetMenuItemRect(nullptr, MenuOf(item.Under), PlaceIn(item.Under.Items, item), &at);
  Mouse(at, {Press});
}
void PressCloseBox() { PressKey("Alt+F4"); }

void CloseFromOutside(const Form& form) {
  PostMessageW(WindowOf(form), WM_CLOSE, 0, 0);
  LetProgramReact();
}

void ChooseFromOutside(const MenuItem& item) {
  WPARAM command = 0;
  for (const MenuEntry* menu : item.Under.Owner.Menus) {
    for (const MenuItem* each : menu->Items) {
      ++command;
      if (each == &item) PostMessageW(WindowOf(item.Under.Owner), WM_COMMAND, command, 0);
    }
  }
  LetProgramReact();
}

void ClickFromOutside(const Button& button) {
  PostMessageW(GetDlgItem(WindowOf(button.Owner), button.TabIndex), BM_CLICK, 0, 0);
  LetProgramReact();
}

void FillFromOutside(const TextBox& box, const std::string& text) {
  SetDlgItemTextW(WindowOf(box.Owner), box.TabIndex, TextToWide(text).c_str());
  LetProgramReact();
}

void EndSessionFromOutside() {
  const HWND window = WindowOf(*Played);
  if (SendMessageW(window, WM_QUERYENDSESSION, 0, 0)) SendMessageW(window, WM_ENDSESSION, TRUE, 0);
}

ShownMessage SeenMessage() {
  const HWND box = GetActiveWindow();
  const RECT screen = PlaceOf(GetDesktopWindow());
  RECT all = PlaceOf(box);
  ShownMessage seen{TextOf(box), "", "", Accessible[box].Description, false};
  for (HWND part = GetWindow(box, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
    const bool button = (SendMessageW(part, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
    const RECT place = PlaceOf(part);
    if (!IsWindowVisible(part)) continue;
    UnionRect(&all, &all, &place);
    (button ? seen.Buttons : seen.Text) += TextOf(part) + (button ? " " : "");
  }
  std::erase(seen.Buttons, '&');
  seen.OnScreen = UnionRect(&all, &all, &screen) && EqualRect(&all, &screen);
  return seen;
}

std::string SeenSelection(const TextBox& box) {
  DWORD start = 0, end = 0;
  SendMessageW(Find(box), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
               reinterpret_cast<LPARAM>(&end));
  return TextOf(Find(box)).substr(start, end - start);
}

ControlState SeenState(const Control& control) {
  const HWND widget = Find(control);
  ControlState state{.Text = TextOf(widget),
                     .AccessibleName = Accessible[widget].Name,
                     .Enabled = IsWindowEnabled(widget) != 0,
                     .Visible = (GetWindowLongW(widget, GWL_STYLE) & WS_VISIBLE) != 0};
  const bool list = dynamic_cast<const ListBox*>(&control) != nullptr;
  if (!list && !dynamic_cast<const ComboBox*>(&control)) return state;
  const auto ask = [&](UINT ofList, UINT ofCombo, LRESULT row = 0, wchar_t* text = nullptr) {
    return SendMessageW(widget, list ? ofList : ofCombo, static_cast<WPARAM>(row),
                        reinterpret_cast<LPARAM>(text));
  };
  for (LRESULT row = 0; row < ask(LB_GETCOUNT, CB_GETCOUNT); ++row) {
    wchar_t text[300]{};
    ask(LB_GETTEXT, CB_GETLBTEXT, row, text);
    state.Rows.push_back(WideToText(text));
  }
  state.Selected = static_cast<int>(ask(LB_GETCURSEL, CB_GETCURSEL));
  if (list)
    state.Text = state.Selected < 0 ? "" : state.Rows[static_cast<std::size_t>(state.Selected)];
  return state;
}

bool SeenEnabled(const MenuItem& item) {
  const UINT place = PlaceIn(item.Under.Items, item);
  return (GetMenuState(MenuOf(item.Under), place, MF_BYPOSITION) & MF_GRAYED) == 0;
}

bool SeenPopup() {
  GUITHREADINFO state{};
  state.cbSize = sizeof state;
  GetGUIThreadInfo(GetCurrentThreadId(), &state);
  return state.hwndMenuOwner || SendMessageW(GetFocus(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

std::string SeenFocus() {
  for (const Control* control : Played->TabOrder()) {
    if (control->TabIndex == GetDlgCtrlID(GetFocus())) return control->Name;
  }
  return "";
}

}  // namespace corvane
