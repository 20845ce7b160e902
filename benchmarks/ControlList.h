// The controls of a window as lines of a file. The benchmarks write it from the program's form, and
// the bare windows build their widgets from it. A floor thus shows exactly what the program shows,
// without sharing its code.
#pragma once

#include <string>
#include <vector>

namespace corvane {

enum class ListedKind { Label, Frame, Button, ListBox, ComboBox, TextBox, Menu, MenuItem };

/// A control, or an entry or item of the menu bar, which has only a text and, in Rows, its
/// shortcut.
struct ListedControl {
  ListedKind Kind{};
  int Parent = -1;                               // index of another control; -1: the window
  int Left = 0, Top = 0, Width = 0, Height = 0;  // in pixels
  int Align = 0;                                 // 0 left, 1 right, 2 centre
  int Enabled = 1, Visible = 1;
  int Selected = -1;  // index of a row
  std::string Text = {};
  std::vector<std::string> Rows = {};
};

void WriteControls(const std::string& path, const std::vector<ListedControl>& controls);

/// Empty if the file does not exist.
[[nodiscard]] std::vector<ListedControl> ReadControls(const char* path);

}  // namespace corvane
