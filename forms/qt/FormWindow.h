// One window on the screen for one form. It shows the form's controls and menu, keeps the real
// focus where the form has it, and turns what a person does into gestures.
#pragma once

#include <QEventLoop>
#include <QMainWindow>

#include "ControlWidgets.h"
#include "services/FormView.h"

class QKeyEvent;

namespace corvane {

class FormWindow : public QMainWindow, public FormView {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow() override;

  void Run() override;
  void Close() override;
  [[nodiscard]] static FormWindow* Top() { return static_cast<FormWindow*>(FormView::Top()); }

 protected:
  void MirrorFocus(void* widget) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* target, QEvent* event) override;
  bool focusNextPrevChild(bool) override { return true; }  // the form moves the focus, no one else

 private:
  void AddControls();
  void AddMenu(MenuEntry& entry);
  void SetFrame();
  [[nodiscard]] bool KeyboardInMenu() const;
  [[nodiscard]] Control* ControlAt(const QPoint& at) const;  // or nullptr
  bool TakesKey(const QKeyEvent& event);

  QEventLoop Loop;
  bool PressRefused = false;  // the last one was
  bool KeyInPopup = false;    // the last one began there
  Qt::FocusReason MovesFor = Qt::OtherFocusReason;
};

}  // namespace corvane
