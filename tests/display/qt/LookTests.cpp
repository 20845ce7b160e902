#include "Look.h"

#include "Screen.h"

namespace corvane {
namespace {

struct Desktop {
  const char* Name;
  const char *Window, *WindowText, *Base, *Highlight, *HighlightedText;
};

void PrintTo(const Desktop& desktop, std::ostream* out) { *out << desktop.Name; }

constexpr Desktop Desktops[] = {
    {"light", "#EFEFEF", "black", "white", "#308CC6", "white"},
    {"nearly white frames on white", "#FAF9F8", "#2E3436", "white", "#3584E4", "white"},
    {"fields greyer than the window", "#FFFFFF", "#202020", "#F0F0F0", "#3584E4", "white"},
    {"dark", "#353535", "white", "#2D2D2D", "#15539E", "white"},
    {"dark with white fields", "#202326", "#FCFCFC", "white", "#3DAEE9", "white"},
    {"black", "black", "white", "black", "yellow", "black"},
    {"text like its ground", "#808080", "#848484", "#7F7F7F", "#828282", "#808080"},
};

QPalette PaletteOf(const Desktop& desktop) {
  QPalette palette;
  palette.setColor(QPalette::Window, desktop.Window);
  palette.setColor(QPalette::WindowText, desktop.WindowText);
  palette.setColor(QPalette::Base, desktop.Base);
  palette.setColor(QPalette::Text, desktop.WindowText);
  palette.setColor(QPalette::Button, desktop.Window);
  palette.setColor(QPalette::ButtonText, desktop.WindowText);
  palette.setColor(QPalette::Highlight, desktop.Highlight);
  palette.setColor(QPalette::HighlightedText, desktop.HighlightedText);
  return palette;
}

class Colours : public testing::TestWithParam<Desktop> {};
INSTANTIATE_TEST_SUITE_P(, Colours, testing::ValuesIn(Desktops));

TEST_P(Colours, HaveTextsThatCanBeRead) {
  const QPalette colours = ReadablePalette(PaletteOf(GetParam()));
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> texts[] = {
      {QPalette::WindowText, QPalette::Window},
      {QPalette::Text, QPalette::Base},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::HighlightedText, QPalette::Highlight},
      {QPalette::ToolTipText, QPalette::ToolTipBase}};
  for (const auto& [text, ground] : texts) {
    EXPECT_GE(Contrast(colours.color(text), colours.color(ground)), TextContrast) << text;
  }
}

TEST_P(Colours, LeaveNoRoleToATheme) {
  const QPalette colours = ReadablePalette(PaletteOf(GetParam()));
  for (int role = 0; role < QPalette::NColorRoles; ++role) {
    if (role == QPalette::NoRole) continue;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      EXPECT_TRUE(colours.isBrushSet(group, static_cast<QPalette::ColorRole>(role))) << role;
    }
  }
}

// Changes the desktop's colours while the window is visible.
TEST_P(Colours, ShowTheEdgeOfEveryControl) {
  TestForm form;
  PlayWhole(form, [&] {
    QApplication::setPalette(PaletteOf(GetParam()));
    const QImage picture = Picture();
    for (const Control* control : std::initializer_list<const Control*>{
             &form.Holder, &form.lstFew, &form.cboRows, &form.txtNumber, &form.txtLines,
             &form.cmdCancel, &form.cmdHelp}) {
      const QRect place = PlaceIn(*WidgetOf(*control));
      const QPoint edge(place.left(), place.center().y());
      EXPECT_GE(Contrast(picture.pixelColor(edge), picture.pixelColor(edge - QPoint(3, 0))),
                EdgeContrast)
          << control->Name;
    }
  });
}

// Counts the pixels in a place that differ clearly between two pictures.
int PlainlyDifferent(const QImage& before, const QImage& after, const QRect& place) {
  int count = 0;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) {
      count += Contrast(before.pixelColor(x, y), after.pixelColor(x, y)) >= EdgeContrast;
    }
  }
  return count;
}

