#include "FormWindow.h"

#include <QtWidgets>
#include <algorithm>
#include <map>

#include "services/Gestures.h"

namespace corvane {
namespace {

const std::map<int, Key> WindowKeys = {{Qt::Key_Tab, Key::Tab},
                                       {Qt::Key_Backtab, Key::BackTab},
                                       {Qt::Key_Return, Key::Enter},
                                       {Qt::Key_Enter, Key::Enter},
                                       {Qt::Key_Escape, Key::Escape}};

}  // namespace

FormWindow::FormWindow(Form& form) : QMainWindow(Top()), FormView(form) {
  setWindowTitle(QString::fromUtf8(form.Caption));
  setCentralWidget(new QWidget);
  AddControls();
  for (MenuEntry* entry : form.Menus) AddMenu(*entry);
  SetFrame();
  create();
  qApp->installEventFilter(this);  // the window's events: ahead of any widget, and of the focus
  MirrorAll();
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, const QWidget* now) { FollowFocus(now); });
}

FormWindow::~FormWindow() { qApp->disconnect(this); }  // the focus leaves widgets that go

void FormWindow::AddControls() {
  for (const AnyControl& any : Shown.Controls) {  // a frame ahead of what it holds
    const Control* frame = std::visit([](auto* control) { return control->Parent; }, any);
    const auto holder = std::ranges::find(Widgets, frame, &ControlWidget::Shown);
    QWidget* parent = holder == Widgets.end() ? centralWidget() : holder->Widget;
    Widgets.push_back(MakeControlWidget(any, parent));
    Widgets.back().Shown->Redraw();
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
  if (Below) setWindowModality(Qt::ApplicationModal);
  if (Shown.BorderKind == Border::FixedDialog) {
    setWindowFlags(Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    setFixedSize(size());
  }
  if (!Shown.ClientAt) return;
  setGeometry({{ToPixels(Shown.ClientAt->Left), ToPixels(Shown.ClientAt->Top)}, size()});
}

void FormWindow::Run() {
  show();
  static_cast<void>(Below ? Loop.exec() : QApplication::exec());
}

void FormWindow::Close() {
  hide();
  Loop.quit();
  if (!Below) QApplication::exit();  // leaves every nested loop, too
}

void FormWindow::Mirror(const std::set<const Control*>& changed) {
  for (const ControlWidget& widget : Widgets) {
    if (changed.contains(widget.Shown)) widget.Mirror();
  }
  if (KeyboardInMenu()) return;  // the menu gives it back
  const auto focused = std::ranges::find(Widgets, Shown.Focused, &ControlWidget::Shown);
  QWidget* now = focusWidget();
  if (focused == Widgets.end()) {
    if (now) now->clearFocus();
  } else if (focused->Widget != now) {
    focused->Widget->setFocus(MovesFor);
  }
}

// The focus may come from elsewhere, such as a screen reader.
void FormWindow::FollowFocus(const QWidget* now) {
  const auto at = std::ranges::find(Widgets, now, &ControlWidget::Widget);
  if (at == Widgets.end() || at->Shown == Shown.Focused) return;
  Perform([&] { static_cast<void>(MoveFocus(*at->Shown)); });
}

bool FormWindow::KeyboardInMenu() const { return menuWidget() && focusWidget() == menuWidget(); }

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // unloading the form closes the window, or does not
  Perform([this] { CloseWindow(Shown); });
}

bool FormWindow::eventFilter(QObject* target, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && target->isWidgetType()) {
    KeyInPopup = static_cast<QWidget*>(target)->window()->windowType() == Qt::Popup;
  }
  if (target != windowHandle() || QApplication::activePopupWidget()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      PressRefused = RefusesPress(static_cast<QMouseEvent*>(event)->position().toPoint());
      return PressRefused;
    case QEvent::MouseButtonDblClick:  // comes right behind its second press
      return PressRefused;
    case QEvent::KeyPress:  // the rows of a combo box close before this comes
      return KeyInPopup || TakesKey(*static_cast<QKeyEvent*>(event));
    case QEvent::Wheel: {  // over a combo box without the focus it would pick a row there
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
    return !Attempt([&] { return MoveFocus(*pressed->Shown); });
  }
  return false;
}

bool FormWindow::TakesKey(const QKeyEvent& event) {
  const auto key = WindowKeys.find(event.key());
  if (key == WindowKeys.end() || KeyboardInMenu()) return false;
  auto* lines = qobject_cast<QPlainTextEdit*>(focusWidget());
  if (lines && key->second == Key::Enter && event.modifiers() & Qt::ControlModifier) {
    lines->insertPlainText("\n");
    lines->ensureCursorVisible();
    return true;
  }
  const bool tab = key->second == Key::Tab || key->second == Key::BackTab;
  MovesFor = tab ? Qt::TabFocusReason : Qt::OtherFocusReason;
  const bool taken = Attempt([&] { return PressKey(Shown, key->second); });
  MovesFor = Qt::OtherFocusReason;
  return taken || tab;
}

}  // namespace corvane
