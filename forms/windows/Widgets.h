// Operations common to all kinds of widgets.
#pragma once

#include <windows.h>

#include "services/Controls.h"

namespace corvane {

[[nodiscard]] bool IsHeld(int key);  // at the time of the current message

LRESULT Send(HWND widget, UINT message, LRESULT wParam = 0, const void* lParam = nullptr);

/// A child of a window, without place, font or state.
[[nodiscard]] HWND MakeWidget(const Control& control, HWND parent, const wchar_t* className,
                              DWORD style, DWORD extended = 0);

/// Sizes and places in pixels; those of a widget include its border.
[[nodiscard]] SIZE SizeOf(const RECT& place);
[[nodiscard]] SIZE SizeOf(HWND widget);
[[nodiscard]] RECT PlaceInParent(HWND widget);

/// The places of a window and of its client area on the screen.
[[nodiscard]] WINDOWINFO PlacesOf(HWND window);
/// The size of a window, with its frame and menu as they are, around a client area.
[[nodiscard]] SIZE WholeSize(HWND window, SIZE client);

struct Range {
  DWORD Start = 0, End = 0;
};
/// The selection of an edit control.
[[nodiscard]] Range SelectionOf(HWND edit);

/// The upper left corner at which a window fits on the screen of another one.
[[nodiscard]] POINT FitOnScreen(HWND other, const RECT& window);

[[nodiscard]] HFONT FontOf(HWND widget);
void SetFontOf(HWND widget, HFONT font);

}  // namespace corvane
