#include <algorithm>
#include <numeric>

#include "Screen.h"
#include "base/WideText.h"
#include "services/FormView.h"
#include "services/Pixels.h"

namespace corvane {
namespace {

// Sends the notice of a new resolution, with the place that the system suggests.
void ChangeDpi(HWND window, int dpi) {
  RECT at = PlaceOf(window);
  at.right += 37;  // the frame does not grow as the system expects
  at.bottom += 11;
  SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&at));
}

std::string ToText(SIZE size) { return std::to_string(size.cx) + "x" + std::to_string(size.cy); }

class Layout : public testing::Test {
 protected:
  void PlayAt(int dpi, const std::function<void(HWND window)>& script) {
    PlayWhole(Shown, [&] {
      if (dpi != 0) ChangeDpi(GetActiveWindow(), dpi);
      script(GetActiveWindow());
    });
  }
  TestForm Shown;
};

TEST_F(Layout, GivesTheClientAreaItsExactSizeAtEveryResolution) {
  PlayAt(0, [&](HWND window) {
    for (const int dpi : {96, 120, 144, 192, 96}) {
      ChangeDpi(window, dpi);
      const SIZE wanted{ToPixels(Shown.ClientWidth, dpi), ToPixels(Shown.ClientHeight, dpi)};
      EXPECT_EQ(ToText(ClientOf(window)), ToText(wanted)) << dpi;
    }
  });
}

TEST_F(Layout, KeepsTheClientAreaWhenTheFrameChanges) {
  PlayAt(0, [&](HWND window) {
    const SIZE before = ClientOf(window);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    NONCLIENTMETRICSW larger = metrics;
    larger.iMenuHeight += 9;
    larger.iCaptionHeight += 9;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof larger, &larger, 0);
    SendMessageW(window, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
    const SIZE after = ClientOf(window);
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    EXPECT_EQ(ToText(after), ToText(before));
  });
}

RECT ScreenOf(HWND window) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
  return screen.rcWork;
}

TEST_F(Layout, KeepsAWindowOnTheScreenThatGrew) {
  PlayAt(96, [&](HWND window) {
    const RECT screen = ScreenOf(window);
    for (const int dpi : {144, 480}) {  // at 480, the window exceeds the screen
      ChangeDpi(window, 96);
      const RECT before = PlaceOf(window);
      SetWindowPos(window, nullptr, screen.right - (before.right - before.left),
                   screen.bottom - (before.bottom - before.top), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
      ChangeDpi(window, dpi);
      const RECT place = PlaceOf(window);
      const SIZE size{place.right - place.left, place.bottom - place.top};
      EXPECT_EQ(place.left, std::max(screen.left, screen.right - size.cx)) << dpi;
      EXPECT_EQ(place.top, std::max(screen.top, screen.bottom - size.cy)) << dpi;
    }
  });
}

// Even half outside the screen, where the user moved it.
TEST_F(Layout, LeavesAWindowInItsPlaceWhenOnlyColoursChange) {
  PlayAt(96, [&](HWND window) {
    SetWindowPos(window, nullptr, -50, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SendMessageW(window, WM_SETTINGCHANGE, 0, 0);
    EXPECT_EQ(PlaceOf(window).left, -50);
    EXPECT_EQ(PlaceOf(window).top, 40);
  });
}

TEST_F(Layout, ScalesAWindowThatWasResized) {
  PlayAt(96, [&](HWND window) {
    RECT place = PlaceOf(window);
    SetWindowPos(window, nullptr, 0, 0, place.right - place.left + 40,
                 place.bottom - place.top + 20, SWP_NOMOVE | SWP_NOZORDER);
    const SIZE before = ClientOf(window);
    ChangeDpi(window, 144);
    EXPECT_EQ(ToText(ClientOf(window)), ToText({before.cx * 3 / 2, before.cy * 3 / 2}));
  });
}

TEST_F(Layout, DrawsEverythingAnewAfterAChange) {
  for (const int dpi : {96, 144, 120}) {
    PlayAt(dpi, [&](HWND window) {
      UpdateWindow(window);
      PressKey("Tab");
      const Pixels drawn = PixelsOf(window);
      Redraw(window);
      EXPECT_EQ(drawn, PixelsOf(window)) << dpi;
    });
  }
}

TEST_F(Layout, PutsEveryControlInItsPlace) {
  for (const int dpi : {96, 120, 192}) {
    PlayAt(dpi, [&](HWND window) {
      for (const Control* control : Shown.TabOrder()) {
        POINT corner{PlaceOf(WidgetOf(*control)).left, PlaceOf(WidgetOf(*control)).top};
        ScreenToClient(window, &corner);
        const Place frame = control->Parent ? control->Parent->At : Place{};
        EXPECT_EQ(corner.x, ToPixels(frame.Left + control->At.Left, dpi)) << control->Name << dpi;
        EXPECT_EQ(corner.y, ToPixels(frame.Top + control->At.Top, dpi)) << control->Name << dpi;
        const RECT place = PlaceOf(WidgetOf(*control));
        EXPECT_EQ(ToText({place.right - place.left, place.bottom - place.top}),
                  ToText({ToPixels(control->At.Width, dpi), ToPixels(control->At.Height, dpi)}))
            << control->Name << dpi;
      }
    });
  }
}

TEST_F(Layout, StopsTheTabKeyAtWhatTakesTheFocusAndClipsWhatOverlaps) {
  PlayAt(0, [&](HWND window) {
    EXPECT_NE(GetWindowLongPtrW(window, GWL_STYLE) & WS_CLIPCHILDREN, 0);
    for (HWND part = GetTopWindow(window); part; part = GetWindow(part, GW_HWNDNEXT)) {
      const LONG_PTR style = GetWindowLongPtrW(part, GWL_STYLE);
      const bool passive = GetDlgCtrlID(part) == Shown.Holder.TabIndex ||
                           GetDlgCtrlID(part) == Shown.lblNote.TabIndex;
      EXPECT_EQ((style & WS_TABSTOP) == 0, passive) << GetDlgCtrlID(part);
      EXPECT_NE(style & WS_CLIPSIBLINGS, 0) << GetDlgCtrlID(part);
    }
  });
}

TEST_F(Layout, HasTheFocusableControlsInFrontInTheOrderOfTheirTabIndexes) {
  PlayAt(0, [&](HWND window) {
    std::vector<int> order;
    for (HWND part = GetTopWindow(window); part; part = GetWindow(part, GW_HWNDNEXT)) {
      order.push_back(GetDlgCtrlID(part));
    }
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 20}));
  });
}

