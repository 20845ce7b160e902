#include "services/FormView.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace corvane {
namespace {

std::vector<FormView*> Views;  // from the main window to the topmost dialog
bool Ended = false;            // handlers that are still under way open nothing any more

}  // namespace

FormView::FormView(Form& form) : Shown(form), Below(Top()) { Views.push_back(this); }

FormView::~FormView() { std::erase(Views, this); }

FormView* FormView::Top() {
  MirrorAll();
  return Views.empty() ? nullptr : Views.back();
}

void FormView::MirrorAll() {
  for (FormView* view : Views) view->Mirror(std::exchange(view->Changed, {}));
}

void Perform(const std::function<void()>& gesture) {
  gesture();
  FormView::MirrorAll();
}

bool Attempt(const std::function<bool()>& gesture) {
  const bool done = gesture();
  FormView::MirrorAll();
  return done;
}

void PerformAt(Control& control, const std::function<void()>& gesture) {
  control.Redraw();
  Perform(gesture);
}

Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show) {
  const auto viewOf = [](const Form& form) {
    const auto at = std::ranges::find(Views, &form, [](FormView* view) { return &view->Shown; });
    return at == Views.end() ? nullptr : *at;
  };
  Ended = false;
  Display display;
  display.ShowModal = [show = std::move(show)](Form& form) {
    if (!Ended) show(form)->Run();
  };
  display.Close = [viewOf](Form& form) {
    if (FormView* view = viewOf(form)) view->Close();
  };
  display.Redraw = [viewOf](Control& control) {
    if (FormView* view = viewOf(control.Owner)) view->Changed.insert(&control);
  };
  display.EndProgram = [] {
    Ended = true;
    for (FormView* view : Views) view->Close();
  };
  return display;
}

}  // namespace corvane
