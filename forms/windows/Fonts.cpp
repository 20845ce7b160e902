#include "Fonts.h"

#include <map>
#include <numeric>
#include <utility>

#include "SystemFunction.h"
#include "services/Pixels.h"

namespace corvane {
namespace {

// Measures texts at the screen's colour depth: unsmoothed letters have other widths.
HDC Canvas() {
  static const HDC canvas = [] {
    const HDC screen = GetDC(nullptr);
    const HDC made = CreateCompatibleDC(screen);
    SelectObject(made, CreateCompatibleBitmap(screen, 1, 1));
    ReleaseDC(nullptr, screen);
    return made;
  }();
  return canvas;
}

// A width of 0 selects the font's own.
HFONT FontOf(int height, int width) {
  constexpr wchar_t Face[] = L"MS Shell Dlg";
  static std::map<std::pair<int, int>, HFONT> fonts;
  HFONT& font = fonts[{height, width}];
  if (!font) {
    font = CreateFontW(-height, width, 0, 0, 0, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, Face);
  }
  return font;
}

}  // namespace

HFONT ControlFont(int dpi) { return FontOf(ToPixels(FontHeight, dpi), 0); }

HFONT ShrinkToFit(HFONT font, const std::function<bool(HFONT)>& fits) {
  LOGFONTW usual{};
  GetObjectW(font, sizeof usual, &usual);
  const int height = -usual.lfHeight;
  const int lowest = height * 3 / 4;
  HFONT smaller = font;
  for (int lower = height - 1; lower >= lowest && !fits(smaller); --lower) {
    smaller = FontOf(lower, 0);
  }
  // Down to this size, smaller letters are more legible than narrow ones.
  const int usualWidth = MetricsOf(smaller).tmAveCharWidth;
  for (int width = usualWidth - 1; width > usualWidth / 2 && !fits(smaller); --width) {
    smaller = FontOf(lowest, width);
  }
  return smaller;
}

SystemFonts GetSystemFonts(int dpi) {
  using Getter = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);  // Windows 10 and later
  static const auto get = SystemFunction<Getter>(L"user32", "SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (get) {
    get(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi));
  } else {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  }
  return {metrics.lfMessageFont, metrics.lfCaptionFont};
}

SIZE MeasureText(const std::wstring& text, HFONT font, int width) {
  RECT room{0, 0, width, 0};
  SelectObject(Canvas(), font);
  DrawTextW(Canvas(), text.c_str(), -1, &room,
            DT_CALCRECT | DT_NOPREFIX | (width > 0 ? DT_WORDBREAK : 0));
  return {room.right, room.bottom};
}

std::vector<int> MeasureLetters(const std::wstring& text, HFONT font) {
  std::vector<int> widths(text.size());
  SIZE whole{};
  SelectObject(Canvas(), font);
  GetTextExtentExPointW(Canvas(), text.c_str(), static_cast<int>(text.size()), 0, nullptr,
                        widths.data(), &whole);
  std::adjacent_difference(widths.begin(), widths.end(), widths.begin());
  return widths;
}

TEXTMETRICW MetricsOf(HFONT font) {
  TEXTMETRICW metrics{};
  SelectObject(Canvas(), font);
  GetTextMetricsW(Canvas(), &metrics);
  return metrics;
}

int DpiOf(HWND window) {
  using Getter = UINT(WINAPI*)(HWND);  // Windows 10 and later
  static const auto get = SystemFunction<Getter>(L"user32", "GetDpiForWindow");
  return get ? static_cast<int>(get(window)) : GetDeviceCaps(Canvas(), LOGPIXELSX);
}

RECT WorkArea(HWND window) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
  return screen.rcWork;
}

}  // namespace corvane
