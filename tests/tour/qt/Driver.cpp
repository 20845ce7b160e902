#include <QtTest>
#include <QtWidgets>
#include <algorithm>
#include <csignal>
#include <cstdlib>

#include "Driver.h"
#include "services/Gestures.h"
#include "services/Program.h"

namespace corvane {
namespace {

// The window that receives input now, active as under a window manager.
QWidget* Top() {
  QWidget* top = QApplication::activeModalWidget();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!top && window->isVisible() && qobject_cast<QMainWindow*>(window)) top = window;
  }
  const auto active = [top] {
    if (QGuiApplication::focusWindow() != top->windowHandle()) top->activateWindow();
    return QGuiApplication::focusWindow() == top->windowHandle();
  };
  if (top && !QApplication::activePopupWidget()) static_cast<void>(QTest::qWaitFor(active));
  return top;
}

template <class Kind = QWidget>
Kind* Find(const char* name) {
  for (QWidget* window = Top(); window; window = window->parentWidget()) {
    if (auto* found = window->findChild<Kind*>(name)) return found;
  }
  qFatal("no visible widget %s", name);
}

QWidget* WindowOf(const Form& form) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool shows = window->windowTitle() == QString::fromUtf8(form.Caption);
    if (window->isVisible() && shows && qobject_cast<QMainWindow*>(window)) return window;
  }
  qFatal("no visible window %s", form.Caption);
}

void Click(QWidget* widget, const QRect& at, bool ctrl = false) {
  QWidget* window = widget->window();
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton,
                    ctrl ? Qt::ControlModifier : Qt::NoModifier,
                    widget->mapTo(window, at.center()));
}

QRect PlaceOfRow(const ListBox& list, int row) {
  const auto* view = Find<QListWidget>(list.Name);
  const QRect first = view->visualItemRect(view->item(0));
  return first.translated(0, row * first.height());
}

}  // namespace

int Play(Form& form, const std::function<void()>& script) {
  char name[] = "corvane";
  char* arguments[] = {name, nullptr};
  const auto play = [&] { script(), EndProgram(); };
  form.Load = [&] { QTimer::singleShot(0, play); };
  return RunProgram(1, arguments, form);
}

void WhenNext(const std::function<void()>& then) {
  auto* watch = new QTimer(qApp);
  QObject::connect(watch, &QTimer::timeout, qApp, [=, now = QApplication::activeModalWidget()] {
    if (QApplication::activeModalWidget() == now) return;
    watch->disconnect();
    then();
  });
  watch->start(10);
}

void PressAt(const Control& control) { Click(Find(control.Name), Find(control.Name)->rect()); }

void ClickEmptyArea() { Click(Top(), {Top()->rect().bottomRight() - QPoint(3, 3), QSize(1, 1)}); }

void PressRow(const ListBox& list, int row, bool ctrl) {
  Click(Find<QListWidget>(list.Name)->viewport(), PlaceOfRow(list, row), ctrl);
}

void DoubleClickRow(const ListBox& list, int row) {
  const QPoint at = PlaceOfRow(list, row).center();
  QTest::mouseDClick(Top()->windowHandle(), Qt::LeftButton, {},
                     Find<QListWidget>(list.Name)->viewport()->mapTo(Top(), at));
}

void PressScrollBar(const ListBox& list) {
  QWidget* bar = Find<QListWidget>(list.Name)->verticalScrollBar();
  Click(bar, bar->rect());
}

void Type(const std::string& text) {
  for (const QChar letter : QString::fromStdString(text)) {
    const auto key = static_cast<Qt::Key>(letter.toUpper().unicode());
    QTest::sendKeyEvent(QTest::Click, Top()->windowHandle(), key, letter, {});
  }
}

// A mnemonic shows its button pressed for a while before the click.
static bool AnyButtonIsDown() {
  return std::ranges::any_of(QApplication::allWidgets(), [](const QWidget* widget) {
    const auto* button = qobject_cast<const QPushButton*>(widget);
    return button && button->isDown();
  });
}

void PressKey(const std::string& key) {
  const QString name = key == "Shift+Tab" ? "Shift+Backtab" : QString::fromStdString(key);
  const QKeyCombination struck = QKeySequence(name)[0];
  QTest::keyClick(Top()->windowHandle(), struck.key(), struck.keyboardModifiers());
  QApplication::processEvents();
  static_cast<void>(QTest::qWaitFor([] { return !AnyButtonIsDown(); }));
}