// Letters drawn in a separate device context, for comparison with the screen.
struct Ink {
  int Width = 0, Height = 0;
  std::vector<bool> Dark;
  [[nodiscard]] bool At(int x, int y) const {
    return Dark[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) +
                static_cast<std::size_t>(x)];
  }
};

Ink InkOf(const Pixels& pixels, SIZE size, RECT part, bool (*dark)(COLORREF)) {
  Ink ink{static_cast<int>(part.right - part.left), static_cast<int>(part.bottom - part.top), {}};
  for (LONG y = part.top; y < part.bottom; ++y) {
    for (LONG x = part.left; x < part.right; ++x) {
      ink.Dark.push_back(dark(pixels[static_cast<std::size_t>(y * size.cx + x)]));
    }
  }
  return ink;
}

bool IsDark(COLORREF pixel) { return (pixel & 0xFF) < 0x60; }

// The first and last columns with ink, and the lowest row.
struct Extent {
  int Left = INT_MAX, Right = -1, Bottom = -1;
};
Extent ExtentOf(const Ink& ink) {
  Extent extent;
  for (int y = 0; y < ink.Height; ++y) {
    for (int x = 0; x < ink.Width; ++x) {
      if (!ink.At(x, y)) continue;
      extent = {std::min(extent.Left, x), std::max(extent.Right, x), y};
    }
  }
  return extent;
}

COMBOBOXINFO PartsOf(HWND combo) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(combo, &parts);
  return parts;
}

// The ink's bounding box.
std::vector<std::vector<bool>> Cropped(const Ink& ink) {
  const Extent extent = ExtentOf(ink);
  std::vector<std::vector<bool>> rows;
  for (int y = 0; y <= extent.Bottom; ++y) {
    std::vector<bool> row;
    for (int x = extent.Left; x <= extent.Right; ++x) row.push_back(ink.At(x, y));
    if (!rows.empty() || std::ranges::count(row, true) > 0) rows.push_back(row);
  }
  return rows;
}

Ink FieldInk(HWND combo) {
  return InkOf(PixelsOf(combo), ClientOf(combo), PartsOf(combo).rcItem, IsDark);
}

