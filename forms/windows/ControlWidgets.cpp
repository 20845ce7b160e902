#include "ControlWidgets.h"

#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "AccessibleText.h"
#include "Fonts.h"
#include "TextBoxWidget.h"
#include "Widgets.h"
#include "base/WideText.h"
#include "services/FormView.h"
#include "services/Gestures.h"
#include "services/Labels.h"
#include "services/Pixels.h"

namespace corvane {
namespace {

// Shrinks the font until the caption, wrapped if necessary, fits the widget.
void FitCaption(const ControlWidget& widget, int dpi) {
  const SIZE room = SizeOf(widget.Widget);
  const std::wstring caption = TextToWide(widget.Shown->Caption);
  SetFontOf(widget.Widget, ShrinkToFit(ControlFont(dpi), [&](HFONT font) {
              const SIZE needed = MeasureText(caption, font, room.cx);
              return needed.cx <= room.cx && needed.cy <= room.cy;
            }));
}

ControlWidget Make(TextBox& box, HWND parent) { return MakeTextBoxWidget(box, parent); }

ControlWidget Make(Label& label, HWND parent) {
  constexpr DWORD Alignments[] = {SS_LEFT, SS_RIGHT, SS_CENTER};
  const DWORD style = Alignments[static_cast<std::size_t>(label.Align)];
  ControlWidget made{&label, MakeWidget(label, parent, WC_STATICW, style)};
  made.ZOrder = Layer::Labels;
  made.SetFont = FitCaption;
  return made;
}

// Paints the frame's background: a group box leaves that to its parent, which clips its children.
LRESULT CALLBACK FrameProc(HWND frame, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                           DWORD_PTR) {
  if (message != WM_ERASEBKGND) return DefSubclassProc(frame, message, wParam, lParam);
  RECT all{};
  GetClientRect(frame, &all);
  FillRect(reinterpret_cast<HDC>(wParam), &all, GetSysColorBrush(COLOR_BTNFACE));
  return TRUE;
}

ControlWidget Make(Frame& frame, HWND parent) {
  ControlWidget made{&frame, MakeWidget(frame, parent, WC_BUTTONW, BS_GROUPBOX)};
  SetWindowSubclass(made.Widget, FrameProc, 0, 0);
  made.ZOrder = Layer::Frames;
  return made;
}

ControlWidget Make(Button& button, HWND parent) {
  const bool isDefault =
      button.Owner.EnterButton == &button;  // appearance only: Enter is a gesture
  const DWORD style = WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
  ControlWidget made{&button, MakeWidget(button, parent, WC_BUTTONW, style)};
  made.SetFont = FitCaption;
  made.OnNotify = [&button](int code) {
    if (code == BN_CLICKED) Press(button);
  };
  return made;
}

COMBOBOXINFO PartsOf(HWND combo) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(combo, &parts);
  return parts;
}

// List boxes and combo boxes have the same messages under different numbers.
struct RowMessages {
  UINT Count, Delete, Insert, Index, Select, Widen;
  int Bar;  // system metric of the width to add to the rows
};
constexpr RowMessages ListBoxMessages = {LB_GETCOUNT,  LB_DELETESTRING, LB_INSERTSTRING,
                                         LB_GETCURSEL, LB_SETCURSEL,    LB_SETHORIZONTALEXTENT,
                                         SM_CXEDGE};
constexpr RowMessages ComboBoxMessages = {CB_GETCOUNT,  CB_DELETESTRING, CB_INSERTSTRING,
                                          CB_GETCURSEL, CB_SETCURSEL,    CB_SETDROPPEDWIDTH,
                                          SM_CXVSCROLL};

LONG WidthOfRows(const RowControl& list, HFONT font) {
  LONG width = 0;
  for (const std::string& row : list.AllRows()) {
    width = std::max(width, MeasureText(TextToWide(row), font).cx);
  }
  return width;
}

std::function<void()> RowMirror(HWND widget, const RowMessages& messages, const RowControl& list) {
  const auto remove = [=](int from) {
    while (Send(widget, messages.Count) > from) Send(widget, messages.Delete, from);
  };
  const auto set = [=](int row, const std::string& text) {
    if (row < Send(widget, messages.Count)) Send(widget, messages.Delete, row);
    Send(widget, messages.Insert, row, TextToWide(text).c_str());
  };
  return [=, &list, shown = ShownRows()]() mutable {
    Send(widget, WM_SETREDRAW, FALSE);
    shown.Mirror(list, remove, set);
    Send(widget, messages.Widen,
         WidthOfRows(list, FontOf(widget)) + GetSystemMetrics(messages.Bar));
    Send(widget, WM_SETREDRAW, TRUE);
    if (Send(widget, messages.Index) != list.ListIndex())
      Send(widget, messages.Select, list.ListIndex());
  };
}

ControlWidget Make(ListBox& list, HWND parent) {
  const DWORD style = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
  const HWND widget = MakeWidget(list, parent, WC_LISTBOXW, style, WS_EX_CLIENTEDGE);
  ControlWidget made{&list, widget};
  made.Mirror = RowMirror(widget, ListBoxMessages, list);
  made.OnNotify = [&list, widget](int code) {
    const auto row = static_cast<int>(Send(widget, LB_GETCURSEL));
    if (code == LBN_SELCHANGE) PickRow(list, row);
    if (code == LBN_DBLCLK) DoubleClick(list, row);
  };
  return made;
}

// The system derives a combo box's height from that of its field plus its own edges.
void SetComboFont(const ControlWidget& combo, int dpi) {
  constexpr auto Field = static_cast<WPARAM>(-1);  // the field of a combo box, not a row
  const LONG height = ToPixels(combo.Shown->At.Height, dpi);
  const HFONT font = ControlFont(dpi);
  SetFontOf(combo.Widget, font);
  SendMessageW(combo.Widget, CB_SETITEMHEIGHT, 0, MetricsOf(font).tmHeight);
  LONG field = height;
  for (int pass = 0; pass < 2; ++pass) {
    SendMessageW(combo.Widget, CB_SETITEMHEIGHT, Field, field);
    field += height - SizeOf(combo.Widget).cy;
  }
}

// Pixels from the top of a combo box's field to the top of its letters.
LONG LetterTop(const RECT& field, HFONT font) {
  return (field.bottom - field.top - MetricsOf(font).tmHeight) / 2;
}

struct RowColours {
  int Background, Text;  // system colours
};

RowColours ColoursOf(UINT state) {
  if (state & ODS_DISABLED) return {COLOR_BTNFACE, COLOR_GRAYTEXT};
  if (state & ODS_SELECTED) return {COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT};
  return {COLOR_WINDOW, COLOR_WINDOWTEXT};
}

// Text in the field shrinks to fit; the rows of the dropdown list use the normal font.
void DrawRow(const ComboBox& combo, const DRAWITEMSTRUCT& row) {
  constexpr LONG Margin = 2;
  const RECT& at = row.rcItem;
  const bool inField = (row.itemState & ODS_COMBOBOXEDIT) != 0;
  const std::wstring text = TextToWide(combo.List(static_cast<int>(row.itemID)));
  const HFONT normal = FontOf(row.hwndItem);
  const HFONT font =
      inField ? ShrinkToFit(normal,
                            [&](HFONT tried) {
                              return MeasureText(text, tried).cx <= at.right - at.left - 2 * Margin;
                            })
              : normal;
  const RowColours colours = ColoursOf(row.itemState);
  SetBkColor(row.hDC, GetSysColor(colours.Background));
  SetTextColor(row.hDC, GetSysColor(colours.Text));
  const HGDIOBJ before = SelectObject(row.hDC, font);
  const LONG baseLine = at.top + LetterTop(at, normal) + MetricsOf(normal).tmAscent;
  ExtTextOutW(row.hDC, at.left + Margin, baseLine - MetricsOf(font).tmAscent,
              ETO_OPAQUE | ETO_CLIPPED, &at, text.c_str(), static_cast<UINT>(text.size()),
              MeasureLetters(text, font).data());
  SelectObject(row.hDC, before);
  if ((row.itemState & ODS_FOCUS) && !(row.itemState & ODS_NOFOCUSRECT))
    DrawFocusRect(row.hDC, &at);
}

// Whether the current input is a click on a row of the dropdown list or Enter.
bool PicksInRows(HWND combo) {
  if (!Send(combo, CB_GETDROPPEDSTATE)) return false;
  const DWORD at = GetMessagePos();
  const RECT rows = PlacesOf(PartsOf(combo).hwndList).rcWindow;
  const bool clicked = PtInRect(&rows, {GET_X_LPARAM(at), GET_Y_LPARAM(at)}) != 0;
  return IsHeld(VK_RETURN) || (clicked && !IsHeld(VK_F4) && !IsHeld(VK_MENU));
}

ControlWidget Make(ComboBox& combo, HWND parent) {
  const DWORD style =
      CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP;
  const HWND widget = MakeWidget(combo, parent, WC_COMBOBOXW, style);
  ControlWidget made{&combo, widget};
  made.Mirror = RowMirror(widget, ComboBoxMessages, combo);
  made.OnNotify = [&combo, widget](int code) {
    const auto row = static_cast<int>(Send(widget, CB_GETCURSEL));
    // An arrow key in the dropdown list is not yet a choice and can be cancelled. The displayed row
    // is a choice only if it is picked in that list.
    const bool chosen = row != combo.ListIndex() || PicksInRows(widget);
    if (code == CBN_SELENDOK && chosen) PickRow(combo, row);
    if (code != CBN_CLOSEUP) return;
    combo.Redraw();
    ShowChanges();
  };
  made.DrawRow = [&combo](const DRAWITEMSTRUCT& row) { DrawRow(combo, row); };
  made.SetFont = SetComboFont;
  made.LineTop = [widget] {
    const RECT field = PartsOf(widget).rcItem;
    return static_cast<int>(field.top + LetterTop(field, FontOf(widget)));
  };
  return made;
}

void PlaceWidget(const ControlWidget& widget, int dpi) {
  const Control& control = *widget.Shown;
  const Place frame = control.Parent ? control.Parent->At : Place{};
  MoveWindow(widget.Widget, ToPixels(frame.Left + control.At.Left, dpi),
             ToPixels(frame.Top + control.At.Top, dpi), ToPixels(control.At.Width, dpi),
             ToPixels(control.At.Height, dpi), TRUE);
  widget.SetFont(widget, dpi);
}

// Aligns a label's baseline with that of its field.
void AlignLabel(const ControlWidget& label, std::span<const ControlWidget> widgets, int dpi) {
  const auto* shown = dynamic_cast<const Label*>(label.Shown);
  const Control* beside = shown ? FieldBeside(*shown) : nullptr;
  const auto field = std::ranges::find(widgets, beside, &ControlWidget::Shown);
  if (field == widgets.end() || field->LineTop() == 0) return;
  const LONG baseLine =
      PlaceInParent(field->Widget).top + field->LineTop() + MetricsOf(ControlFont(dpi)).tmAscent;
  SetWindowPos(label.Widget, nullptr, PlaceInParent(label.Widget).left,
               baseLine - MetricsOf(FontOf(label.Widget)).tmAscent, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Front to back by layer, then by tab index: the order in which screen readers list them.
void ArrangeLayers(std::span<const ControlWidget> widgets) {
  std::vector<const ControlWidget*> order;
  for (const ControlWidget& widget : widgets) order.push_back(&widget);
  std::ranges::sort(order, {}, [](const ControlWidget* widget) {
    return std::pair(widget->ZOrder, widget->Shown->TabIndex);
  });
  for (const ControlWidget* widget : order) {
    SetWindowPos(widget->Widget, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

}  // namespace

void SetDefaultFont(const ControlWidget& widget, int dpi) {
  SetFontOf(widget.Widget, ControlFont(dpi));
}

ControlWidget MakeControlWidget(const AnyControl& any, HWND parent) {
  ControlWidget made = std::visit([&](auto* it) { return Make(*it, parent); }, any);
  const Control& control = *made.Shown;
  if (*control.AccessibleName) SetAccessibleName(made.Widget, TextToWide(control.AccessibleName));
  made.Mirror = [widget = made.Widget, &control, state = std::move(made.Mirror)] {
    state();
    EnableWindow(widget, control.Enabled());
    ShowWindow(widget, control.Visible() ? SW_SHOWNA : SW_HIDE);
  };
  return made;
}

void ApplyLayout(std::span<const ControlWidget> widgets, int dpi) {
  ArrangeLayers(widgets);
  for (const ControlWidget& widget : widgets) PlaceWidget(widget, dpi);
  for (const ControlWidget& widget : widgets) AlignLabel(widget, widgets, dpi);
}

void ReleaseWidget(const ControlWidget& widget) { ClearAccessibleText(widget.Widget); }

}  // namespace corvane
