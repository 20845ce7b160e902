#include <QtWidgets>
#include <algorithm>

#include "Dialogs.h"

namespace corvane {
namespace {

constexpr QSize ScreenMargin(80, 140);  // pixels kept for the box's edges and buttons
constexpr int ParagraphWidth = 460;     // pixels; lines too long for the screen wrap here
constexpr int TitleButtons = 130;       // pixels that a title bar needs besides its text
constexpr int ButtonWidth = 80;

// The text, which can be read, selected and copied.
class MessageText : public QTextEdit {
 public:
  MessageText(const QString& text, QWidget* parent) : QTextEdit(parent) {
    ensurePolished();  // measures with the font it is shown in
    setReadOnly(true);
    setPlainText(text);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setLineWrapMode(FixedPixelWidth);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }

  void CopySelectionOrAll() {
    if (textCursor().hasSelection()) return copy();
    QGuiApplication::clipboard()->setText(toPlainText());
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy)) return CopySelectionOrAll();
    QTextEdit::keyPressEvent(event);
  }
};

// A button keeps the focus; keys it ignores scroll or copy the text.
class MessageBox : public QDialog {
 public:
  MessageBox(QWidget* owner, const QString& text)
      : QDialog(owner, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint),
        Text(new MessageText(text, this)) {
    setWindowTitle(ProgramName);
    setAccessibleDescription(Text->toPlainText());
    FitText();
  }

  MessageText* const Text;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy)) return Text->CopySelectionOrAll();
    constexpr std::pair<int, QScrollBar::SliderAction> Scrolls[] = {
        {Qt::Key_PageUp, QScrollBar::SliderPageStepSub},
        {Qt::Key_PageDown, QScrollBar::SliderPageStepAdd},
        {Qt::Key_Home, QScrollBar::SliderToMinimum},
        {Qt::Key_End, QScrollBar::SliderToMaximum}};
    for (const auto& [key, step] : Scrolls) {
      if (key == event->key()) return Text->verticalScrollBar()->triggerAction(step);
    }
    QDialog::keyPressEvent(event);
  }

 private:
  // Lines that fit the screen do not wrap; longer ones wrap like a paragraph.
  [[nodiscard]] int WrapWidth(int max) const {
    int width = std::min(ParagraphWidth, max);
    const int margins = qCeil(2 * Text->document()->documentMargin()) + 1;
    for (QTextBlock line = Text->document()->begin(); line.isValid(); line = line.next()) {
      const int needed = Text->fontMetrics().horizontalAdvance(line.text()) + margins;
      if (needed <= max) width = std::max(width, needed);
    }
    return width;
  }

  // Sizes the box to the text, or makes it scroll if it exceeds the screen.
  void FitText() {
    const QSize max = screen()->availableSize() - ScreenMargin;
    Text->setLineWrapColumnOrWidth(WrapWidth(max.width()));
    const int width = qCeil(Text->document()->idealWidth());
    Text->setLineWrapColumnOrWidth(width);  // a larger width would scroll sideways
    const int height = qCeil(Text->document()->size().height());
    const bool scrolls = height > max.height();
    const int frame = 2 * Text->frameWidth();
    const int bar = scrolls ? Text->verticalScrollBar()->sizeHint().width() : 0;
    Text->setFixedSize(width + bar + frame, std::min(height, max.height()) + frame);
    if (scrolls) return;
    Text->setFrameShape(QFrame::NoFrame);
    Text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Text->viewport()->setAutoFillBackground(false);
    Text->setFocusPolicy(Qt::ClickFocus);
  }
};

// The first letter also presses the button, without Alt.
void AddButton(QDialog& box, QDialogButtonBox& row, const char* caption, int result) {
  QPushButton* button = row.addButton(caption, QDialogButtonBox::ActionRole);
  button->setMinimumWidth(ButtonWidth);
  auto* letter = new QShortcut(QKeySequence(button->text().section('&', -1).left(1)), &box);
  const auto choose = [&box, result] { box.done(result); };
  QObject::connect(button, &QPushButton::clicked, &box, choose);
  QObject::connect(letter, &QShortcut::activated, &box, choose);
}

}  // namespace

MessageAnswer ShowMessageBox(QWidget* owner, const std::string& text, MessageButtons buttons) {
  MessageBox box(owner, QString::fromStdString(text));
  auto* layout = new QVBoxLayout(&box);
  auto* row = new QDialogButtonBox;
  row->setMinimumWidth(box.fontMetrics().horizontalAdvance(box.windowTitle()) + TitleButtons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(box.Text, 0, Qt::AlignHCenter);
  layout->addWidget(row);
  row->setCenterButtons(true);
  int number = 0;  // counted from 1; 0: the box was closed
  for (const MessageButton& choice : ButtonsOf(buttons)) {
    AddButton(box, *row, choice.Caption, ++number);
  }
  row->buttons().first()->setFocus();
  return AnswerOf(buttons, box.exec() - 1);
}

}  // namespace corvane
