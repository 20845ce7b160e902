#include "services/FormView.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

std::vector<FormView*> Windows;  // from the main window to the topmost dialog

}  // namespace

FormView::FormView(Form& form) : Shown(form), Below(Top()) { Windows.push_back(this); }

FormView::~FormView() { std::erase(Windows, this); }

FormView* FormView::Top() { return Windows.empty() ? nullptr : Windows.back(); }

void FormView::AddView(const ControlView& view) {
  Views.push_back(view);
  Changed.insert(view.Shown);
}

void FormView::MirrorEverything() {
  for (const ControlView& view : Views) Changed.insert(view.Shown);
  MirrorChanges();
}

void* FormView::WidgetOf(const Control* control) const {
  const auto at = std::ranges::find(Views, control, &ControlView::Shown);
  return at == Views.end() ? nullptr : at->Widget;
}

Control* FormView::ControlOf(const void* widget) const {
  const auto at = std::ranges::find(Views, widget, &ControlView::Widget);
  return at == Views.end() ? nullptr : at->Shown;
}

void FormView::MirrorChanges() {
  const std::set<const Control*> changed = std::exchange(Changed, {});
  for (const ControlView& view : Views) {
    if (changed.contains(view.Shown)) view.Mirror();
  }
  MirrorFocus(WidgetOf(Shown.Focused));
}

void ShowChanges() {
  for (FormView* window : Windows) window->MirrorChanges();
}

Display ViewsAsDisplay(std::function<std::unique_ptr<FormView>(Form&)> show) {
  const auto windowOf = [](const Form& form) {
    const auto at = std::ranges::find(Windows, &form, [](FormView* view) { return &view->Shown; });
    return at == Windows.end() ? nullptr : *at;
  };
  Display display;
  display.ShowModal = [show = std::move(show)](Form& form) { show(form)->Run(); };
  display.Close = [windowOf](Form& form) {
    if (FormView* window = windowOf(form)) window->Close();
  };
  display.Redraw = [windowOf](Control& control) {
    if (FormView* window = windowOf(control.Owner)) window->Changed.insert(&control);
  };
  display.EndProgram = [] {
    for (FormView* window : Windows) window->Close();
  };
  return display;
}

}  // namespace corvane
