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

/// The rows that a widget shows, to find those that must change.
class ShownRows {
 public:
  using Remove = std::function<void(int from)>;  // removes all rows from this one on
  using Set = std::function<void(int row, const std::string& text)>;  // may append a row

  /// Makes the widget's rows equal to a list's and leaves equal rows untouched. True if any
  /// changed.
  bool Mirror(const RowControl& list, const Remove& remove, const Set& set);

 private:
  std::vector<std::string> Rows;
};

/// A control and the widget that shows it.
struct ControlView {
  Control* Shown;
  void* Widget;                  // owned by the display; only compared
  std::function<void()> Mirror;  // shows the control's state; leaves what matches untouched
};

class FormView;
using MakeView = std::function<std::unique_ptr<FormView>(Form&)>;

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

  void AddView(ControlView view);
  void MirrorEverything();                                     // e.g. when all widgets are new
  [[nodiscard]] void* WidgetOf(const Control* control) const;  // or nullptr
  [[nodiscard]] Control* ControlOf(const void* widget) const;  // or nullptr

  Form& Shown;
  FormView* const Below;  // the next window down; nullptr for the main window

 private:
  friend void RunInViews(Form& main, Display display, MakeView make);
  friend void ShowChanges();
  void MirrorChanges();

  std::vector<ControlView> Views;
  std::set<const Control*> Changed;
};

/// Updates all windows. Runs at the end of every gesture and before a box, dialog or window opens.
void ShowChanges();

/// Runs the program: shows the main form, and the forms that it opens, in views from `make`.
/// Returns when the main form is unloaded or the program ends. `display` provides the boxes and the
/// dialogs.
void RunInViews(Form& main, Display display, MakeView make);

}  // namespace corvane