void TurnWheel(const Control& control) {
  const QPoint at = Find(control.Name)->mapTo(Top(), Find(control.Name)->rect().center());
  QWheelEvent turn(at, Top()->mapToGlobal(at), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(Top()->windowHandle(), &turn);
}

void PressMenu(const MenuEntry& entry) {
  auto* bar = Top()->findChild<QMenuBar*>();
  Click(bar, bar->actionGeometry(Find<QMenu>(entry.Name)->menuAction()));
}

void PressItem(const MenuItem& item) {
  auto* menu = Find<QMenu>(item.Under.Name);
  Click(menu, menu->actionGeometry(Find<QAction>(item.Name)));
}

bool SavePicture(const std::string& file) {
  return Top()->grab().save(QString::fromStdString(file));
}

void PressCloseBox() { Top()->windowHandle()->close(); }

void CloseFromOutside(const Form& form) { WindowOf(form)->close(); }

void ChooseFromOutside(const MenuItem& item) {
  WindowOf(item.Under.Owner)->findChild<QAction*>(item.Name)->trigger();
}

void ClickFromOutside(const Button& button) {
  WindowOf(button.Owner)->findChild<QPushButton*>(button.Name)->click();
}

void FillFromOutside(const TextBox& box, const std::string& text) {
  WindowOf(box.Owner)->findChild<QLineEdit*>(box.Name)->setText(QString::fromStdString(text));
}

void EndSessionFromOutside() {
  if (std::raise(SIGTERM) != 0) std::abort();  // nothing would end
  QApplication::processEvents();
}

ShownMessage SeenMessage() {
  const QWidget& box = *Top();
  ShownMessage message = {
      box.windowTitle().toStdString(), box.findChild<QTextEdit*>()->toPlainText().toStdString(), "",
      box.accessibleDescription().toStdString(), box.screen()->geometry().contains(box.geometry())};
  for (const QPushButton* button : box.findChildren<QPushButton*>()) {
    message.Buttons += button->text().remove('&').toStdString() + " ";
    const QRect place(button->mapTo(&box, QPoint()), button->size());
    message.OnScreen = message.OnScreen && box.rect().contains(place);
  }
  return message;
}

std::string SeenSelection(const TextBox& box) {
  return Find<QLineEdit>(box.Name)->selectedText().toStdString();
}

ControlState SeenState(const Control& control) {
  QWidget* widget = Find(control.Name);
  ControlState state{.AccessibleName = widget->accessibleName().toStdString(),
                     .Enabled = widget->isEnabled(),
                     .Visible = !widget->isHidden()};
  const QAbstractItemModel* rows = nullptr;
  if (const auto* list = qobject_cast<QListWidget*>(widget)) {
    const QModelIndexList selected = list->selectionModel()->selectedRows();
    rows = list->model();
    state.Selected = selected.isEmpty() ? -1 : selected[0].row();
    state.Text = selected.isEmpty() ? "" : selected[0].data().toString().toStdString();
  } else if (const auto* combo = qobject_cast<QComboBox*>(widget)) {
    rows = combo->model();
    state.Selected = combo->currentIndex();
    state.Text = combo->currentText().toStdString();
  } else if (const auto* lines = qobject_cast<QPlainTextEdit*>(widget)) {
    QString text = lines->document()->toRawText();
    state.Text = text.replace(QChar::ParagraphSeparator, '\n').toStdString();
  } else {
    const char* text = qobject_cast<QGroupBox*>(widget) ? "title" : "text";
    state.Text = widget->property(text).toString().toStdString();
  }
  for (int row = 0; rows && row < rows->rowCount(); ++row) {
    state.Rows.push_back(rows->index(row, 0).data().toString().toStdString());
  }
  return state;
}

bool SeenEnabled(const MenuItem& item) { return Find<QAction>(item.Name)->isEnabled(); }

bool SeenPopup() { return QApplication::activePopupWidget() != nullptr; }

std::string SeenFocus() { return Top()->focusWidget()->objectName().toStdString(); }

}  // namespace corvane
