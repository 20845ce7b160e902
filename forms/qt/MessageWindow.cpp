#include "Dialogs.h"

#include <QtWidgets>
#include <algorithm>

namespace corvane {
namespace {

// As large as the text needs; what would not fit the screen scrolls.
QTextEdit* MakeTextView(const QString& text, QDialog& box) {
  const QSize screen = box.screen()->availableSize();
  const QSize most(std::min(460, screen.width() - 80), screen.height() - 140);
  auto* view = new QTextEdit(&box);
  view->setReadOnly(true);
  view->setPlainText(text);
  view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  view->setLineWrapMode(QTextEdit::FixedPixelWidth);
  view->setLineWrapColumnOrWidth(most.width());
  const int height = qCeil(view->document()->size().height());
  const bool scrolls = height > most.height();
  const int bar = scrolls ? view->verticalScrollBar()->sizeHint().width() : 0;
  view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view->setFixedSize(qCeil(view->document()->idealWidth()) + bar + 2,
                     std::min(height, most.height()));
  if (!scrolls) {
    view->setFrameShape(QFrame::NoFrame);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->viewport()->setAutoFillBackground(false);
    view->setFocusPolicy(Qt::ClickFocus);
  }
  return view;
}

// Its first letter alone presses it, too.
QPushButton* AddButton(QDialog& box, QDialogButtonBox& row, const char* caption, int result) {
  QPushButton* button = row.addButton(caption, QDialogButtonBox::ActionRole);
  auto* letter = new QShortcut(QKeySequence(button->text().section('&', -1).left(1)), &box);
  const auto choose = [&box, result] { box.done(result); };
  QObject::connect(button, &QPushButton::clicked, &box, choose);
  QObject::connect(letter, &QShortcut::activated, &box, choose);
  return button;
}

}  // namespace

MessageAnswer ShowMessageBox(QWidget* owner, const std::string& text, MessageButtons buttons) {
  const bool asks = buttons == MessageButtons::YesNo;
  QDialog box(owner, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
  box.setWindowTitle(ProgramName);
  box.setAccessibleDescription(QString::fromStdString(text));
  auto* rows = new QVBoxLayout(&box);
  auto* row = new QDialogButtonBox;
  rows->setSizeConstraint(QLayout::SetFixedSize);
  rows->addWidget(MakeTextView(QString::fromStdString(text), box));
  rows->addWidget(row);
  row->setCenterButtons(true);
  AddButton(box, *row, asks ? "&Yes" : "OK", QDialog::Accepted)->setFocus();
  if (asks) AddButton(box, *row, "&No", QDialog::Rejected);
  const MessageAnswer answer =
      box.exec() == QDialog::Accepted ? MessageAnswer::Yes : MessageAnswer::No;
  return asks ? answer : MessageAnswer::Ok;
}

}  // namespace corvane
