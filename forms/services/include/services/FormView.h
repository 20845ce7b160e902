// What the windows of every display do alike: each shows one form, they stand in a row from the
// main window to the topmost dialog, and each notes which controls have changed until it shows
// them.
#pragma once

#include <functional>
#include <memory>
#include <set>

#include "services/Display.h"
#include "services/Form.h"

namespace corvane {

class FormView {
 public:
  explicit FormView(Form& form);
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;
  virtual ~FormView();

  virtual void Run() = 0;  // shows the window and returns when it is closed
  virtual void Close() = 0;

  /// The topmost window, brought up to date, for a box or dialog to stand over; or nullptr.
  [[nodiscard]] static FormView* Top();
  static void MirrorAll();

 protected:
  virtual void Mirror(const std::set<const Control*>& changed) = 0;

  Form& Shown;
  FormView* const Below;  // the window that this one stands on; nullptr for the main window

 private:
  friend Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show);
  std::set<const Control*> Changed;
};

/// Does what a person did, then shows what came of it.
void Perform(const std::function<void()>& gesture);

/// The same for what may be refused, or mean nothing: whether it went well.
[[nodiscard]] bool Attempt(const std::function<bool()>& gesture);

/// The same at a control, whose widget goes back to the control's state, whatever came of it.
void PerformAt(Control& control, const std::function<void()>& gesture);

/// A display that shows forms by these views; its boxes and dialogs are still to be filled in.
[[nodiscard]] Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show);

}  // namespace corvane
