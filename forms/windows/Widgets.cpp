#include "Widgets.h"

#include "Fonts.h"
#include "base/WideText.h"
#include "services/Pixels.h"

namespace corvane {

LRESULT Send(HWND widget, UINT message, LRESULT first, const void* second) {
  return SendMessageW(widget, message, static_cast<WPARAM>(first),
                      reinterpret_cast<LPARAM>(second));
}

HWND MakeWidget(const Control& control, HWND parent, const wchar_t* kind, DWORD style,
                DWORD extended) {
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

POINT OnScreenOf(HWND other, const RECT& window) {
  const auto place = [](const RECT& at) {
    return Place{static_cast<int>(at.left), static_cast<int>(at.top),
                 static_cast<int>(at.right - at.left), static_cast<int>(at.bottom - at.top)};
  };
  const Place moved = MoveOnto(place(WorkArea(other)), place(window));
  return {moved.Left, moved.Top};
}

HFONT FontOf(HWND widget) {
  return reinterpret_cast<HFONT>(SendMessageW(widget, WM_GETFONT, 0, 0));
}

void SetFontOf(HWND widget, HFONT font) {
  if (FontOf(widget) != font)
    SendMessageW(widget, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void SetUsualFont(HWND widget, int dpi) { SetFontOf(widget, ControlFont(dpi)); }

RECT PlaceInParent(HWND widget) {
  RECT place{};
  GetWindowRect(widget, &place);
  MapWindowPoints(nullptr, GetParent(widget), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

}  // namespace corvane
