// One window on the screen for one form. It shows the form's controls and menu, keeps the real
// focus where the form has it, and turns what a person does into gestures.
#pragma once

#include <windows.h>

#include <vector>

#include "ControlWidgets.h"
#include "services/FormView.h"

namespace corvane {

class FormWindow : public FormView {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow() override { DestroyWindow(Window); }

  void Run() override;
  void Close() override;

  [[nodiscard]] static HWND Top();

 protected:
  void Mirror(const std::set<const Control*>& changed) override;

 private:
  void MakeWindow();
  HMENU MakeMenuBar();
  void SetFrame();
  void DressAll(int dpi);
  void FollowFocus();
  [[nodiscard]] const ControlWidget* WidgetOf(HWND window) const;

  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM first, LPARAM second);
  void Obey(WORD command, WORD code, HWND from);
  void DropMenu(HMENU menu, WORD entry);

  bool Takes(MSG& message);
  bool RefusesPress(const MSG& press);
  bool TakesKey(WPARAM key);
  bool LosesWheel(MSG& turn) const;

  HWND Owner;
  HWND Window = nullptr;
  std::vector<ControlWidget> Widgets;
  std::vector<MenuItem*> Commands;  // the number of a command is its item's place, from 1 on
  bool Running = true;
};

}  // namespace corvane
