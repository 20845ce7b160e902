// A window as the program sees it: its controls, its menu, its focus and its life.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "services/Controls.h"

namespace corvane {

enum class Shortcut { None, CtrlS };

/// How a menu shows the keys of a shortcut; empty for none.
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
  bool Enabled = true;  // as the last opening of its menu left it
  std::function<void()> Click = [] {};
};

/// An entry of the menu bar. Its Click runs just before its menu drops.
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

/// What a window's property table says; sizes and places in twips.
struct FormRow {
  const char* Caption;
  int ClientWidth, ClientHeight;
  Border BorderKind;
  std::optional<Place> ClientAt = {};  // only Left and Top count; without it the system chooses
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
  /// The session is about to end, and QueryUnload comes next: asks about what would be lost without
  /// a word if the window were closed. False: the session is to go on.
  std::function<bool()> QueryEndSession = [] { return true; };

  /// Raises Load and gives the focus to the first control in the tab order.
  void Open();
  /// Opens the form as a modal dialog and returns when it has been unloaded, which may be in Load.
  void ShowModal();
  /// Closes the window, unless QueryUnload forbids it.
  void Unload();

  [[nodiscard]] bool IsOpen() const;

  /// What takes the focus at this moment, by tab index.
  [[nodiscard]] std::vector<Control*> TabOrder() const;
  /// Moves the focus on from a control that can no longer hold it.
  void LoseFocus(const Control& control);
};

/// The forms that are open, from the topmost down to the main window.
[[nodiscard]] std::vector<Form*> OpenForms();
/// The one that hears what a person does; nullptr if none is open.
[[nodiscard]] Form* TopForm();

}  // namespace corvane
