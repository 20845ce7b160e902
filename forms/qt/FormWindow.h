// The window that shows a form: its controls and menu. Keeps the native focus where the form has
// it, and turns user input into gestures.
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
  bool focusNextPrevChild(bool) override { return true; }  // only the form moves the focus

 private:
  void AddControls();
  void AddMenu(MenuEntry& entry);
  void SetFrame();
  [[nodiscard]] bool KeyboardInMenu() const;
  [[nodiscard]] Control* ControlAt(const QPoint& at) const;  // nullptr if there is none
  bool HandleKey(const QKeyEvent& event);

  QEventLoop Loop;
  bool PressRefused = false;  // the last mouse press
  bool KeyInPopup = false;    // the last key press started in a popup
  Qt::FocusReason MoveReason = Qt::OtherFocusReason;
};

}  // namespace corvane
