// Reads the state of native windows for the tests of the Windows display.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

#include "TestForm.h"
#include "display/PlayWhole.h"

namespace corvane {

inline HWND WidgetOf(const Control& control) {
  return GetDlgItem(GetActiveWindow(), control.TabIndex);
}

inline RECT PlaceOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

inline SIZE ClientOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return {client.right, client.bottom};
}

using Pixels = std::vector<COLORREF>;

/// The pixels of a window's client area as shown on the screen.
inline Pixels PixelsOf(HWND window) {
  const SIZE size = ClientOf(window);
  const HDC screen = GetDC(window), canvas = CreateCompatibleDC(screen);
  const HBITMAP copy = CreateCompatibleBitmap(screen, size.cx, size.cy);
  const HGDIOBJ before = SelectObject(canvas, copy);
  BitBlt(canvas, 0, 0, size.cx, size.cy, screen, 0, 0, SRCCOPY);
  SelectObject(canvas, before);
  Pixels pixels(static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
  BITMAPINFO format{{sizeof format.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
  GetDIBits(canvas, copy, 0, static_cast<UINT>(size.cy), pixels.data(), &format, DIB_RGB_COLORS);
  DeleteObject(copy), DeleteDC(canvas), ReleaseDC(window, screen);
  for (COLORREF& pixel : pixels) pixel &= 0xFFFFFF;  // the fourth byte is undefined
  return pixels;
}

inline void Redraw(HWND window) {
  RedrawWindow(window, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

}  // namespace corvane
