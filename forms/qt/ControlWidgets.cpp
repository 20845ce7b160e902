#include "ControlWidgets.h"

#include <QtWidgets>
#include <array>
#include <utility>

#include "Accessibility.h"
#include "Look.h"
#include "services/FormView.h"
#include "services/Gestures.h"
#include "services/Pixels.h"

namespace corvane {
namespace {

constexpr int MinStretch = 44;  // percent; narrower letters are illegible
constexpr int StretchStep = 4;
constexpr int ButtonMargins = 6;  // pixels, both sides of a caption together
constexpr int FieldMargins = 6;   // pixels, both sides of a combo box's text together
constexpr int ListMargins = 24;   // pixels, including the scroll bar of the dropdown list

QRect PlaceOf(const Control& control) {
  const Place& at = control.At;
  return {ToPixels(at.Left), ToPixels(at.Top), ToPixels(at.Width), ToPixels(at.Height)};
}

// Narrows the font until the text fits the room.
QFont Narrowed(const QString& text, const QSize& room, int flags) {
  QFont font = PlainFont();
  const auto fits = [&] {
    const QSize needed = QFontMetrics(font).boundingRect({{}, room}, flags, text).size();
    return needed.width() <= room.width() && needed.height() <= room.height();
  };
  for (int stretch = 100; !fits() && stretch >= MinStretch; stretch -= StretchStep)
    font.setStretch(stretch);
  return font;
}

// Returns true if a row changed. A text with line breaks still takes one line.
bool MirrorRows(ShownRows& shown, const RowControl& list, QAbstractItemModel& rows) {
  const auto remove = [&](int from) { rows.removeRows(from, rows.rowCount() - from); };
  return shown.Mirror(list, remove, [&](int row, const std::string& text) {
    if (row == rows.rowCount()) rows.insertRow(row);
    rows.setData(rows.index(row, 0), QString::fromStdString(text).replace('\n', ' '));
  });
}

// Keeps the selection in step with the control. QListWidget itself never sees the mouse, so only
// picking another row changes the selection.
class RowList : public QListWidget {
 public:
  RowList(QWidget* parent, ListBox& list) : QListWidget(parent), Shown(list) {
    // Reports a change made by a screen reader, which bypasses mouse and keyboard.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
      if (!SelectsItself) PickRow(Shown, selectionModel()->selectedIndexes().value(0).row());
    });
  }

  void Mirror() {
    const QScopedValueRollback quiet(SelectsItself, true);
    MirrorRows(Rows, Shown, *model());
    setCurrentRow(Shown.ListIndex(), QItemSelectionModel::ClearAndSelect);
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override { Do(*event, PickRow); }
  void mouseMoveEvent(QMouseEvent* event) override { Do(*event, PickRow); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { Do(*event, DoubleClick); }
  void keyPressEvent(QKeyEvent* event) override {
    {
      const QScopedValueRollback quiet(SelectsItself, true);
      QListWidget::keyPressEvent(event);
    }
    PickRow(Shown, currentRow());
  }
  // QListWidget's handler would make a row current.
  void focusInEvent(QFocusEvent* event) override {
    QAbstractScrollArea::focusInEvent(event);  // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
    // Announced after Qt's own focus event for the list.
    QTimer::singleShot(0, this, [this] { AnnounceCurrentRow(*this); });
  }

 private:
  void Do(const QMouseEvent& event, void (*gesture)(ListBox&, int row)) {
    const int row = indexAt(event.position().toPoint()).row();
    if (row < 0 || !(event.buttons() & Qt::LeftButton)) return;
    gesture(Shown, row);
  }

  ListBox& Shown;
  ShownRows Rows;
  bool SelectsItself = false;  // true while the widget itself changes the selection
};

// Keeps its selection while a menu opened by a key has the focus.
class LineEdit : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void focusOutEvent(QFocusEvent* event) override {
    const bool toMenu = event->reason() == Qt::MenuBarFocusReason;
    QFocusEvent focusOut(QEvent::FocusOut, toMenu ? Qt::PopupFocusReason : event->reason());
    QLineEdit::focusOutEvent(&focusOut);
  }
};

// One interface for the two kinds of text box.
QString TextOf(const QLineEdit& edit) { return edit.text(); }
QString TextOf(const QPlainTextEdit& edit) {
  QString text = edit.document()->toRawText();  // toPlainText() would lose no-break spaces
  return text.replace(QChar::ParagraphSeparator, '\n').replace(QChar::LineSeparator, '\n');
}
int CaretOf(const QLineEdit& edit) { return edit.cursorPosition(); }
int CaretOf(const QPlainTextEdit& edit) { return edit.textCursor().position(); }
void Fill(QLineEdit& edit, const QString& text) { edit.setText(text); }
void Fill(QPlainTextEdit& edit, const QString& text) {
  const int scrolled = edit.verticalScrollBar()->value();
  edit.setPlainText(text);
  edit.verticalScrollBar()->setValue(scrolled);
}
void Select(QLineEdit& edit, int start, int length) { edit.setSelection(start, length); }
void Select(QPlainTextEdit& edit, int start, int length) {
  QTextCursor cursor(edit.document());
  cursor.setPosition(start);
  cursor.setPosition(start + length, QTextCursor::KeepAnchor);
  edit.setTextCursor(cursor);
}

// A press always starts a new selection: text dragged to a target that refuses it would be lost.
class MultiLineEdit : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && event->modifiers() != Qt::ShiftModifier) {
      const int scrolled = verticalScrollBar()->value();
      Select(*this, CaretOf(*this), 0);
      verticalScrollBar()->setValue(scrolled);
    }
    QPlainTextEdit::mousePressEvent(event);
  }
};

