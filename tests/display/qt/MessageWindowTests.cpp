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

TEST(MessageBox, FitsTheScreenAndWrapsOnlyLinesTooLongForIt) {
  const std::string paragraph(1500, 'w');
  // A text, whether it scrolls, and its wrapped lines.
  const std::tuple<std::string, bool, int> rows[] = {
      {"a", false, 0},          {"", false, 0},
      {Lines(9, 80), false, 0}, {Lines(700, 80), true, 0},
      {paragraph, false, 1},    {paragraph + "\r\n" + Lines(1, 90), false, 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::get<0>(row).substr(0, 5));
    ShowBox(std::get<0>(row), [&](const ShownBox& box) {
      EXPECT_TRUE(box.Window.screen()->availableGeometry().contains(box.Window.frameGeometry()));
      EXPECT_LE(box.Text.document()->idealWidth(), box.Text.viewport()->width());
      EXPECT_EQ(box.Bar.maximum() > 0, std::get<1>(row));
      EXPECT_EQ(box.Bar.isVisible(), std::get<1>(row));
      PressKey("Tab");
      EXPECT_EQ(box.Text.hasFocus(), std::get<1>(row));
      EXPECT_GE(box.Window.width(), box.Window.fontMetrics().horizontalAdvance("Corvane") + 100);
      int wrapped = 0;
      for (QTextBlock line = box.Text.document()->begin(); line.isValid(); line = line.next())
        wrapped += line.layout()->lineCount() > 1;
      EXPECT_EQ(wrapped, std::get<2>(row));
    });
  }
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

TEST(MessageBox, CopiesTheSelectionOrAll) {
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
