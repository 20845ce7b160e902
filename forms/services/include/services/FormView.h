// The windows of a display as the services see them. Each shows one form. They stand in a row from
// the main window to the topmost dialog, and each notes which controls have changed until it shows
// them.
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
  void* Widget;                  // the display's own; only told apart from others
  std::function<void()> Mirror;  // shows the control's present state; what is alike stays untouched
};

class FormView {
 public:
  explicit FormView(Form& form);
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;
  virtual ~FormView();

  virtual void Run() = 0;  // shows the window and returns when it is closed
  virtual void Close() = 0;

  [[nodiscard]] static FormView* Top();  // the topmost window; or nullptr

 protected:
  /// Has the real focus where the form has it: at a widget, or nowhere (nullptr).
  virtual void MirrorFocus(void* widget) = 0;

  void AddView(const ControlView& view);
  void MirrorEverything();                                     // such as when all widgets are new
  [[nodiscard]] void* WidgetOf(const Control* control) const;  // or nullptr
  [[nodiscard]] Control* ControlOf(const void* widget) const;  // or nullptr

  Form& Shown;
  FormView* const Below;  // the window that this one stands on; nullptr for the main window

 private:
  friend Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show);
  friend void ShowChanges();
  void MirrorChanges();

  std::vector<ControlView> Views;
  std::set<const Control*> Changed;
};

/// Brings all windows up to date. Every gesture ends with this, and boxes, dialogs and windows open
/// after it.
void ShowChanges();

/// A display that shows forms by these views; its boxes and dialogs are still to be filled in.
[[nodiscard]] Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show);

}  // namespace corvane
