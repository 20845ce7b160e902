#include "ControlWidgets.h"

#include <commctrl.h>
#include <initguid.h>  // has the constants of the next ones defined here
#include <objbase.h>
#include <oleacc.h>

#include <algorithm>
#include <map>
#include <utility>

#include "base/WideText.h"
#include "services/FormView.h"
#include "services/Gestures.h"

namespace corvane {
namespace {

// Fonts are kept until the program ends.
HFONT FontOf(int letters) {
  constexpr wchar_t Face[] = L"MS Shell Dlg";
  static std::map<int, HFONT> fonts;
  HFONT& font = fonts[letters];
  if (!font) font = CreateFontW(-letters, 0, 0, 0, 0, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, Face);
  return font;
}

HDC Canvas() {
  static const HDC canvas = CreateCompatibleDC(nullptr);
  return canvas;
}

// Gives a widget the largest font up to the usual one that fits; a combo box keeps its height.
void FitFont(HWND widget, int dpi, const std::function<bool(int letters)>& fits) {
  const int usual = ToPixels(FontHeight, dpi);
  int letters = usual;
  while (letters > usual / 2 && !fits(letters)) --letters;
  const auto font = reinterpret_cast<WPARAM>(FontOf(letters));
  if (SendMessageW(widget, WM_GETFONT, 0, 0) == static_cast<LRESULT>(font)) return;
  const LRESULT height = SendMessageW(widget, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  SendMessageW(widget, WM_SETFONT, font, TRUE);
  SendMessageW(widget, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
}

LRESULT Send(HWND widget, UINT message, LRESULT first = 0, const void* second = nullptr) {
  return SendMessageW(widget, message, static_cast<WPARAM>(first),
                      reinterpret_cast<LPARAM>(second));
}

HWND MakeWidget(const Control& control, HWND parent, const wchar_t* kind, DWORD style,
                DWORD extended = 0) {
  const auto number = reinterpret_cast<HMENU>(INT_PTR{control.TabIndex});
  return CreateWindowExW(extended, kind, TextToWide(control.Caption).c_str(), WS_CHILD | style, 0,
                         0, 0, 0, parent, number, GetModuleHandleW(nullptr), nullptr);
}

// Gives a widget a name for screen readers, which would take a caption nearby for it.
void Announce(HWND widget, const char* name) {
  IAccPropServices* names = nullptr;
  CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                   reinterpret_cast<void**>(&names));
  if (!names) return;
  names->SetHwndPropStr(widget, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                        TextToWide(name).c_str());
  names->Release();
}

std::wstring TextOf(HWND edit) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(edit)), L'\0');
  GetWindowTextW(edit, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

std::wstring Held(const TextBox& box, int most = INT_MAX) {
  return TextToWide(ShownText(box, "\r\n", most));
}

ControlWidget Make(TextBox& box, HWND parent) {
  const DWORD style = box.MultiLine ? ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
  const HWND edit = MakeWidget(box, parent, WC_EDITW, style, WS_EX_CLIENTEDGE);
  Send(edit, EM_SETLIMITTEXT);  // none: the typed limit is the form's
  return {&box, edit,
          [&box, edit] {
            const bool differs = TextOf(edit) != Held(box);
            const LRESULT scrolled = Send(edit, EM_GETFIRSTVISIBLELINE);
            if (differs) SetWindowTextW(edit, Held(box).c_str());
            if (differs) SendMessageW(edit, EM_LINESCROLL, 0, scrolled);
            if (!std::exchange(box.SelectionSet, false) && !differs) return;
            const std::size_t start = Held(box, box.SelStart).size();
            const std::size_t end = Held(box, box.SelStart + box.SelLength).size();
            SendMessageW(edit, EM_SETSEL, start, static_cast<LPARAM>(end));
          },
          [&box, edit](int code) {
            const std::wstring held = TextOf(edit);
            if (code != EN_CHANGE || held == Held(box)) return;
            DWORD caret = 0;
            SendMessageW(edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
            const std::string before = WideToText(held.substr(0, caret));
            PerformAt(box, [&] { EditText(box, FindEdit(box, WideToText(held), before)); });
          }};
}

ControlWidget Make(Label& label, HWND parent) {
  constexpr DWORD across[] = {SS_LEFT, SS_RIGHT, SS_CENTER};
  const DWORD down = label.At.Height < 2 * FontHeight ? SS_CENTERIMAGE : 0;  // if it has one line
  const DWORD aside = across[static_cast<std::size_t>(label.Align)];
  return {&label, MakeWidget(label, parent, WC_STATICW, aside | down)};
}

ControlWidget Make(Frame& frame, HWND parent) {
  return {&frame, MakeWidget(frame, parent, WC_BUTTONW, BS_GROUPBOX)};
}

ControlWidget Make(Button& button, HWND parent) {
  const bool isDefault = button.Owner.EnterButton == &button;  // its look; Enter is a gesture
  const DWORD style = isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
  return {&button, MakeWidget(button, parent, WC_BUTTONW, style), [] {},
          [&button](int code) {
            if (code == BN_CLICKED) PerformAt(button, [&] { Press(button); });
          }};
}

// The two kinds of list know the same messages under different numbers.
struct RowMessages {
  UINT Count, Length, Text, Delete, Insert, Index, Select, Widen;
  int Bar;  // whose width comes beside the rows
};
constexpr RowMessages OfListBox = {LB_GETCOUNT,     LB_GETTEXTLEN,          LB_GETTEXT,
                                   LB_DELETESTRING, LB_INSERTSTRING,        LB_GETCURSEL,
                                   LB_SETCURSEL,    LB_SETHORIZONTALEXTENT, SM_CXEDGE};
constexpr RowMessages OfComboBox = {CB_GETCOUNT,     CB_GETLBTEXTLEN,    CB_GETLBTEXT,
                                    CB_DELETESTRING, CB_INSERTSTRING,    CB_GETCURSEL,
                                    CB_SETCURSEL,    CB_SETDROPPEDWIDTH, SM_CXVSCROLL};

bool HoldsRow(HWND widget, const RowMessages& of, int row, const std::wstring& text) {
  if (Send(widget, of.Length, row) != static_cast<LRESULT>(text.size())) return false;
  std::wstring held = text;
  Send(widget, of.Text, row, held.data());
  return held == text;
}

void MirrorRows(HWND widget, const RowMessages& of, const RowControl& list) {
  const int letters = ToPixels(FontHeight, DpiOf(widget));
  LONG width = 0;
  Send(widget, WM_SETREDRAW, FALSE);
  while (Send(widget, of.Count) > list.ListCount()) Send(widget, of.Delete, list.ListCount());
  for (int row = 0; row < list.ListCount(); ++row) {
    const std::wstring text = TextToWide(list.List(row));
    width = std::max(width, RoomFor(text, letters).cx);
    if (HoldsRow(widget, of, row, text)) continue;
    if (row < Send(widget, of.Count)) Send(widget, of.Delete, row);
    Send(widget, of.Insert, row, text.c_str());
  }
  Send(widget, of.Widen, width + GetSystemMetrics(of.Bar));
  Send(widget, WM_SETREDRAW, TRUE);
  if (Send(widget, of.Index) != list.ListIndex()) Send(widget, of.Select, list.ListIndex());
}

ControlWidget Make(ListBox& list, HWND parent) {
  const DWORD style = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL;
  const HWND widget = MakeWidget(list, parent, WC_LISTBOXW, style, WS_EX_CLIENTEDGE);
  return {&list, widget, [&list, widget] { MirrorRows(widget, OfListBox, list); },
          [&list, widget](int code) {
            const auto row = static_cast<int>(Send(widget, LB_GETCURSEL));
            if (code == LBN_SELCHANGE) PerformAt(list, [&] { PickRow(list, row); });
            if (code == LBN_DBLCLK) PerformAt(list, [&] { DoubleClick(list, row); });
          }};
}

ControlWidget Make(ComboBox& combo, HWND parent) {
  const HWND widget = MakeWidget(combo, parent, WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL);
  return {&combo, widget,
          [&combo, widget] {
            MirrorRows(widget, OfComboBox, combo);
            if (Send(widget, CB_GETDROPPEDSTATE)) return;
            COMBOBOXINFO parts{};
            parts.cbSize = sizeof parts;
            GetComboBoxInfo(widget, &parts);
            FitFont(widget, DpiOf(widget), [&, text = TextToWide(combo.Text())](int letters) {
              return RoomFor(text, letters).cx <= parts.rcItem.right - parts.rcItem.left - 2;
            });
          },
          [&combo, widget](int code) {
            const auto row = static_cast<int>(Send(widget, CB_GETCURSEL));
            // An arrow key in rows that have dropped is not yet a choice, and may be taken back.
            if (code == CBN_SELENDOK) PerformAt(combo, [&] { PickRow(combo, row); });
            if (code == CBN_CLOSEUP) PerformAt(combo, [] {});
          }};
}

}  // namespace

ControlWidget MakeControlWidget(const AnyControl& any, HWND parent) {
  ControlWidget made = std::visit([&](auto* it) { return Make(*it, parent); }, any);
  if (*made.Shown->AccessibleName) Announce(made.Widget, made.Shown->AccessibleName);
  made.Mirror = [widget = made.Widget, control = made.Shown, state = std::move(made.Mirror)] {
    state();
    EnableWindow(widget, control->Enabled());
    ShowWindow(widget, control->Visible() ? SW_SHOWNA : SW_HIDE);
  };
  return made;
}

void Dress(const ControlWidget& widget, int dpi) {
  const Control& control = *widget.Shown;
  const Place frame = control.Parent ? control.Parent->At : Place{};
  const int width = ToPixels(control.At.Width, dpi);
  const int height = ToPixels(control.At.Height, dpi);
  FitFont(widget.Widget, dpi, [&, caption = TextToWide(control.Caption)](int letters) {
    const SIZE room = RoomFor(caption, letters, width);
    return room.cx <= width && room.cy <= height;
  });
  SendMessageW(widget.Widget, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height - 6);  // its edges
  MoveWindow(widget.Widget, ToPixels(frame.Left + control.At.Left, dpi),
             ToPixels(frame.Top + control.At.Top, dpi), width, height, TRUE);
  widget.Mirror();
}

SIZE RoomFor(const std::wstring& text, int letters, int width) {
  RECT room{0, 0, width, 0};
  SelectObject(Canvas(), FontOf(letters));
  DrawTextW(Canvas(), text.c_str(), -1, &room,
            DT_CALCRECT | DT_NOPREFIX | (width > 0 ? DT_WORDBREAK : DT_SINGLELINE));
  return {room.right, room.bottom};
}

int DpiOf(HWND window) {
  using Asker = UINT(WINAPI*)(HWND);  // Windows 10 and later
  const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32"), "GetDpiForWindow");
  const auto ask = reinterpret_cast<Asker>(reinterpret_cast<void*>(found));
  return ask ? static_cast<int>(ask(window)) : GetDeviceCaps(Canvas(), LOGPIXELSX);
}

RECT ScreenArea(HWND window) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
  return screen.rcWork;
}

}  // namespace corvane
