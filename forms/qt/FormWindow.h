// One window on the screen for one form. It shows the form's controls and menu, keeps the real
// focus where the form has it, and turns what a person does into gestures.
#pragma once

#include <QEventLoop>
#include <QMainWindow>
#include <set>
#include <vector>

#include "ControlWidgets.h"
#include "Form.h"

class QKeyEvent;

namespace corvane {

class FormWindow : public QMainWindow {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow() override;

  /// Shows the window and returns when it is closed. The first window's life is the program's.
  void Run();
  void Close();

  /// Notes that a control's state has changed; the next mirroring shows it.
  void Mark(const Control& control) { Pending.insert(&control); }
  static void MirrorAll(Qt::FocusReason reason = Qt::OtherFocusReason);

  [[nodiscard]] static FormWindow* Of(const Form& form);  // nullptr for a form without a window
  /// The topmost window, brought up to date, for a box or dialog to stand over.
  [[nodiscard]] static FormWindow* Beneath();

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  void AddControls();
  void AddMenu(MenuEntry& entry);
  void SetFrame();
  void Mirror(Qt::FocusReason reason);
  [[nodiscard]] bool KeyboardInMenu() const;
  bool RefusesPress(const QPoint& at);
  bool TakesKey(const QKeyEvent& event);

  Form& Shown;
  std::vector<ControlWidget> Widgets;
  std::set<const Control*> Pending;
  QEventLoop Loop;
};

}  // namespace corvane
