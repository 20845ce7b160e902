#include "Dialogs.h"

#include "ControlWidgets.h"
#include "base/WideText.h"
#include "services/TextEditing.h"

namespace corvane {
namespace {

// Whether the system's box, which never scrolls, surely has its text and buttons on the screen.
bool FitsScreen(const std::wstring& text, HWND owner) {
  const RECT screen = ScreenArea(owner);
  const int width = (screen.right - screen.left) / 3;
  const SIZE room = RoomFor(text, ToPixels(FontHeight, DpiOf(owner)), width);
  return room.cx <= width && room.cy <= (screen.bottom - screen.top) * 2 / 3;
}

INT_PTR CALLBACK Receive(HWND box, UINT message, WPARAM first, LPARAM second) {
  constexpr int TextOfMessage = 100;
  if (message == WM_INITDIALOG) {
    SetWindowTextW(box, TextToWide(ProgramName).c_str());
    SetDlgItemTextW(box, TextOfMessage, reinterpret_cast<const wchar_t*>(second));
    return TRUE;
  }
  if (message != WM_COMMAND || first >= TextOfMessage) return FALSE;
  EndDialog(box, static_cast<INT_PTR>(first));
  return TRUE;
}

}  // namespace

MessageAnswer ShowMessageBox(HWND owner, const std::string& text, MessageButtons buttons) {
  const bool asks = buttons == MessageButtons::YesNo;
  const std::wstring wide = TextToWide(WithLineBreaks(text, "\r\n"));
  const wchar_t* const shown = wide.c_str();
  const INT_PTR pressed =
      FitsScreen(wide, owner)
          ? MessageBoxW(owner, shown, TextToWide(ProgramName).c_str(), asks ? MB_YESNO : MB_OK)
          : DialogBoxParamW(GetModuleHandleW(nullptr), asks ? L"Question" : L"Message", owner,
                            Receive, reinterpret_cast<LPARAM>(shown));
  if (!asks) return MessageAnswer::Ok;
  return pressed == IDYES ? MessageAnswer::Yes : MessageAnswer::No;
}

}  // namespace corvane
