#include <QtTest>

#include "Screen.h"

namespace corvane {
namespace {

struct ShownBox {
  QWidget& Window;
  QTextEdit& Text;
  QScrollBar& Bar;
};

// Shows a text in a box, inspects it, and answers with Return.
void ShowBox(const std::string& text, const std::function<void(const ShownBox&)>& look) {
  TestForm form;
  form.cmdOK.Click = [&] { Tell(text); };
  PlayWhole(form, [&] {
    WhenNext([&] {
      QWidget* box = QApplication::activeModalWidget();
      auto* view = box->findChild<QTextEdit*>();
      look({*box, *view, *view->verticalScrollBar()});
      PressKey("Return");
    });
    PressAt(form.cmdOK);
  });
}

std::string Lines(int count, std::size_t width) {
  std::string lines;
  for (int line = 0; line < count; ++line) lines += std::string(width, 'x') + "\r\n";
  return lines;
}

struct Shape {
  const char* Name;
  std::string Text;
  bool Scrolls, Wraps;
};

void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.Name; }

class Messages : public testing::TestWithParam<Shape> {};
INSTANTIATE_TEST_SUITE_P(, Messages,
                         testing::Values(Shape{"one word", "a", false, false},
                                         Shape{"empty", "", false, false},
                                         Shape{"findings", Lines(9, 80), false, false},
                                         Shape{"many findings", Lines(700, 80), true, false},
                                         Shape{"a paragraph", std::string(1500, 'w'), false, true},
                                         Shape{"a wide finding under a paragraph",
                                               std::string(1500, 'w') + "\r\n" + Lines(1, 90),
                                               false, true}));

TEST_P(Messages, AreWholeOnTheScreenAndBreakOnlyLinesThatItHasNoRoomFor) {
  ShowBox(GetParam().Text, [](const ShownBox& box) {
    EXPECT_TRUE(box.Window.screen()->availableGeometry().contains(box.Window.frameGeometry()));
    EXPECT_LE(box.Text.document()->idealWidth(), box.Text.viewport()->width());
    EXPECT_EQ(box.Bar.maximum() > 0, GetParam().Scrolls);
    EXPECT_EQ(box.Bar.isVisible(), GetParam().Scrolls);
    PressKey("Tab");
    EXPECT_EQ(box.Text.hasFocus(), GetParam().Scrolls);
    EXPECT_GE(box.Window.width(), box.Window.fontMetrics().horizontalAdvance("Corvane") + 100);
    const QTextDocument& document = *box.Text.document();
    int wrapped = 0;
    for (QTextBlock line = document.begin(); line.isValid(); line = line.next()) {
      wrapped += line.layout()->lineCount() > 1;
    }
    EXPECT_EQ(wrapped, GetParam().Wraps ? 1 : 0);
  });
}

TEST(MessageBox, ScrollsWhileItsButtonHasTheFocus) {
  ShowBox(Lines(700, 20), [](const ShownBox& box) {
    EXPECT_EQ(QApplication::focusWidget()->metaObject()->className(), std::string("QPushButton"));
    PressKey("PgDown");
    EXPECT_EQ(box.Bar.value(), box.Bar.pageStep());
    PressKey("End");
    EXPECT_EQ(box.Bar.value(), box.Bar.maximum());
    PressKey("PgUp");
    EXPECT_EQ(box.Bar.value(), box.Bar.maximum() - box.Bar.pageStep());
    PressKey("Home");
    EXPECT_EQ(box.Bar.value(), 0);
  });
}

TEST(MessageBox, CopiesWhatIsMarkedOrAll) {
  ShowBox("first\r\nsecond", [](const ShownBox& box) {
    PressKey("Ctrl+C");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "first\nsecond");
    QTextCursor marked(box.Text.document());
    marked.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    box.Text.setTextCursor(marked);
    box.Window.findChild<QPushButton*>()->setFocus();
    PressKey("Ctrl+C");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "first");
  });
}

}  // namespace
}  // namespace corvane
