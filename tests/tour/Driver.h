// A person at the real windows of a display: what they do there and what they see. Each display
// has its own driver behind this header, so that all of them are held to the same tests.
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
/// Runs once, as soon as another window stands on the topmost one.
void WhenNext(const std::function<void()>& then);

// What is done, is done to the topmost window, through its input.
void PressAt(const Control& control);                            // down and up in the middle of it
void ClickEmptyArea();                                           // on the window's empty ground
void PressRow(const ListBox& list, int row, bool ctrl = false);  // may be the one behind the last
void DoubleClickRow(const ListBox& list, int row);
void PressScrollBar(const ListBox& list);
void Type(const std::string& text);
void PressKey(const std::string& key);  // Tab, Return, Esc, Space, Home, Down, Alt+H, Ctrl+S, ...
void TurnWheel(const Control& control);
void PressMenu(const MenuEntry& entry);
void PressItem(const MenuItem& item);  // its menu is open
void PressCloseBox();

// What another program does to a window of ours, be that blocked or not: a screen reader, an
// automation, a task manager.
void CloseFromOutside(const Form& form);
void ChooseFromOutside(const MenuItem& item);
void ClickFromOutside(const Button& button);
void FillFromOutside(const TextBox& box, const std::string& text);
void EndSessionFromOutside();

/// The message box that is the topmost window.
struct ShownMessage {
  std::string Title, Text, Buttons;  // the captions without mnemonics, each with a blank behind it
  bool OnScreen;                     // all of it, and its buttons
};
[[nodiscard]] ShownMessage SeenMessage();

[[nodiscard]] std::string Seen(const Control& control);  // text, [selected], or selected row
[[nodiscard]] bool SeenEnabled(const MenuItem& item);
[[nodiscard]] bool SeenPopup();         // a menu or the rows of a combo box stand open
[[nodiscard]] std::string SeenFocus();  // the name of the control that has the keyboard

}  // namespace corvane
