// Acts as a user of a display's native windows: operates them and reads what they show. Each
// display implements this header, so that all pass the same tests.
#pragma once

#include <functional>
#include <string>

#include "ScreenState.h"
#include "services/Display.h"
#include "services/Form.h"

namespace corvane {

/// Runs the program with a main form, plays the script in its event loop, then ends the program.
/// Returns its exit status.
int Play(Form& form, const std::function<void()>& script);
/// Runs once, as soon as another window opens above the topmost one.
void WhenNext(const std::function<void()>& then);

// Input goes to the topmost window.
void PressAt(const Control& control);  // presses and releases in its middle
void ClickEmptyArea();                 // the window's background
void PressRow(const ListBox& list, int row, bool ctrl = false);  // may be below the last row
void DoubleClickRow(const ListBox& list, int row);
void PressScrollBar(const ListBox& list);
void Type(const std::string& text);
void PressKey(const std::string& key);  // Tab, Return, Esc, Space, Home, Down, Alt+H, Ctrl+S, ...
void TurnWheel(const Control& control);
void PressMenu(const MenuEntry& entry);
void PressItem(const MenuItem& item);  // its menu must be open
void PressCloseBox();

/// Saves a picture of the topmost window as a PNG file; returns false on failure.
[[nodiscard]] bool SavePicture(const std::string& file);

// What another program, e.g. a screen reader, an automation tool or a task manager, does to a
// window, blocked or not.
void CloseFromOutside(const Form& form);
void ChooseFromOutside(const MenuItem& item);
void ClickFromOutside(const Button& button);
void FillFromOutside(const TextBox& box, const std::string& text);
void EndSessionFromOutside();

/// The message box, if it is the topmost window.
struct ShownMessage {
  std::string Title, Text, Buttons;  // button captions, no mnemonics, a space after each
  std::string Description;           // for screen readers
  bool OnScreen;                     // all of the box and its buttons
};
[[nodiscard]] ShownMessage SeenMessage();

[[nodiscard]] std::string SeenSelection(const TextBox& box);  // of a single line
[[nodiscard]] bool SeenEnabled(const MenuItem& item);
[[nodiscard]] bool SeenPopup();         // an open menu or dropdown list
[[nodiscard]] std::string SeenFocus();  // the focused control's name

}  // namespace corvane
