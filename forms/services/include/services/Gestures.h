// What a person can do to a window. A display turns its toolkit's events into these; a test makes
// them directly and so plays whole sessions through the code that the windows run.
#pragma once

#include "services/Controls.h"
#include "services/Form.h"
#include "services/TextEditing.h"

namespace corvane {

enum class Key { Tab, BackTab, Enter, Escape };

/// Gives a control the focus, after the Validate of the field that has it. False if that refused,
/// or the control cannot take the focus: then nothing at all has happened, and nothing may.
[[nodiscard]] bool MoveFocus(Control& to);

/// Picks a row with mouse or keyboard. In a combo box a choice counts also if it is the row on
/// show: what stands behind that row may be another value.
void PickRow(ListBox& list, int row);
void PickRow(ComboBox& combo, int row);
void DoubleClick(ListBox& list, int row);

/// Edits a text box as it is shown; the typed limit and the code page bind what comes in.
void EditText(TextBox& box, const TextEdit& edit);

/// Clicks a button, with the mouse, a blank, or its mnemonic.
void Press(Button& button);

/// A key that works on the whole window. False if it means nothing there.
bool PressKey(Form& form, Key key);

/// Alt and a letter. False if no button has that mnemonic.
bool PressMnemonic(const Form& form, char letter);

/// Runs the Click of a menu bar entry, which tells what of its items is available.
void OpenMenu(MenuEntry& menu);
/// Picks an item of a menu; nothing happens if it is greyed.
void Choose(MenuItem& item);
/// The key of a menu item: its menu's Click comes first.
void PressShortcut(Form& form, Shortcut key);

/// The window's close box.
void CloseWindow(Form& form);

}  // namespace corvane
