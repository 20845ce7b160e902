// The controls as the program sees them: records with state and events. They hold the exact rules
// of when an event runs; a display mirrors their state and knows none of these rules.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "services/EditHistory.h"

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
  virtual ~Control() = default;

  Form& Owner;

  [[nodiscard]] virtual bool TakesFocus() const { return true; }

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
  [[nodiscard]] bool TakesFocus() const override { return false; }
  Alignment Align;
};

struct Frame : Control {
  Frame(Form& owner, const ControlRow& row);
  [[nodiscard]] bool TakesFocus() const override { return false; }
};

struct Button : Control {
  Button(Form& owner, const ControlRow& row);
  std::function<void()> Click = [] {};
};

enum class RowOrder { AsAdded, ByText };

/// Rows of which one may be selected: what list boxes and dropdown combo boxes share.
struct RowControl : Control {
  RowControl(Form& owner, const ControlRow& row, RowOrder order)
      : Control(owner, row), Order(order) {}

  const RowOrder Order;

  /// Raised on every change of the selected row by user or program, before the setter returns.
  std::function<void()> Click = [] {};

  void Clear();                         // leaves no row selected; raises nothing
  void AddItem(std::string_view text);  // behind the last row, or at its place in text order
  /// Adds a row ahead of another, whatever the order; a place outside the list is its nearest end.
  /// The selected row stays selected.
  void InsertItem(int ahead, std::string_view text);
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
  ListBox(Form& owner, const ControlRow& row, RowOrder order = RowOrder::AsAdded);
  std::function<void()> DblClick = [] {};
};

struct ComboBox : RowControl {  // a dropdown list: the user can only pick a row
  ComboBox(Form& owner, const ControlRow& row);
};

enum class TextLines { One, Several };

struct TextBox : Control {
  TextBox(Form& owner, const ControlRow& row, int typedLimit = 0, TextLines lines = TextLines::One);

  std::function<void()> Change = [] {};  // the text has changed, by user or program
  /// The focus is about to move to another control of the window. False keeps it here.
  std::function<bool()> Validate = [] { return true; };

  const int TypedLimit;  // characters that typing and pasting lead to; 0: no limit
  const bool MultiLine;

  [[nodiscard]] const std::string& Text() const { return Content; }
  /// Fills the box, past the limit if need be, and ends the history of the user's edits.
  void SetText(std::string_view text);
  void ReplaceText(std::string_view text);  // as an edit of the user does: keeps the history

  EditHistory History;  // of the user's edits since the program last filled the box

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
