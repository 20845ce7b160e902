#include "TextBoxWidget.h"

#include <commctrl.h>
#include <windowsx.h>

#include <string>

#include "Widgets.h"
#include "base/WideText.h"
#include "services/Gestures.h"
#include "services/TextEditing.h"

namespace corvane {
namespace {

std::wstring TextOf(HWND edit) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(edit)), L'\0');
  GetWindowTextW(edit, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

// The text of a box in the widget's form, or its first `max` characters.
std::wstring ShownBy(const TextBox& box, int max = INT_MAX) {
  return TextToWide(ShownText(box, "\r\n", max));
}

void MirrorText(HWND edit, TextBox& box) {
  const bool differs = TextOf(edit) != ShownBy(box);
  const LRESULT scrolled = box.MultiLine ? Send(edit, EM_GETFIRSTVISIBLELINE) : 0;
  if (differs) SetWindowTextW(edit, ShownBy(box).c_str());
  if (differs) SendMessageW(edit, EM_LINESCROLL, 0, scrolled);
  if (!TakeSelection(box, differs)) return;
  const std::size_t start = ShownBy(box, box.SelStart).size();
  const std::size_t end = ShownBy(box, box.SelStart + box.SelLength).size();
  SendMessageW(edit, EM_SETSEL, start, static_cast<LPARAM>(end));
  if (differs) Send(edit, EM_SCROLLCARET);
}

// Reports the edit that gives this text with the caret at this position.
void ReportText(TextBox& box, const std::wstring& text, std::size_t caret) {
  const std::string before = WideToText(text.substr(0, caret));
  EditText(box, FindEdit(box, WideToText(text), before));
}

void OnChange(HWND edit, TextBox& box) {
  const std::wstring text = TextOf(edit);
  if (text != ShownBy(box)) ReportText(box, text, SelectionOf(edit).Start);
}

std::wstring ClipboardText(HWND owner) {
  std::wstring text;
  if (!OpenClipboard(owner)) return text;
  const HANDLE held = GetClipboardData(CF_UNICODETEXT);
  if (const auto* letters = static_cast<const wchar_t*>(held ? GlobalLock(held) : nullptr)) {
    text.assign(letters, GlobalSize(held) / sizeof *letters);
    text.resize(std::wcslen(text.c_str()));
    GlobalUnlock(held);
  }
  CloseClipboard();
  return text;
}

// The system's paste truncates at the first line break in a one-line box, so that a wrong text
// could pass for a number.
void Paste(HWND edit, TextBox& box) {
  const std::wstring pasted = ClipboardText(edit);
  if (pasted.empty()) return;
  const Range selected = SelectionOf(edit);
  const std::wstring text = TextOf(edit);
  const std::wstring before = text.substr(0, selected.Start) + pasted;
  ReportText(box, before + text.substr(selected.End), before.size());
}

enum Command : UINT {
  UndoCommand = 1,
  RedoCommand,
  CutCommand,
  CopyCommand,
  PasteCommand,
  DeleteCommand,
  SelectAllCommand
};

HMENU MakeContextMenu(HWND edit, const TextBox& box) {
  const Range selected = SelectionOf(edit);
  const bool some = selected.Start < selected.End;
  const struct {
    Command Id;
    const wchar_t* Caption;
    bool Enabled;
  } items[] = {{UndoCommand, L"&Undo", box.History.CanUndo()},
               {RedoCommand, L"&Redo", box.History.CanRedo()},
               {CutCommand, L"Cu&t", some},
               {CopyCommand, L"&Copy", some},
               {PasteCommand, L"&Paste", IsClipboardFormatAvailable(CF_UNICODETEXT) != 0},
               {DeleteCommand, L"&Delete", some},
               {SelectAllCommand, L"Select &All", GetWindowTextLengthW(edit) > 0}};
  const HMENU menu = CreatePopupMenu();
  for (const auto& [id, caption, enabled] : items) {
    if (id == CutCommand || id == SelectAllCommand) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, enabled ? UINT{MF_STRING} : UINT{MF_GRAYED}, id, caption);
  }
  return menu;
}

void Do(HWND edit, TextBox& box, Command command) {
  switch (command) {
    case UndoCommand:
      return Undo(box);
    case RedoCommand:
      return Redo(box);
    case CutCommand:
      SendMessageW(edit, WM_CUT, 0, 0);
      return;
    case CopyCommand:
      SendMessageW(edit, WM_COPY, 0, 0);
      return;
    case PasteCommand:
      return Paste(edit, box);
    case DeleteCommand:
      SendMessageW(edit, WM_CLEAR, 0, 0);
      return;
    case SelectAllCommand:
      SendMessageW(edit, EM_SETSEL, 0, -1);
      return;
  }
}

// Replaces the system's menu, whose Undo bypasses the box's history.
void ShowContextMenu(HWND edit, TextBox& box, LPARAM pressed) {
  POINT at{GET_X_LPARAM(pressed), GET_Y_LPARAM(pressed)};
  if (pressed == -1) {  // opened by a key
    GetCaretPos(&at);
    ClientToScreen(edit, &at);
  }
  const HMENU menu = MakeContextMenu(edit, box);
  const BOOL chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x,
                                     at.y, 0, edit, nullptr);
  DestroyMenu(menu);
  if (chosen) Do(edit, box, static_cast<Command>(chosen));
}

LRESULT CALLBACK EditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                          DWORD_PTR shown) {
  auto& box = *reinterpret_cast<TextBox*>(shown);
  switch (message) {
    case WM_PASTE:
      Paste(edit, box);
      return 0;
    case WM_UNDO:
    case EM_UNDO:
      Undo(box);
      return TRUE;
    case EM_CANUNDO:
      return box.History.CanUndo();
    case WM_CONTEXTMENU:
      ShowContextMenu(edit, box, lParam);
      return 0;
    default:
      return DefSubclassProc(edit, message, wParam, lParam);
  }
}

int LineTopOf(HWND edit) {
  RECT text{}, client{};
  SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
  GetClientRect(edit, &client);
  return static_cast<int>((SizeOf(edit).cy - client.bottom) / 2 + text.top);
}

}  // namespace

ControlWidget MakeTextBoxWidget(TextBox& box, HWND parent) {
  const DWORD style = box.MultiLine ? ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
  const HWND edit = MakeWidget(box, parent, WC_EDITW, style | WS_TABSTOP, WS_EX_CLIENTEDGE);
  SetWindowSubclass(edit, EditProc, 0, reinterpret_cast<DWORD_PTR>(&box));
  Send(edit, EM_SETLIMITTEXT);  // no limit: the form limits typing
  ControlWidget made{&box, edit};
  made.Mirror = [&box, edit] { MirrorText(edit, box); };
  made.OnNotify = [&box, edit](int code) {
    if (code == EN_CHANGE) OnChange(edit, box);
  };
  if (!box.MultiLine) made.LineTop = [edit] { return LineTopOf(edit); };
  return made;
}

}  // namespace corvane
