// The controls as the program sees them: records with state and events. They hold the exact rules
// of when an event runs; a display mirrors their state and knows none of these rules.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvane {

struct Form;
struct Frame;

/// In twips, relative to the parent frame, or to the client area for a control without one.
struct Place {
  int Left, Top, Width, Height;
};

enum class Alignment { Left, Right, Centre };

/// What a row of a window's control table says of any control.
struct ControlRow {
  const char* Name;
  const char* Caption;  // '&' marks the mnemonic
  Place At;
  int TabIndex;
  const Frame* Parent = nullptr;
  const char* AccessibleName = "";  // tells a control that takes the focus from its neighbours
};

struct Control : ControlRow {
  Control(Form& owner, const ControlRow& row) : ControlRow(row), Owner(owner) {}
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& Owner;

  [[nodiscard]] bool Enabled() const { return IsEnabled; }
  [[nodiscard]] bool Visible() const { return IsVisible; }
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  void Redraw();  // asks the display to show the state anew

 private:
  bool IsEnabled = true;
  bool IsVisible = true;
};

struct Label : Control {
  Label(Form& owner, const ControlRow& row, Alignment align);
  Alignment Align;
};

struct Frame : Control {
  Frame(Form& owner, const ControlRow& row);
};

struct Button : Control {
  Button(Form& owner, const ControlRow& row);
  std::function<void()> Click = [] {};
};

/// Rows of which one may be selected: what list boxes and dropdown combo boxes share.
struct RowControl : Control {
  using Control::Control;

  /// Raised on every change of the selected row by user or program, before the setter returns.
  std::function<void()> Click = [] {};

  void Clear();  // leaves no row selected; raises nothing
  void AddItem(std::string_view text);
  [[nodiscard]] int ListCount() const { return static_cast<int>(Rows.size()); }
  [[nodiscard]] const std::string& List(int row) const;  // empty for a row that is not there
  void SetList(int row, std::string_view text);          // in place; raises nothing
  [[nodiscard]] const std::string& Text() const { return List(Selected); }

  [[nodiscard]] int ListIndex() const { return Selected; }  // -1: no selected row
  /// An index without a row selects none. Setting what is already set raises nothing.
  void SetListIndex(int row);

 protected:
  std::vector<std::string> Rows;
  int Selected = -1;
};

struct ListBox : RowControl {
  ListBox(Form& owner, const ControlRow& row, bool sorted = false);
  std::function<void()> DblClick = [] {};
  bool Sorted;  // a new row goes to its place in text order; the selected row stays selected
  void AddItem(std::string_view text);
};

struct ComboBox : RowControl {  // a dropdown list: the user can only pick a row
  ComboBox(Form& owner, const ControlRow& row);
};

struct TextBox : Control {
  TextBox(Form& owner, const ControlRow& row, int typedLimit = 0, bool multiLine = false);

  std::function<void()> Change = [] {};  // the text has changed, by user or program
  /// The focus is about to move to another control of the window. A cancel keeps it here.
  std::function<void(bool& cancel)> Validate = [](bool&) {};

  const int TypedLimit;  // characters that typing and pasting lead to; 0: no limit
  const bool MultiLine;

  [[nodiscard]] const std::string& Text() const { return Content; }
  void SetText(std::string_view text);  // not held to the limit

  // The selection in characters, and whether the program has set it since the display last looked.
  int SelStart = 0;
  int SelLength = 0;
  bool SelectionSet = false;
  void SelectAll();

 private:
  std::string Content;
};

using AnyControl = std::variant<Label*, Frame*, Button*, ListBox*, ComboBox*, TextBox*>;

}  // namespace corvane
