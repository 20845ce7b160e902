#include <windows.h>

#include <objbase.h>
#include <propidl.h>

#include <gdiplus.h>

#include "Driver.h"
#include "base/WideText.h"

namespace corvane {
namespace {

constexpr CLSID PngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

// The window with its frame, after painting has finished.
HBITMAP Copy(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  const int width = place.right - place.left, height = place.bottom - place.top;
  const HDC original = GetWindowDC(window);
  const HDC canvas = CreateCompatibleDC(original);
  const HBITMAP copy = CreateCompatibleBitmap(original, width, height);
  const HGDIOBJ before = SelectObject(canvas, copy);
  BitBlt(canvas, 0, 0, width, height, original, 0, 0, SRCCOPY);
  SelectObject(canvas, before);
  DeleteDC(canvas);
  ReleaseDC(window, original);
  return copy;
}

}  // namespace

bool SavePicture(const std::string& file) {
  ULONG_PTR session = 0;
  const Gdiplus::GdiplusStartupInput input;
  if (GdiplusStartup(&session, &input, nullptr) != Gdiplus::Ok) return false;
  const HBITMAP copy = Copy(GetActiveWindow());
  const bool saved =
      Gdiplus::Bitmap(copy, nullptr).Save(TextToWide(file).c_str(), &PngEncoder, nullptr) ==
      Gdiplus::Ok;
  DeleteObject(copy);
  Gdiplus::GdiplusShutdown(session);
  return saved;
}

}  // namespace corvane
