// The windows of a display as the services see them. Each shows one form and collects changed
// controls until it updates them. The windows form a stack from the main window to the topmost
// dialog.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <vector>

#include "services/Display.h"
#include "services/Form.h"

namespace corvane {

/// A control and the widget that shows it.
struct ControlView {
  Control* Shown;
  void* Widget;                  // owned by the display; only compared
  std::function<void()> Mirror;  // shows the control's state; leaves what matches untouched
};

class FormView {
 public:
  explicit FormView(Form& form);
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;
  virtual ~FormView();

  virtual void Run() = 0;  // shows the window and returns when it is closed
  virtual void Close() = 0;

  [[nodiscard]] static FormView* Top();  // the topmost window, or nullptr

 protected:
  /// Moves the native focus to a widget, or to none (nullptr), as in the form.
  virtual void MirrorFocus(void* widget) = 0;

  void AddView(const ControlView& view);
  void MirrorEverything();                                     // e.g. when all widgets are new
  [[nodiscard]] void* WidgetOf(const Control* control) const;  // or nullptr
  [[nodiscard]] Control* ControlOf(const void* widget) const;  // or nullptr

  Form& Shown;
  FormView* const Below;  // the next window down; nullptr for the main window

 private:
  friend Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show);
  friend void ShowChanges();
  void MirrorChanges();

  std::vector<ControlView> Views;
  std::set<const Control*> Changed;
};

/// Updates all windows. Runs at the end of every gesture and before a box, dialog or window opens.
void ShowChanges();

/// A display that shows forms in these views. The caller fills in the boxes and dialogs.
[[nodiscard]] Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show);

}  // namespace corvane