void DisableUndo(QLineEdit&) {}  // no key or menu reaches its own undo
void DisableUndo(QPlainTextEdit& edit) { edit.setUndoRedoEnabled(false); }
QPoint OnScreen(const QLineEdit& edit, const QPoint& at) { return edit.mapToGlobal(at); }
QPoint OnScreen(const QPlainTextEdit& edit, const QPoint& at) {
  return edit.viewport()->mapToGlobal(at);
}

void Route(QAction& action, bool enabled, TextBox& box, void (*gesture)(TextBox&)) {
  action.disconnect(SIGNAL(triggered(bool)));
  action.setEnabled(enabled);
  QObject::connect(&action, &QAction::triggered, &action, [&box, gesture] { gesture(box); });
}

// The standard menu; its first two items use the box's history.
template <class Edit>
void ShowMenu(Edit& edit, TextBox& box, const QPoint& at) {
  QMenu* menu = edit.createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  Route(*menu->actions().at(0), box.History.CanUndo(), box, Undo);
  Route(*menu->actions().at(1), box.History.CanRedo(), box, Redo);
  menu->popup(OnScreen(edit, at));
}

template <class Edit>
ControlWidget MakeEdit(TextBox& box, Edit* edit) {
  DisableUndo(*edit);
  edit->setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(edit, &QWidget::customContextMenuRequested, edit,
                   [&box, edit](const QPoint& at) { ShowMenu(*edit, box, at); });
  QObject::connect(edit, &Edit::textChanged, edit, [&box, edit] {
    const QString text = TextOf(*edit);
    const std::string beforeCaret = text.left(CaretOf(*edit)).toStdString();
    EditText(box, FindEdit(box, text.toStdString(), beforeCaret));
  });
  return {&box, edit, [&box, edit] {
            const QSignalBlocker quiet(edit);
            const QString text = QString::fromStdString(ShownText(box));
            const bool differs = TextOf(*edit) != text;
            if (differs) Fill(*edit, text);
            if (TakeSelection(box, differs)) Select(*edit, box.SelStart, box.SelLength);
          }};
}

ControlWidget Make(TextBox& box, QWidget* parent) {
  if (!box.MultiLine) return MakeEdit(box, new LineEdit(parent));
  auto* lines = new MultiLineEdit(parent);
  lines->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  return MakeEdit(box, lines);
}

ControlWidget Make(Label& label, QWidget* parent) {
  constexpr std::array Alignments = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  auto* widget = new QLabel(QString::fromUtf8(label.Caption), parent);
  widget->setTextFormat(Qt::PlainText);
  widget->setAlignment(Alignments.at(static_cast<std::size_t>(label.Align)) | Qt::AlignVCenter);
  widget->setWordWrap(true);
  widget->setFont(Narrowed(widget->text(), PlaceOf(label).size(), Qt::TextWordWrap));
  return {&label, widget, [] {}};
}

ControlWidget Make(Frame& frame, QWidget* parent) {
  return {&frame, new QGroupBox(QString::fromUtf8(frame.Caption), parent), [] {}};
}

ControlWidget Make(Button& button, QWidget* parent) {
  auto* widget = new QPushButton(QString::fromUtf8(button.Caption), parent);
  const QSize room = PlaceOf(button).size() - QSize(ButtonMargins, 0);
  widget->setFont(Narrowed(widget->text(), room, Qt::TextShowMnemonic));
  widget->setShortcut({});                                  // the form handles mnemonics
  widget->setDefault(button.Owner.EnterButton == &button);  // appearance only: Enter is a gesture
  QObject::connect(widget, &QPushButton::clicked, widget, [&button] { Press(button); });
  return {&button, widget, [] {}};
}

ControlWidget Make(ListBox& list, QWidget* parent) {
  auto* view = new RowList(parent, list);
  return {&list, view, [view] { view->Mirror(); }};
}

ControlWidget Make(ComboBox& combo, QWidget* parent) {
  auto* box = new QComboBox(parent);
  // On Linux, screen readers read the displayed row as the name.
  box->setAccessibleDescription(QString::fromUtf8(combo.AccessibleName));
  const QSize room = PlaceOf(combo).size() - QSize(ComboArrow + FieldMargins, 0);
  QObject::connect(box, &QComboBox::activated, box, [&combo](int row) { PickRow(combo, row); });
  return {&combo, box, [&combo, box, room, rows = ShownRows()]() mutable {
            const bool newRows = MirrorRows(rows, combo, *box->model());
            box->setCurrentIndex(combo.ListIndex());
            box->setFont(Narrowed(box->currentText(), room, Qt::TextSingleLine));
            if (newRows)
              box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0) + ListMargins);
          }};
}

}  // namespace

ControlWidget MakeControlWidget(const AnyControl& any, QWidget* parent) {
  ControlWidget made = std::visit([&](auto* it) { return Make(*it, parent); }, any);
  QWidget* widget = made.Widget;
  widget->setObjectName(made.Shown->Name);
  widget->setAccessibleName(QString::fromUtf8(made.Shown->AccessibleName));
  widget->setGeometry(PlaceOf(*made.Shown));
  if (widget->focusPolicy() == Qt::WheelFocus) widget->setFocusPolicy(Qt::StrongFocus);
  made.Mirror = [widget, control = made.Shown, state = std::move(made.Mirror)] {
    state();
    widget->setEnabled(control->Enabled());
    widget->setVisible(control->Visible());
  };
  return made;
}

}  // namespace corvane
