#include "ControlWidgets.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "AccessibleText.h"
#include "Fonts.h"
#include "base/WideText.h"
#include "services/FormView.h"
#include "services/Gestures.h"

namespace corvane {
namespace {

LRESULT Send(HWND widget, UINT message, LRESULT first = 0, const void* second = nullptr) {
  return SendMessageW(widget, message, static_cast<WPARAM>(first),
                      reinterpret_cast<LPARAM>(second));
}

HWND MakeWidget(const Control& control, HWND parent, const wchar_t* kind, DWORD style,
                DWORD extended = 0) {
  const auto number = reinterpret_cast<HMENU>(INT_PTR{control.TabIndex});
  return CreateWindowExW(extended, kind, TextToWide(control.Caption).c_str(),
                         WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, parent, number,
                         GetModuleHandleW(nullptr), nullptr);
}

SIZE SizeOf(HWND widget) {
  RECT place{};
  GetWindowRect(widget, &place);
  return {place.right - place.left, place.bottom - place.top};
}

HFONT FontOf(HWND widget) {
  return reinterpret_cast<HFONT>(SendMessageW(widget, WM_GETFONT, 0, 0));
}

void SetFontOf(HWND widget, HFONT font) {
  if (FontOf(widget) != font)
    SendMessageW(widget, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void SetUsualFont(HWND widget, int dpi) { SetFontOf(widget, ControlFont(dpi)); }

// The caption, in several lines if need be, is whole on the widget.
void FitCaption(HWND widget, const Control& control, int dpi) {
  const SIZE room = SizeOf(widget);
  const std::wstring caption = TextToWide(control.Caption);
  SetFontOf(widget, ShrinkToFit(ControlFont(dpi), [&](HFONT font) {
              const SIZE needed = MeasureText(caption, font, room.cx);
              return needed.cx <= room.cx && needed.cy <= room.cy;
            }));
}

std::wstring TextOf(HWND edit) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(edit)), L'\0');
  GetWindowTextW(edit, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

std::wstring Held(const TextBox& box, int most = INT_MAX) {
  return TextToWide(ShownText(box, "\r\n", most));
}

void MirrorText(HWND edit, TextBox& box) {
  const bool differs = TextOf(edit) != Held(box);
  const LRESULT scrolled = box.MultiLine ? Send(edit, EM_GETFIRSTVISIBLELINE) : 0;
  if (differs) SetWindowTextW(edit, Held(box).c_str());
  if (differs) SendMessageW(edit, EM_LINESCROLL, 0, scrolled);
  if (!std::exchange(box.SelectionSet, false) && !differs) return;
  const std::size_t start = Held(box, box.SelStart).size();
  const std::size_t end = Held(box, box.SelStart + box.SelLength).size();
  SendMessageW(edit, EM_SETSEL, start, static_cast<LPARAM>(end));
}

void ReportText(HWND edit, TextBox& box) {
  const std::wstring held = TextOf(edit);
  if (held == Held(box)) return;
  DWORD caret = 0;
  SendMessageW(edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  const std::string before = WideToText(held.substr(0, caret));
  EditText(box, FindEdit(box, WideToText(held), before));
}

int LineTopOf(HWND edit) {
  RECT text{}, client{};
  SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
  GetClientRect(edit, &client);
  return static_cast<int>((SizeOf(edit).cy - client.bottom) / 2 + text.top);
}

ControlWidget Make(TextBox& box, HWND parent) {
  const DWORD style = box.MultiLine ? ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
  const HWND edit = MakeWidget(box, parent, WC_EDITW, style | WS_TABSTOP, WS_EX_CLIENTEDGE);
  Send(edit, EM_SETLIMITTEXT);  // none: the typed limit is the form's
  ControlWidget made = {.Shown = &box,
                        .Widget = edit,
                        .Mirror = [&box, edit] { MirrorText(edit, box); },
                        .Notice =
                            [&box, edit](int code) {
                              if (code == EN_CHANGE) ReportText(edit, box);
                            },
                        .SetFont = [edit](int dpi) { SetUsualFont(edit, dpi); }};
  if (!box.MultiLine) made.LineTop = [edit] { return LineTopOf(edit); };
  return made;
}

ControlWidget Make(Label& label, HWND parent) {
  constexpr DWORD alignments[] = {SS_LEFT, SS_RIGHT, SS_CENTER};
  const HWND widget =
      MakeWidget(label, parent, WC_STATICW, alignments[static_cast<std::size_t>(label.Align)]);
  return {
      .Shown = &label, .Widget = widget, .In = Layer::Labels, .SetFont = [&label, widget](int dpi) {
        FitCaption(widget, label, dpi);
      }};
}

// It leaves its ground to the window, which does not draw below its children.
LRESULT CALLBACK FrameProc(HWND frame, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                           DWORD_PTR) {
  if (message != WM_ERASEBKGND) return DefSubclassProc(frame, message, first, second);
  RECT all{};
  GetClientRect(frame, &all);
  FillRect(reinterpret_cast<HDC>(first), &all, GetSysColorBrush(COLOR_BTNFACE));
  return TRUE;
}

ControlWidget Make(Frame& frame, HWND parent) {
  const HWND widget = MakeWidget(frame, parent, WC_BUTTONW, BS_GROUPBOX);
  SetWindowSubclass(widget, FrameProc, 0, 0);
  return {.Shown = &frame, .Widget = widget, .In = Layer::Frames, .SetFont = [widget](int dpi) {
            SetUsualFont(widget, dpi);
          }};
}

ControlWidget Make(Button& button, HWND parent) {
  const bool isDefault = button.Owner.EnterButton == &button;  // its look; Enter is a gesture
  const DWORD style = WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
  const HWND widget = MakeWidget(button, parent, WC_BUTTONW, style);
  return {.Shown = &button,
          .Widget = widget,
          .Notice =
              [&button](int code) {
                if (code == BN_CLICKED) Press(button);
              },
          .SetFont = [&button, widget](int dpi) { FitCaption(widget, button, dpi); }};
}

COMBOBOXINFO PartsOf(HWND combo) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(combo, &parts);
  return parts;
}

// The two kinds of list know the same messages under different numbers.
struct RowMessages {
  UINT Count, Length, Text, Delete, Insert, Index, Select, Widen;
  int Bar;             // whose width comes beside the rows
  HWND (*Rows)(HWND);  // the window that draws them
};
const RowMessages OfListBox = {LB_GETCOUNT,     LB_GETTEXTLEN,
                               LB_GETTEXT,      LB_DELETESTRING,
                               LB_INSERTSTRING, LB_GETCURSEL,
                               LB_SETCURSEL,    LB_SETHORIZONTALEXTENT,
                               SM_CXEDGE,       [](HWND list) { return list; }};
const RowMessages OfComboBox = {
    CB_GETCOUNT,     CB_GETLBTEXTLEN,
    CB_GETLBTEXT,    CB_DELETESTRING,
    CB_INSERTSTRING, CB_GETCURSEL,
    CB_SETCURSEL,    CB_SETDROPPEDWIDTH,
    SM_CXVSCROLL,    [](HWND combo) { return PartsOf(combo).hwndList; }};

bool HoldsRow(HWND widget, const RowMessages& of, int row, const std::wstring& text) {
  if (Send(widget, of.Length, row) != static_cast<LRESULT>(text.size())) return false;
  std::wstring held = text;
  Send(widget, of.Text, row, held.data());
  return held == text;
}

void MirrorRows(HWND widget, const RowMessages& of, const RowControl& list) {
  const HFONT font = FontOf(of.Rows(widget));
  LONG width = 0;
  Send(widget, WM_SETREDRAW, FALSE);
  while (Send(widget, of.Count) > list.ListCount()) Send(widget, of.Delete, list.ListCount());
  for (int row = 0; row < list.ListCount(); ++row) {
    const std::wstring text = TextToWide(list.List(row));
    width = std::max(width, MeasureText(text, font).cx);
    if (HoldsRow(widget, of, row, text)) continue;
    if (row < Send(widget, of.Count)) Send(widget, of.Delete, row);
    Send(widget, of.Insert, row, text.c_str());
  }
  Send(widget, of.Widen, width + GetSystemMetrics(of.Bar));
  Send(widget, WM_SETREDRAW, TRUE);
  if (Send(widget, of.Index) != list.ListIndex()) Send(widget, of.Select, list.ListIndex());
}

ControlWidget Make(ListBox& list, HWND parent) {
  const DWORD style = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
  const HWND widget = MakeWidget(list, parent, WC_LISTBOXW, style, WS_EX_CLIENTEDGE);
  return {.Shown = &list,
          .Widget = widget,
          .Mirror = [&list, widget] { MirrorRows(widget, OfListBox, list); },
          .Notice =
              [&list, widget](int code) {
                const auto row = static_cast<int>(Send(widget, LB_GETCURSEL));
                if (code == LBN_SELCHANGE) PickRow(list, row);
                if (code == LBN_DBLCLK) DoubleClick(list, row);
              },
          .SetFont = [widget](int dpi) { SetUsualFont(widget, dpi); }};
}

constexpr WPARAM Field = static_cast<WPARAM>(-1);  // of a combo box, against its rows

// A combo box takes its height from the field's, and that from the font.
void KeepHeight(HWND combo, LONG height) {
  const LRESULT field = SendMessageW(combo, CB_GETITEMHEIGHT, Field, 0);
  const LONG edges = SizeOf(combo).cy - static_cast<LONG>(field);
  SendMessageW(combo, CB_SETITEMHEIGHT, Field, height - edges);
}

// The font of the field; the rows that drop keep theirs, which is the usual one.
void SetFieldFont(HWND combo, HFONT font) {
  if (FontOf(combo) == font) return;
  const LONG height = SizeOf(combo).cy;
  const HWND rows = PartsOf(combo).hwndList;
  const HFONT usual = FontOf(rows);
  SetFontOf(combo, font);
  SetFontOf(rows, usual);
  KeepHeight(combo, height);
}

void SetComboFont(HWND combo, int dpi, LONG height) {
  const HFONT font = ControlFont(dpi);
  SetFontOf(combo, font);
  SetFontOf(PartsOf(combo).hwndList, font);
  SendMessageW(combo, CB_SETITEMHEIGHT, 0, MetricsOf(font).tmHeight);
  KeepHeight(combo, height);
}

void FitField(HWND combo, const std::wstring& text) {
  constexpr LONG Margins = 2;  // that the system leaves beside the text, in pixels
  const COMBOBOXINFO parts = PartsOf(combo);
  const LONG room = parts.rcItem.right - parts.rcItem.left - Margins;
  SetFieldFont(combo, ShrinkToFit(FontOf(parts.hwndList),
                                  [&](HFONT font) { return MeasureText(text, font).cx <= room; }));
}

ControlWidget Make(ComboBox& combo, HWND parent) {
  const DWORD style = CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP;
  const HWND widget = MakeWidget(combo, parent, WC_COMBOBOXW, style);
  return {
      .Shown = &combo,
      .Widget = widget,
      .Mirror =
          [&combo, widget] {
            MirrorRows(widget, OfComboBox, combo);
            if (!Send(widget, CB_GETDROPPEDSTATE)) FitField(widget, TextToWide(combo.Text()));
          },
      .Notice =
          [&combo, widget](int code) {
            const auto row = static_cast<int>(Send(widget, CB_GETCURSEL));
            // An arrow key in rows that have dropped is not yet a choice, and may be taken
            // back.
            if (code == CBN_SELENDOK) PickRow(combo, row);
            if (code != CBN_CLOSEUP) return;
            combo.Redraw();
            ShowChanges();
          },
      .SetFont = [&combo,
                  widget](int dpi) { SetComboFont(widget, dpi, ToPixels(combo.At.Height, dpi)); },
      .LineTop =
          [widget] {
            const COMBOBOXINFO parts = PartsOf(widget);
            const TEXTMETRICW letter = MetricsOf(FontOf(parts.hwndList));
            return static_cast<int>(parts.rcItem.top + parts.rcItem.bottom - letter.tmHeight) / 2;
          }};
}

RECT PlaceInParent(HWND widget) {
  RECT place{};
  GetWindowRect(widget, &place);
  MapWindowPoints(nullptr, GetParent(widget), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

void PlaceWidget(const ControlWidget& widget, int dpi) {
  const Control& control = *widget.Shown;
  const Place frame = control.Parent ? control.Parent->At : Place{};
  MoveWindow(widget.Widget, ToPixels(frame.Left + control.At.Left, dpi),
             ToPixels(frame.Top + control.At.Top, dpi), ToPixels(control.At.Width, dpi),
             ToPixels(control.At.Height, dpi), TRUE);
  widget.SetFont(dpi);
}

// Has a label share its base line with the field that it stands before.
void AlignLabel(const ControlWidget& label, std::span<const ControlWidget> widgets, int dpi) {
  const Control& shown = *label.Shown;
  const auto field = std::ranges::find_if(widgets, [&](const ControlWidget& other) {
    const Control& control = *other.Shown;
    return control.Parent == shown.Parent && control.At.Top == shown.At.Top &&
           control.At.Left > shown.At.Left && other.LineTop() > 0;
  });
  if (field == widgets.end()) return;
  const LONG baseLine =
      PlaceInParent(field->Widget).top + field->LineTop() + MetricsOf(ControlFont(dpi)).tmAscent;
  SetWindowPos(label.Widget, nullptr, PlaceInParent(label.Widget).left,
               baseLine - MetricsOf(FontOf(label.Widget)).tmAscent, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// From front to back by tab index within a layer, as screen readers list them.
void ArrangeLayers(std::span<const ControlWidget> widgets) {
  std::vector<const ControlWidget*> order;
  for (const ControlWidget& widget : widgets) order.push_back(&widget);
  std::ranges::sort(order, {}, [](const ControlWidget* widget) {
    return std::pair(widget->In, widget->Shown->TabIndex);
  });
  for (const ControlWidget* widget : order) {
    SetWindowPos(widget->Widget, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

}  // namespace

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
  for (const ControlWidget& widget : widgets) widget.Mirror();
}

void ReleaseWidget(const ControlWidget& widget) { ForgetAccessibleText(widget.Widget); }

}  // namespace corvane
