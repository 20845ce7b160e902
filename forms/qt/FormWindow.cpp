#include "FormWindow.h"

#include <QtWidgets>

#include "Accessibility.h"
#include "services/Gestures.h"
#include "services/Pixels.h"

namespace corvane {
namespace {

constexpr NativeKey Keys[] = {{Qt::Key_Tab, Key::Tab},       {Qt::Key_Backtab, Key::Tab},
                              {Qt::Key_Return, Key::Enter},  {Qt::Key_Enter, Key::Enter},
                              {Qt::Key_Escape, Key::Escape}, {Qt::Key_Backspace, Key::Backspace}};

KeyStroke StrokeOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers();
  const bool shift = held.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
  const Modifiers with = {held.testFlag(Qt::ControlModifier), shift,
                          held.testFlag(Qt::AltModifier)};
  return StrokeOf(event.key(), with, Keys);
}

// Closes the dropdown list of a combo box on a key that also opens it; returns true if it did. Some
// versions of Qt would pick a row as well.
bool CloseRows(const QWidget& popup, const QKeyEvent& key) {
  const bool isArrow = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down;
  if (key.key() != Qt::Key_F4 && !(isArrow && key.modifiers() == Qt::AltModifier)) return false;
  auto* combo = qobject_cast<QComboBox*>(popup.parentWidget());
  if (combo) combo->hidePopup();
  return combo != nullptr;
}

}  // namespace

FormWindow::FormWindow(Form& form) : QMainWindow(Top()), FormView(form) {
  setWindowTitle(QString::fromUtf8(form.Caption));
  setCentralWidget(new QWidget);
  AddControls();
  LinkLabels(form, *this);
  for (MenuEntry* entry : form.Menus) AddMenu(*entry);
  SetFrame();
  create();
  qApp->installEventFilter(this);  // gets window events before any widget and any focus move
  MirrorEverything();
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
    if (Control* control = ControlOf(now)) FollowFocus(*control);
  });
}

FormWindow::~FormWindow() { qApp->disconnect(this); }  // destroyed widgets lose the focus

void FormWindow::AddControls() {
  for (const AnyControl& any : Shown.Controls) {  // a frame precedes its contents
    const Control* frame = std::visit([](auto* control) { return control->Parent; }, any);
    void* const holder = WidgetOf(frame);
    ControlWidget made =
        MakeControlWidget(any, holder ? static_cast<QWidget*>(holder) : centralWidget());
    AddView({made.Shown, made.Widget, std::move(made.Mirror)});
  }
}

void FormWindow::AddMenu(MenuEntry& entry) {
  menuBar()->setNativeMenuBar(false);
  QMenu* menu = menuBar()->addMenu(QString::fromUtf8(entry.Caption));
  menu->setObjectName(entry.Name);
  connect(menu, &QMenu::aboutToShow, this, [&entry] { OpenMenu(entry); });
  for (MenuItem* item : entry.Items) {
    QAction* action = menu->addAction(QString::fromUtf8(item->Caption));
    action->setObjectName(item->Name);
    connect(menu, &QMenu::aboutToShow, action, [=] { action->setEnabled(item->Enabled); });
    connect(action, &QAction::triggered, this, [=] { Choose(*item); });
    // For display and screen readers only; the form handles the key.
    action->setShortcut(QKeySequence(KeysOf(item->Key)));
    action->setShortcutContext(Qt::WidgetShortcut);
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
  const QRect area = screen()->availableGeometry();
  const Place at =
      MoveOnto({area.x(), area.y(), area.width(), area.height()},
               {ToPixels(Shown.ClientAt->Left), ToPixels(Shown.ClientAt->Top), width(), height()});
  setGeometry(at.Left, at.Top, at.Width, at.Height);
}

void FormWindow::Run() {
  show();
  static_cast<void>(Below ? Loop.exec() : QApplication::exec());
}

void FormWindow::Close() {
  hide();
  Loop.quit();
  if (!Below) QApplication::exit();  // also ends nested loops
}

void FormWindow::MirrorFocus(void* widget) {
  if (KeyboardInMenu()) return;  // closing the menu restores the focus
  auto* const wanted = static_cast<QWidget*>(widget);
  if (wanted == focusWidget()) return;
  if (wanted) {
    wanted->setFocus(MoveReason);
  } else {
    focusWidget()->clearFocus();
  }
}

// When a message box closes a menu, the native focus stays in the menu bar.
bool FormWindow::KeyboardInMenu() const {
  const auto* bar = qobject_cast<const QMenuBar*>(focusWidget());
  return bar && bar->activeAction();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form decides whether the window closes
  CloseWindow(Shown);
}

bool FormWindow::eventFilter(QObject* target, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && target->isWidgetType()) {
    const QWidget& window = *static_cast<QWidget*>(target)->window();
    KeyInPopup = window.windowType() == Qt::Popup;
    if (KeyInPopup && CloseRows(window, *static_cast<QKeyEvent*>(event))) return true;
  }
  if (target != windowHandle() || QApplication::activePopupWidget()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:  // before the focus moves, which precedes the widget's reaction
      PressRefused =
          !AllowPress(Shown, ControlAt(static_cast<QMouseEvent*>(event)->position().toPoint()));
      return PressRefused;
    case QEvent::MouseButtonDblClick:  // follows the second press immediately
      return PressRefused;
    case QEvent::KeyPress:  // the rows of a combo box close before this arrives
      return KeyInPopup || HandleKey(*static_cast<QKeyEvent*>(event));
    case QEvent::Wheel:
      return !AllowWheel(Shown, ControlAt(static_cast<QWheelEvent*>(event)->position().toPoint()));
    default:
      return false;
  }
}

Control* FormWindow::ControlAt(const QPoint& at) const {
  for (const QWidget* under = childAt(at); under; under = under->parentWidget()) {
    if (Control* control = ControlOf(under)) return control;
  }
  return nullptr;
}

bool FormWindow::HandleKey(const QKeyEvent& event) {
  if (KeyboardInMenu()) return false;
  const KeyStroke stroke = StrokeOf(event);
  MoveReason = stroke.Pressed == Key::Tab ? Qt::TabFocusReason : Qt::OtherFocusReason;
  const bool taken = PressKey(Shown, stroke);
  MoveReason = Qt::OtherFocusReason;
  auto* lines = qobject_cast<QPlainTextEdit*>(focusWidget());
  if (taken || stroke.Pressed != Key::Enter || !lines) return taken;
  lines->insertPlainText("\n");  // the widget ignores Ctrl+Enter
  lines->ensureCursorVisible();
  return true;
}

}  // namespace corvane
