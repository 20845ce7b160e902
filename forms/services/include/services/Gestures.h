// What a person can do to a window. A display turns its toolkit's events into these; a test makes
// them directly and so plays whole sessions through the code that the windows run.
//
// A gesture at a form that is not the topmost one, or while a message box or file dialog stands,
// does nothing, however it came about. Every gesture ends with showing what has changed.
#pragma once

#include "services/Controls.h"
#include "services/Form.h"
#include "services/Keys.h"
#include "services/TextEditing.h"

namespace corvane {

/// Whether gestures at a form count at this moment.
[[nodiscard]] bool Hears(const Form& form);

/// Gives a control the focus, after the Validate of the field that has it. False if that refused,
/// or the control cannot take the focus: then nothing at all has happened, and nothing may.
[[nodiscard]] bool MoveFocus(Control& to);

/// The real focus has come to a control by no gesture, such as through a screen reader.
void FollowFocus(Control& now);

/// A mouse button goes down over a control, or over none (nullptr). Whether anything may react.
[[nodiscard]] bool AllowPress(Form& form, Control* under);

/// The wheel turns over a control, or over none. Whether that may react.
[[nodiscard]] bool AllowWheel(const Form& form, const Control* under);

/// Picks a row with mouse or keyboard. In a combo box a choice counts also if it is the row on
/// show: what stands behind that row may be another value.
void PickRow(ListBox& list, int row);
void PickRow(ComboBox& combo, int row);
void DoubleClick(ListBox& list, int row);

/// Edits a text box as it is shown; the typed limit and the code page bind what comes in.
void EditText(TextBox& box, const TextEdit& edit);
void Undo(TextBox& box);
void Redo(TextBox& box);

/// Clicks a button, with the mouse, a blank, or its mnemonic.
void Press(Button& button);

/// A key stroke at the control with the focus. False: it means nothing to the window, and the
/// widget with the focus is to have it.
bool PressKey(Form& form, const KeyStroke& stroke);

/// Runs the Click of a menu bar entry, which tells what of its items is available.
void OpenMenu(MenuEntry& menu);
/// Picks an item of a menu; nothing happens if it is greyed.
void Choose(MenuItem& item);

/// The window's close box.
void CloseWindow(Form& form);

/// The session is about to end. Asks in each open window about what would be lost, from the
/// topmost down. False: the session is to go on.
[[nodiscard]] bool QueryEndSession();
/// What to tell a system that shows its user why the end of the session has to wait.
inline constexpr char EndSessionReason[] = "Changes have not been saved.";
/// The same as QueryEndSession, for a signal and the like: ends the program unless an answer
/// forbids it. While a box or file dialog stands, this waits until it is closed and what came of it
/// is done.
void EndSession();

}  // namespace corvane