// A text as a font draws it without clipping.
Ink WholeInk(const std::wstring& text, int height, int width) {
  constexpr SIZE size{300, 50};
  const HDC screen = GetDC(nullptr), canvas = CreateCompatibleDC(screen);
  const HBITMAP paper = CreateCompatibleBitmap(screen, size.cx, size.cy);
  const HFONT font =
      CreateFontW(-height, width, 0, 0, 0, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"MS Shell Dlg");
  const HGDIOBJ paperBefore = SelectObject(canvas, paper), fontBefore = SelectObject(canvas, font);
  PatBlt(canvas, 0, 0, size.cx, size.cy, WHITENESS);
  std::vector<int> ends(text.size()), steps(text.size());
  const auto length = static_cast<int>(text.size());
  SIZE all{};
  GetTextExtentExPointW(canvas, text.c_str(), length, 0, nullptr, ends.data(), &all);
  std::adjacent_difference(ends.begin(), ends.end(), steps.begin());
  ExtTextOutW(canvas, 4, 4, 0, nullptr, text.c_str(), static_cast<UINT>(length), steps.data());
  const Pixels pixels = PixelsOf(canvas, paper, size);
  SelectObject(canvas, paperBefore);
  SelectObject(canvas, fontBefore);
  DeleteObject(font);
  DeleteObject(paper);
  DeleteDC(canvas);
  ReleaseDC(nullptr, screen);
  return InkOf(pixels, size, {0, 0, size.cx, size.cy}, IsDark);
}

// Whether the ink shows the entire text, in the usual font or in a smaller legible one.
bool IsWhole(const Ink& seen, const std::string& text, int height) {
  const auto cropped = Cropped(seen);
  for (int lower = height; lower >= height * 3 / 4; --lower) {
    for (int width = 0; width < height; ++width) {
      if (Cropped(WholeInk(TextToWide(text), lower, width)) == cropped) return true;
    }
  }
  return false;
}

struct WideCombo : TestForm {
  ComboBox cboWide{*this, {"cboWide", "", {5000, 3360, 1455, 315}, 11}};
  Label lblWide{*this, {"lblWide", "dest:", {4200, 3360, 700, 255}, 12}, Alignment::Right};
  TextBox txtBeside{*this, {"txtBeside", "", {5000, 4000, 900, 285}, 13}};
  Label lblBeside{*this, {"lblBeside", "name", {4200, 4000, 700, 255}, 14}, Alignment::Right};
};

TEST(ComboBoxes, ShowEachRowToItsLastLetter) {
  const std::vector<std::string> rows = {"001 M01CBC.BTD", "042 WWWWMMMM.BTD", "000 Merlaut.btd",
                                         "254 OFF MAP", "000"};
  for (const int dpi : {96, 120, 144, 192}) {
    WideCombo f;
    for (const std::string& row : rows) f.cboWide.AddItem(row);
    PlayWhole(f, [&] {
      ChangeDpi(GetActiveWindow(), dpi);
      for (int row = 0; row < f.cboWide.ListCount(); ++row) {
        f.cboWide.SetListIndex(row);
        ShowChanges();
        UpdateWindow(WidgetOf(f.cboWide));
        EXPECT_TRUE(IsWhole(FieldInk(WidgetOf(f.cboWide)), f.cboWide.Text(), ToPixels(160, dpi)))
            << f.cboWide.Text() << " at " << dpi;
      }
    });
  }
}

// The screen row of a widget's lowest ink: the base line, as the words used have no descenders.
int BaseLine(const Control& control, RECT part) {
  const HWND widget = WidgetOf(control);
  POINT corner{};
  ClientToScreen(widget, &corner);
  return corner.y + part.top +
         ExtentOf(InkOf(PixelsOf(widget), ClientOf(widget), part, IsDark)).Bottom;
}

TEST(Labels, StandOnTheBaseLineOfTheirField) {
  for (const int dpi : {96, 120, 144, 192}) {
    WideCombo f;
    f.cboWide.AddItem("dear");
    f.cboWide.SetListIndex(0);
    f.txtBeside.SetText("name");
    PlayWhole(f, [&] {
      const HWND window = GetActiveWindow();
      ChangeDpi(window, dpi);
      UpdateWindow(window);
      Redraw(window);
      const auto whole = [](const Control& control) {
        const SIZE size = ClientOf(WidgetOf(control));
        return RECT{0, 0, size.cx, size.cy};
      };
      EXPECT_EQ(BaseLine(f.lblBeside, whole(f.lblBeside)),
                BaseLine(f.txtBeside, whole(f.txtBeside)))
          << dpi;
      EXPECT_EQ(BaseLine(f.lblWide, whole(f.lblWide)),
                BaseLine(f.cboWide, PartsOf(WidgetOf(f.cboWide)).rcItem))
          << dpi;
    });
  }
}

}  // namespace
}  // namespace corvane
