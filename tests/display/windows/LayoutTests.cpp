#include <algorithm>

#include "Screen.h"
#include "services/FormView.h"
#include "services/Pixels.h"

namespace corvane {
namespace {

// Announces a new resolution, with the place that the system suggests.
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

TEST_F(Layout, RedrawsEverythingAfterAChange) {
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

TEST_F(Layout, RedrawsAFocusedListWhenItsRowsChange) {
  Shown.cmdOK.Click = [this] {
    Shown.lstRows.Clear();
    Shown.lstRows.AddItem("new");
  };
  PlayAt(0, [&](HWND) {
    PressRow(Shown.lstRows, 1);
    PressKey("Return");
    const Pixels drawn = PixelsOf(WidgetOf(Shown.lstRows));
    Redraw(WidgetOf(Shown.lstRows));
    EXPECT_EQ(drawn, PixelsOf(WidgetOf(Shown.lstRows)));
  });
}

TEST_F(Layout, PutsEveryControlInPlace) {
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

TEST_F(Layout, HasTheUsualFrameAndPointerAndScrollsAWideRow) {
  Shown.BorderKind = Border::Resizable;
  Shown.lstFew.AddItem(std::string(100, 'w'));
  PlayAt(0, [&](HWND window) {
    EXPECT_FALSE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME);  // hides the icon
    EXPECT_TRUE(GetWindowLongW(WidgetOf(Shown.lstFew), GWL_STYLE) & WS_HSCROLL);
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), HTCLIENT);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
  });
}

// The columns after the last letter in the field of a combo box.
LONG ColumnsLeft(HWND combo, const Pixels& pixels) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(combo, &parts);
  const LONG width = ClientOf(combo).cx;
  LONG last = -1;
  for (LONG y = parts.rcItem.top; y < parts.rcItem.bottom; ++y) {
    for (LONG x = parts.rcItem.left; x < parts.rcItem.right; ++x) {
      const COLORREF pixel = pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                                    static_cast<std::size_t>(x)];
      if ((pixel & 0xFF) < 0x60) last = std::max(last, x);
    }
  }
  return last < 0 ? -1 : parts.rcItem.right - 1 - last;
}

TEST(ComboBoxes, ShowEachRowToItsLastLetter) {
  for (const int dpi : {96, 120, 144, 192}) {
    TestForm f;
    ComboBox wide(f, {"wide", "", {5000, 3360, 1455, 315}, 11});
    for (const char* row : {"001 M01CBC.BTD", "001 M01CBC.BTI", "042 WWWWMMMM.BTD",
                            "042 WWWWMMMM.BTI", "254 OFF MAP", "254 OFF MAT"}) {
      wide.AddItem(row);
    }
    PlayWhole(f, [&] {
      ChangeDpi(GetActiveWindow(), dpi);
      Pixels before;
      for (int row = 0; row < wide.ListCount(); ++row) {
        wide.SetListIndex(row);
        ShowChanges();
        UpdateWindow(WidgetOf(wide));
        const Pixels pixels = PixelsOf(WidgetOf(wide));
        EXPECT_GT(ColumnsLeft(WidgetOf(wide), pixels), 0) << wide.Text() << " at " << dpi;
        EXPECT_NE(pixels, before) << wide.Text() << " at " << dpi;
        before = pixels;
      }
    });
  }
}

}  // namespace
}  // namespace corvane
