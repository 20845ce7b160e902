// What a user can do to a window. A display turns its toolkit's events into gestures; a test calls
// them directly and so runs complete sessions through the same code.
//
// A gesture does nothing on a form that is not topmost, or while a message box or file dialog is
// open. Every gesture ends by showing the changes.
#pragma once

#include "services/Controls.h"
#include "services/Form.h"
#include "services/Keys.h"
#include "services/TextEditing.h"

namespace corvane {

/// Whether a form currently accepts gestures.
[[nodiscard]] bool AcceptsGestures(const Form& form);

/// Gives a control the focus after the focused field's Validate. False if Validate refuses or the
/// control cannot take the focus. Nothing has changed then, and the caller must do nothing.
[[nodiscard]] bool MoveFocus(Control& to);

/// Follows a native focus that moved without a gesture, e.g. through a screen reader.
void FollowFocus(Control& now);

/// A mouse button goes down over a control, or over none (nullptr). False: nothing may react.
[[nodiscard]] bool AllowPress(Form& form, Control* under);

/// The wheel turns over a control, or over none (nullptr). False: the control must not react.
[[nodiscard]] bool AllowWheel(const Form& form, const Control* under);

/// Picks a row with mouse or keyboard. In a combo box, picking the displayed row also counts: the
/// value it represents may differ.
void PickRow(ListBox& list, int row);
void PickRow(ComboBox& combo, int row);
void DoubleClick(ListBox& list, int row);

/// Edits a text box as shown. The typed limit and the code page restrict the inserted text.
void EditText(TextBox& box, const TextEdit& edit);
void Undo(TextBox& box);
void Redo(TextBox& box);

/// Clicks a button with the mouse, the space bar or its mnemonic.
void Press(Button& button);

/// A keystroke at the focused control. False: the window does not use it, and the focused widget
/// should handle it.
bool PressKey(Form& form, const KeyStroke& stroke);

/// Runs the Click of a menu bar entry, which enables and disables its items.
void OpenMenu(MenuEntry& menu);
/// Picks a menu item; does nothing if it is disabled.
void Choose(MenuItem& item);

/// The window's close box.
void CloseWindow(Form& form);

/// The session is about to end. Asks about unsaved changes in each open window, from the topmost
/// down. False keeps the session running.
[[nodiscard]] bool QueryEndSession();
/// For systems that show the user why the session cannot end yet.
inline constexpr char EndSessionReason[] = "Changes have not been saved.";
/// QueryEndSession for signals and similar requests: ends the program unless an answer forbids it.
/// While a box or file dialog is open, waits until it is closed and its gesture has finished.
void EndSession();

}  // namespace corvane
