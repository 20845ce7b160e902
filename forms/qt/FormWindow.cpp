#include "FormWindow.h"

#include <QtWidgets>
#include <algorithm>
#include <map>
#include <utility>

#include "Gestures.h"

namespace corvane {
namespace {

std::vector<FormWindow*> Windows;  // from the main window to the topmost dialog

const std::map<int, Key> WindowKeys = {{Qt::Key_Tab, Key::Tab},
                                       {Qt::Key_Backtab, Key::BackTab},
                                       {Qt::Key_Return, Key::Enter},
                                       {Qt::Key_Enter, Key::Enter},
                                       {Qt::Key_Escape, Key::Escape}};

// Does what a person did, then shows what came of it.
void Perform(const std::function<void()>& gesture, Qt::FocusReason reason = Qt::OtherFocusReason) {
  gesture();
  FormWindow::MirrorAll(reason);
}

}  // namespace

FormWindow::FormWindow(Form& form) : QMainWindow(Beneath()), Shown(form) {
  setWindowTitle(QString::fromUtf8(form.Caption));
  setCentralWidget(new QWidget);
  AddControls();
  for (MenuEntry* entry : form.Menus) AddMenu(*entry);
  SetFrame();
  create();
  windowHandle()->installEventFilter(this);  // ahead of any widget, and before the focus moves
  Windows.push_back(this);
  MirrorAll();
}

FormWindow::~FormWindow() { std::erase(Windows, this); }

void FormWindow::AddControls() {
  const Performer perform = [this](Control& control, const std::function<void()>& gesture) {
    Mark(control);  // whatever becomes of the gesture, the widget goes back to the control's state
    Perform(gesture);
  };
  for (const AnyControl& any : Shown.Controls) {  // a frame ahead of what it holds
    const Control* frame = std::visit([](auto* control) { return control->Parent; }, any);
    const auto holder = std::ranges::find(Widgets, frame, &ControlWidget::Shown);
    QWidget* parent = holder == Widgets.end() ? centralWidget() : holder->Widget;
    Widgets.push_back(MakeControlWidget(any, parent, perform));
    Mark(*Widgets.back().Shown);
  }
}

void FormWindow::AddMenu(MenuEntry& entry) {
  menuBar()->setNativeMenuBar(false);
  QMenu* menu = menuBar()->addMenu(QString::fromUtf8(entry.Caption));
  menu->setObjectName(entry.Name);
  connect(menu, &QMenu::aboutToShow, this, [&entry] { Perform([&] { OpenMenu(entry); }); });
  for (MenuItem* item : entry.Items) {
    QAction* action = menu->addAction(QString::fromUtf8(item->Caption));
    action->setObjectName(item->Name);
    connect(menu, &QMenu::aboutToShow, action, [=] { action->setEnabled(item->Enabled); });
    connect(action, &QAction::triggered, this, [=] { Perform([=] { Choose(*item); }); });
    if (item->Key == Shortcut::None) continue;
    // Not the action's own shortcut: a greyed item has to be asked whether it is available now.
    action->setText(action->text() + "\tCtrl+S");
    connect(new QShortcut(QKeySequence("Ctrl+S"), this), &QShortcut::activated, this,
            [this] { Perform([this] { PressShortcut(Shown, Shortcut::CtrlS); }); });
  }
}

void FormWindow::SetFrame() {
  const QSize client(ToPixels(Shown.ClientWidth), ToPixels(Shown.ClientHeight));
  const int menu = Shown.Menus.empty() ? 0 : menuBar()->heightForWidth(client.width());
  resize(client.width(), client.height() + menu);
  if (parentWidget()) setWindowModality(Qt::ApplicationModal);
  if (Shown.BorderKind == Border::FixedDialog) {
    setWindowFlags(Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(size());
  }
  if (!Shown.ClientAt) return;
  setGeometry({{ToPixels(Shown.ClientAt->Left), ToPixels(Shown.ClientAt->Top)}, size()});
}

void FormWindow::Run() {
  show();
  static_cast<void>(Windows.front() == this ? QApplication::exec() : Loop.exec());
}

void FormWindow::Close() {
  hide();
  if (Windows.front() == this) QApplication::exit();
  Loop.quit();
}

FormWindow* FormWindow::Of(const Form& form) {
  const auto shows = [&](const FormWindow* window) { return &window->Shown == &form; };
  const auto at = std::ranges::find_if(Windows, shows);
  return at == Windows.end() ? nullptr : *at;
}

FormWindow* FormWindow::Beneath() {
  MirrorAll();
  return Windows.empty() ? nullptr : Windows.back();
}

void FormWindow::MirrorAll(Qt::FocusReason reason) {
  for (FormWindow* window : Windows) window->Mirror(reason);
}

void FormWindow::Mirror(Qt::FocusReason reason) {
  const std::set<const Control*> changed = std::exchange(Pending, {});
  for (const ControlWidget& widget : Widgets) {
    if (changed.contains(widget.Shown)) widget.Mirror();
  }
  if (KeyboardInMenu()) return;  // the menu gives it back
  const auto focused = std::ranges::find(Widgets, Shown.Focused, &ControlWidget::Shown);
  QWidget* now = focusWidget();
  if (focused == Widgets.end()) {
    if (now) now->clearFocus();
  } else if (focused->Widget != now) {
    focused->Widget->setFocus(reason);
  }
}

bool FormWindow::KeyboardInMenu() const { return menuWidget() && focusWidget() == menuWidget(); }

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // unloading the form closes the window, or does not
  Perform([this] { CloseWindow(Shown); });
}

bool FormWindow::eventFilter(QObject* target, QEvent* event) {
  if (target != windowHandle() || QApplication::activePopupWidget()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return RefusesPress(static_cast<QMouseEvent*>(event)->position().toPoint());
    case QEvent::KeyPress:
      return TakesKey(*static_cast<QKeyEvent*>(event));
    case QEvent::Wheel: {  // here a combo box picks a row, even one without the focus
      QWidget* under = childAt(static_cast<QWheelEvent*>(event)->position().toPoint());
      return qobject_cast<QComboBox*>(under) && under != focusWidget();
    }
    default:
      return false;
  }
}

// Asks whether the focus may go to the control under a press, before anything reacts to that.
bool FormWindow::RefusesPress(const QPoint& at) {
  for (QWidget* under = childAt(at); under; under = under->parentWidget()) {
    const auto pressed = std::ranges::find(Widgets, under, &ControlWidget::Widget);
    if (pressed == Widgets.end()) continue;
    if (under->focusPolicy() == Qt::NoFocus || !under->isEnabled()) return false;
    bool moved = true;
    Perform([&] { moved = MoveFocus(*pressed->Shown); }, Qt::MouseFocusReason);
    return !moved;
  }
  return false;
}

bool FormWindow::TakesKey(const QKeyEvent& event) {
  const auto key = WindowKeys.find(event.key());
  if (key == WindowKeys.end() || KeyboardInMenu()) return false;
  auto* lines = qobject_cast<QPlainTextEdit*>(focusWidget());
  if (lines && key->second == Key::Enter && event.modifiers() & Qt::ControlModifier) {
    lines->insertPlainText("\n");
    return true;
  }
  const bool back = key->second == Key::BackTab;
  bool taken = false;
  Perform([&] { taken = PressKey(Shown, key->second); },
          back ? Qt::BacktabFocusReason : Qt::TabFocusReason);
  return taken || back || key->second == Key::Tab;
}

}  // namespace corvane
