#include "Widgets.h"

#include "Fonts.h"
#include "base/WideText.h"
#include "services/Pixels.h"

namespace corvane {

bool IsHeld(int key) { return GetKeyState(key) < 0; }

LRESULT Send(HWND widget, UINT message, LRESULT wParam, const void* lParam) {
  return SendMessageW(widget, message, static_cast<WPARAM>(wParam),
                      reinterpret_cast<LPARAM>(lParam));
}

HWND MakeWidget(const Control& control, HWND parent, const wchar_t* className, DWORD style,
                DWORD extended) {
  const auto number = reinterpret_cast<HMENU>(INT_PTR{control.TabIndex});
  return CreateWindowExW(extended, className, TextToWide(control.Caption).c_str(),
                         WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0, parent, number,
                         GetModuleHandleW(nullptr), nullptr);
}

SIZE SizeOf(const RECT& place) { return {place.right - place.left, place.bottom - place.top}; }

SIZE SizeOf(HWND widget) { return SizeOf(PlacesOf(widget).rcWindow); }

WINDOWINFO PlacesOf(HWND window) {
  WINDOWINFO places{};
  places.cbSize = sizeof places;
  GetWindowInfo(window, &places);
  return places;
}

SIZE WholeSize(HWND window, SIZE client) {
  const WINDOWINFO now = PlacesOf(window);
  const SIZE whole = SizeOf(now.rcWindow), inner = SizeOf(now.rcClient);
  return {client.cx + whole.cx - inner.cx, client.cy + whole.cy - inner.cy};
}

Range SelectionOf(HWND edit) {
  Range range;
  SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&range.Start),
               reinterpret_cast<LPARAM>(&range.End));
  return range;
}

POINT FitOnScreen(HWND other, const RECT& window) {
  const auto place = [](const RECT& at) {
    const SIZE size = SizeOf(at);
    return Place{int{at.left}, int{at.top}, int{size.cx}, int{size.cy}};
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

RECT PlaceInParent(HWND widget) {
  RECT place = PlacesOf(widget).rcWindow;
  MapWindowPoints(nullptr, GetParent(widget), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

}  // namespace corvane
