#include "Look.h"

#include <QtTest>

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
    {"fields greyer than the window", "#FFFFFF", "#202020", "#F0F0F0", "#3584E4", "white"},
    {"dark", "#353535", "white", "#2D2D2D", "#15539E", "white"},
    {"black", "black", "white", "black", "yellow", "black"},
    {"text like its background", "#808080", "#848484", "#7F7F7F", "#828282", "#808080"},
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

TEST_P(Colours, MakeTextReadable) {
  const QPalette colours = ReadablePalette(PaletteOf(GetParam()));
  using enum QPalette::ColorRole;
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> texts[] = {{WindowText, Window},
                                                                       {Text, Base},
                                                                       {ButtonText, Button},
                                                                       {HighlightedText, Highlight},
                                                                       {ToolTipText, ToolTipBase}};
  for (const auto& [text, background] : texts) {
    EXPECT_GE(Contrast(colours.color(text), colours.color(background)), TextContrast) << text;
  }
}

// The desktop's colours change while the window is on the screen. Its theme has colours of its own
// for some classes.
TEST_P(Colours, ShowTheEdgeAndTheBackgroundOfEveryControl) {
  TestForm form;
  PlayWhole(form, [&] {
    for (const char* kind : {"QAbstractScrollArea", "QLineEdit", "QAbstractItemView"})
      QApplication::setPalette(QPalette(Qt::red), kind);
    QApplication::setPalette(PaletteOf(GetParam()));
    const QImage picture = Picture();
    const QColor background = ReadablePalette(PaletteOf(GetParam())).color(QPalette::Base);
    const QPoint empty = PlaceIn(*WidgetOf(form.lstFew)).center();
    EXPECT_EQ(picture.pixelColor(empty), background);

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
int ClearlyDifferent(const QImage& before, const QImage& after, const QRect& place) {
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
      EXPECT_GE(ClearlyDifferent(before, Picture(), place), place.width() + place.height())
          << form.Focused->Name;
    }
    EXPECT_EQ(form.Focused, &form.lstRows);  // a full round
  });
}

// True once the screen shows a control as a new drawing would.
bool IsRedrawn(const Control& control) {
  const QRect place = PlaceIn(*WidgetOf(control));
  return QTest::qWaitFor([&] {
    const QImage screen = MainWindow()->screen()->grabWindow(MainWindow()->winId()).toImage();
    return screen.copy(place) == Picture().convertToFormat(screen.format()).copy(place);
  });
}

TEST(Lists, AreRedrawnWhenTheyGetTheFocusAndWhenTheirRowsChange) {
  TestForm form;
  form.cmdOK.Click = [&] {
    form.lstRows.Clear();
    form.lstRows.AddItem("still one\nline");
  };
  PlayWhole(form, [&] {
    const auto* list = WidgetOf<QListWidget>(form.lstRows);
    const int height = list->sizeHintForRow(0);
    PressRow(form.lstRows, 1);
    PressAt(form.cmdHelp);
    EXPECT_TRUE(IsRedrawn(form.lstRows));
    WidgetOf(form.lstRows)->setFocus();
    EXPECT_TRUE(IsRedrawn(form.lstRows));
    PressKey("Return");
    EXPECT_TRUE(IsRedrawn(form.lstRows));
    EXPECT_EQ(list->sizeHintForRow(0), height);
  });
}

TEST(Look, DrawsEachPartInItsPlace) {
  TestForm form;
  PlayWhole(form, [&] {
    const QPalette colours = ReadablePalette(QApplication::palette());
    PressAt(form.txtNumber);
    const QImage picture = Picture();
    const struct {
      const Control& At;
      QPoint From;  // the upper left corner or, if negative, the lower right one
      QPalette::ColorRole Colour;
    } spots[] = {
        {form.Holder, {0, 100}, QPalette::Mid},        {form.Holder, {8, 6}, QPalette::Window},
        {form.Holder, {100, 6}, QPalette::Mid},        {form.Holder, {5, 6}, QPalette::Mid},
        {form.Holder, {1, 100}, QPalette::Window},     {form.Holder, {-50, -1}, QPalette::Mid},
        {form.txtNumber, {1, 9}, QPalette::Highlight}, {form.txtNumber, {2, 9}, QPalette::Base},
        {form.lstRows, {3, 2}, QPalette::Base},        {form.lstFew, {0, 30}, QPalette::Mid},
        {form.lstFew, {1, 30}, QPalette::Base},        {form.txtName, {-1, -9}, QPalette::Mid},
        {form.cmdOK, {0, 12}, QPalette::Highlight},    {form.cmdOK, {3, 12}, QPalette::Button},
        {form.cmdCancel, {0, 12}, QPalette::Mid},      {form.cboRows, {1, 10}, QPalette::Button},
        {form.cboRows, {-20, -3}, QPalette::Button}};
    for (const auto& [control, from, colour] : spots) {
      const QRect place = PlaceIn(*WidgetOf(control));
      const QPoint at =
          (from.x() < 0 ? place.bottomRight() + QPoint(1, 1) : place.topLeft()) + from;
      EXPECT_TRUE(picture.pixelColor(at) == colours.color(colour))
          << control.Name << " at " << from.x() << ", " << from.y();
    }
    const QPoint arrow = PlaceIn(*WidgetOf(form.cboRows)).bottomRight() - QPoint(8, 9);
    EXPECT_GE(Contrast(picture.pixelColor(arrow), colours.color(QPalette::Button)), EdgeContrast);
    const QRect button = PlaceIn(*WidgetOf(form.cmdHelp));
    const auto inButton = [&] { return Picture().pixelColor(button.topLeft() + QPoint(4, 12)); };
    EXPECT_TRUE(inButton() == colours.color(QPalette::Button));
    QTest::mousePress(MainWindow()->windowHandle(), Qt::LeftButton, {}, button.center());
    EXPECT_TRUE(inButton() == colours.color(QPalette::Midlight));
    QTest::mouseRelease(MainWindow()->windowHandle(), Qt::LeftButton, {}, button.center());
    const int menu = MainWindow()->findChild<QMenuBar*>()->height();
    EXPECT_EQ(MainWindow()->geometry(), QRect(40, 40, 440, 360 + menu));
    EXPECT_EQ(MainWindow()->maximumSize(), MainWindow()->minimumSize());
  });
}

TEST(Fonts, NarrowUntilATextFitsItsControl) {
  TestForm form;
  Button button(form, {"button", "A caption for two", {4500, 4320, 1215, 375}, 30});
  Label label(form, {"label", "A label for two", {4200, 2600, 900, 200}, 31}, Alignment::Left);
  form.cboRows.AddItem("a row too wide");
  form.cboRows.SetListIndex(8);
  PlayWhole(form, [&] {
    const struct {
      const Control& In;
      const char* Text;
      int Room;
    } rows[] = {{button, button.Caption, 75},
                {label, label.Caption, 60},
                {form.cboRows, "a row too wide", 45}};
    for (const auto& [control, text, room] : rows) {
      const QFont font = WidgetOf(control)->font();
      EXPECT_LE(QFontMetrics(font).horizontalAdvance(text), room) << control.Name;
      EXPECT_GT(QFontMetrics(PlainFont()).horizontalAdvance(text), room) << control.Name;
    }
    EXPECT_EQ(WidgetOf(form.cmdOK)->font(), PlainFont());
  });
}

// Fonts that a theme sets, for all widgets or for a class of them, do not change the picture.
TEST(Fonts, IgnoreTheTheme) {
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

}  // namespace
}  // namespace corvane
