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
  ~FormWindow() override;

  void Run() override;
  void Close() override;

  [[nodiscard]] static HWND Top();  // the topmost window, or nullptr

 protected:
  void MirrorFocus(void* widget) override;

 private:
  void MakeWindow();
  HMENU MakeMenuBar();
  void MakeControls();
  void SetFirstPlace();
  void MoveOntoScreen(const RECT& place);
  void SetClientSize(SIZE client);
  void ApplySettings(int dpi, const RECT* place = nullptr);

  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM first, LPARAM second);
  LRESULT OnMessage(UINT message, WPARAM first, LPARAM second);
  void OnCommand(WORD command, WORD code, HWND from);
  void OnDrawRow(const DRAWITEMSTRUCT& row);
  void OnMenuDrop(HMENU menu, WORD entry);
  [[nodiscard]] LRESULT OnQueryEndSession();

  /// Looks at a message ahead of the widget that it is for. True: the widget gets nothing of it.
  bool PreTranslate(MSG& message);
  bool RefusesPress(const MSG& press);
  bool TakesKey(const MSG& key);
  bool LosesWheel(MSG& turn) const;
  [[nodiscard]] bool RowsAreDropped() const;

  HWND Owner;
  HWND Window = nullptr;
  int Dpi = 0;  // that the layout is made for
  std::vector<ControlWidget> Widgets;
  std::vector<MenuItem*> Commands;  // the number of a command is its item's place, from 1 on
  bool Running = true;
};

}  // namespace corvane
