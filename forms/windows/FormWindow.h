// The window that shows a form: its controls and menu. Keeps the native focus where the form has
// it, and turns user input into gestures.
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

  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnCommand(WORD command, WORD code, HWND from);
  void OnDrawRow(const DRAWITEMSTRUCT& row);
  void OnMenuDrop(HMENU menu, WORD entry);
  [[nodiscard]] LRESULT OnQueryEndSession();

  /// Sees a message before the widget it is for. Returns true to withhold it from the widget.
  bool PreTranslate(MSG& message);
  bool RefusesPress(const MSG& press);
  bool HandleKey(const MSG& key);
  bool RefusesWheel(MSG& turn) const;
  [[nodiscard]] bool IsListOpen() const;

  HWND Owner;
  HWND Window = nullptr;
  int Dpi = 0;  // of the current layout
  std::vector<ControlWidget> Widgets;
  std::vector<MenuItem*> Commands;  // a command's number is its index here plus 1
  bool Running = true;
};

}  // namespace corvane
