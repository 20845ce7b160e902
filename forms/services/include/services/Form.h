// A window as the program sees it: its controls, menu, focus and lifetime.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "services/Controls.h"

namespace corvane {

enum class Shortcut { None, CtrlS };

/// The keys of a shortcut as a menu shows them; empty for none.
[[nodiscard]] const char* KeysOf(Shortcut shortcut);

struct MenuEntry;

struct MenuItem {
  MenuItem(MenuEntry& under, const char* name, const char* caption, Shortcut key = Shortcut::None);
  MenuItem(const MenuItem&) = delete;
  MenuItem& operator=(const MenuItem&) = delete;

  MenuEntry& Under;
  const char* Name;
  const char* Caption;
  Shortcut Key;
  bool Enabled = true;  // as of the last opening of its menu
  std::function<void()> Click = [] {};
};

/// An entry of the menu bar. Click runs just before the menu opens.
struct MenuEntry {
  MenuEntry(Form& owner, const char* name, const char* caption);
  MenuEntry(const MenuEntry&) = delete;
  MenuEntry& operator=(const MenuEntry&) = delete;

  Form& Owner;
  const char* Name;
  const char* Caption;
  std::vector<MenuItem*> Items;
  std::function<void()> Click = [] {};
};

enum class Border { Resizable, FixedDialog };

/// A window's property table; sizes and places in twips.
struct FormRow {
  const char* Caption;
  int ClientWidth, ClientHeight;
  Border BorderKind;
  std::optional<Place> ClientAt = {};  // only Left and Top; without it the system chooses
};

struct Form : FormRow {
  explicit Form(const FormRow& row) : FormRow(row) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  ~Form();

  std::vector<AnyControl> Controls;  // in the order of the control table
  std::vector<MenuEntry*> Menus;
  Button* EnterButton = nullptr;   // the default button
  Button* EscapeButton = nullptr;  // the cancel button
  Control* Focused = nullptr;

  std::function<void()> Load = [] {};                       // the window is about to show
  std::function<bool()> QueryUnload = [] { return true; };  // False keeps it open
  /// Runs before QueryUnload when the session is about to end. Asks about changes that closing the
  /// window would silently discard. False keeps the session running.
  std::function<bool()> QueryEndSession = [] { return true; };

  /// Raises Load and gives the focus to the first control in the tab order.
  void Open();
  /// Opens the form as a modal dialog and returns when it is unloaded, possibly during Load.
  void ShowModal();
  /// Closes the window unless QueryUnload returns false.
  void Unload();

  [[nodiscard]] bool IsOpen() const;

  /// The controls that can currently take the focus, by tab index.
  [[nodiscard]] std::vector<Control*> TabOrder() const;
  /// Moves the focus away from a control that can no longer hold it.
  void LoseFocus(const Control& control);
};

/// The open forms, from the topmost down to the main window.
[[nodiscard]] std::vector<Form*> OpenForms();
/// The form that receives gestures; nullptr if none is open.
[[nodiscard]] Form* TopForm();

}  // namespace corvane
