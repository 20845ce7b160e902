#include "services/FormView.h"

#include <algorithm>
#include <utility>

namespace corvane {
namespace {

std::vector<FormView*> Windows;  // from the main window to the topmost dialog

}  // namespace

bool ShownRows::Mirror(const RowControl& list, const Remove& remove, const Set& set) {
  const std::vector<std::string>& rows = list.AllRows();
  bool changed = Rows.size() > rows.size();
  if (changed) remove(list.ListCount());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (row < Rows.size() && Rows[row] == rows[row]) continue;
    set(static_cast<int>(row), rows[row]);
    changed = true;
  }
  Rows = rows;
  return changed;
}

FormView::FormView(Form& form) : Shown(form), Below(Top()) { Windows.push_back(this); }

FormView::~FormView() { std::erase(Windows, this); }

FormView* FormView::Top() { return Windows.empty() ? nullptr : Windows.back(); }

void FormView::AddView(ControlView view) { Views.push_back(std::move(view)); }

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

void RunInViews(Form& main, Display display, MakeView make) {
  const auto windowOf = [](const Form& form) {
    const auto at = std::ranges::find(Windows, &form, [](FormView* view) { return &view->Shown; });
    return at == Windows.end() ? nullptr : *at;
  };
  display.ShowModal = [make = std::move(make)](Form& form) { make(form)->Run(); };
  display.Close = [windowOf](Form& form) {
    if (FormView* window = windowOf(form)) window->Close();
  };
  display.Redraw = [windowOf](Control& control) {
    if (FormView* window = windowOf(control.Owner)) window->Changed.insert(&control);
  };
  display.EndProgram = [] {
    for (FormView* window : Windows) window->Close();
  };
  TheDisplay = std::move(display);
  main.ShowModal();
  TheDisplay = {};
}

}  // namespace corvane
