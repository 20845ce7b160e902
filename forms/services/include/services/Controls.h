// The controls as the program sees them: records with state and events. They decide exactly when an
// event runs; a display mirrors their state and knows none of these rules.
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

/// In twips, relative to the parent frame, or to the client area without one.
struct Place {
  int Left, Top, Width, Height;
};

enum class Alignment { Left, Right, Centre };

/// A row of a window's control table.
struct ControlRow {
  const char* Name;
  const char* Caption;  // '&' marks the mnemonic
  Place At;
  int TabIndex;
  const Frame* Parent = nullptr;
  const char* AccessibleName = "";  // distinguishes a focusable control from its neighbours
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
  void Redraw();  // requests an update from the display

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

/// Rows with at most one selected: the common part of list boxes and combo boxes.
struct RowControl : Control {
  RowControl(Form& owner, const ControlRow& row, RowOrder order)
      : Control(owner, row), Order(order) {}

  const RowOrder Order;

  /// Raised when the user or the program changes the selected row, before the setter returns.
  std::function<void()> Click = [] {};

  void Clear();                         // removes all rows without raising Click
  void AddItem(std::string_view text);  // at the end, or in text order
  /// Inserts a row before row `before`, ignoring Order; clamps `before` to the list. Keeps the
  /// selection.
  void InsertItem(int before, std::string_view text);
  [[nodiscard]] const std::vector<std::string>& AllRows() const { return Rows; }
  [[nodiscard]] int ListCount() const { return static_cast<int>(Rows.size()); }
  [[nodiscard]] const std::string& List(int row) const;  // empty for an invalid row
  void SetList(int row, std::string_view text);          // in place, without raising Click
  [[nodiscard]] const std::string& Text() const { return List(Selected); }

  [[nodiscard]] int ListIndex() const { return Selected; }  // -1: none
  /// An invalid index selects no row. Setting the current index raises nothing.
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

  std::function<void()> Change = [] {};  // the user or program changed the text
  /// Runs before the focus moves to another control of the window. False keeps it here.
  std::function<bool()> Validate = [] { return true; };

  const int TypedLimit;  // in characters, for typing and pasting; 0: no limit
  const bool MultiLine;

  [[nodiscard]] const std::string& Text() const { return Content; }
  /// Sets the text, ignoring TypedLimit, and clears the history of the user's edits.
  void SetText(std::string_view text);
  void ReplaceText(std::string_view text);  // as a user edit: keeps the history

  EditHistory History;  // of user edits since the last SetText

  // The selection in characters, and whether the program has set it since the last TakeSelection.
  int SelStart = 0;
  int SelLength = 0;
  bool SelectionSet = false;
  void SelectAll();

 private:
  std::string Content;
};

using AnyControl = std::variant<Label*, Frame*, Button*, ListBox*, ComboBox*, TextBox*>;

}  // namespace corvane