TEST_P(Colours, ShowTheFocusOfEveryControl) {
  TestForm form;
  PlayWhole(form, [&] {
    QApplication::setPalette(PaletteOf(GetParam()));
    for (std::size_t steps = form.TabOrder().size(); steps > 0; --steps) {
      const QImage before = Picture();
      PressKey("Tab");
      const QRect place = PlaceIn(*WidgetOf(*form.Focused));
      EXPECT_GE(PlainlyDifferent(before, Picture(), place), place.width() + place.height())
          << form.Focused->Name;
    }
    EXPECT_EQ(form.Focused, &form.lstRows);  // a full round
  });
}

TEST(DarkColours, LeaveNoWhitePatch) {
  TestForm form;
  PlayWhole(form, [&] {
    QPalette white;
    white.setColor(QPalette::Window, Qt::white);
    white.setColor(QPalette::Base, Qt::white);
    for (const char* kind : {"QAbstractScrollArea", "QLineEdit", "QAbstractItemView", "QMenuBar"}) {
      QApplication::setPalette(white, kind);
    }
    QApplication::setPalette(PaletteOf(Desktops[3]));
    const QImage picture = Picture();
    int light = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) light += picture.pixelColor(x, y).lightness() > 200;
    }
    EXPECT_GT(light, 0);  // the letters
    EXPECT_LT(light, picture.width() * picture.height() / 50);
  });
}

// Fonts that a theme sets, for all widgets or one class, do not change the picture.
TEST(Fonts, AreThoseOfTheProgramWhateverAThemeSets) {
  TestForm form;
  PlayWhole(form, [&] {
    const QImage before = Picture();
    QFont odd("DejaVu Serif", 18, QFont::Bold, true);
    odd.setStretch(150);
    odd.setUnderline(true);
    odd.setLetterSpacing(QFont::AbsoluteSpacing, 3);
    QApplication::setFont(odd);
    for (const char* kind : {"QLabel", "QListView", "QLineEdit", "QMenuBar", "QAbstractButton"}) {
      QApplication::setFont(odd, kind);
    }
    EXPECT_TRUE(Picture() == before);
  });
}

TEST(Fonts, OfThemesAreKeptFromWindowsThatOpenLater) {
  TestForm form, dialog;
  form.cmdOK.Click = [&] { dialog.ShowModal(); };
  dialog.QueryUnload = [] { return true; };
  dialog.cmdCancel.Click = [&] { dialog.Unload(); };
  PlayWhole(form, [&] {
    QApplication::setFont(QFont("DejaVu Serif", 18, QFont::Bold, true));
    WhenNext([&] {
      for (const QWidget* widget : QApplication::activeModalWidget()->findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        EXPECT_EQ(widget->font().pixelSize(), PlainFont().pixelSize())
            << qPrintable(widget->objectName());
        EXPECT_EQ(widget->font().families(), PlainFont().families())
            << qPrintable(widget->objectName());
        EXPECT_FALSE(widget->font().bold()) << qPrintable(widget->objectName());
        EXPECT_FALSE(widget->font().italic()) << qPrintable(widget->objectName());
      }
      PressKey("Esc");
    });
    PressAt(form.cmdOK);
  });
}

// A narrow combo box narrows the font of its field, but not that of its list.
TEST(Fonts, OfADroppedListAreNotNarrowed) {
  TestForm form;
  form.cboRows.AddItem("a row that is far too long for the field of its combo box");
  form.cboRows.SetListIndex(form.cboRows.ListCount() - 1);
  PlayWhole(form, [&] {
    PressAt(form.cboRows);
    const auto* combo = WidgetOf<QComboBox>(form.cboRows);
    ASSERT_TRUE(combo->view()->isVisible());
    EXPECT_GE(combo->view()->mapToGlobal(QPoint()).y(),
              combo->mapToGlobal(combo->rect().bottomLeft()).y());
    EXPECT_LT(combo->font().stretch(), 100);
    EXPECT_EQ(combo->view()->font(), PlainFont());
    EXPECT_GE(combo->view()->viewport()->width(), combo->view()->sizeHintForColumn(0));
    PressKey("Esc");
  });
}

}  // namespace
}  // namespace corvane
