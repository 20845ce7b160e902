// Edits of a text box: the text as shown, the part that an edit changed, and the resulting text.
// Every byte that the user did not edit is preserved.
#pragma once

#include <climits>
#include <string>
#include <string_view>

#include "services/Controls.h"

namespace corvane {

/// A replacement in a shown text; positions and lengths in characters.
struct TextEdit {
  int Start;
  int Removed;
  std::string Inserted;  // UTF-8; "\n" is a line break
};

/// The text as a display shows it, in UTF-8. In a multi-line box, each line break (CR LF, a lone CR
/// or a lone LF) becomes `lineBreak`. Stops after `max` characters.
[[nodiscard]] std::string ShownText(const TextBox& box, std::string_view lineBreak = "\n",
                                    int max = INT_MAX);

/// Replaces each line break of a text with `lineBreak`.
[[nodiscard]] std::string WithLineBreaks(std::string_view text, std::string_view lineBreak);

/// Whether a widget, now showing the box's text, must also take the box's selection: after its text
/// was replaced (`filled`) or the program set the selection. Otherwise the user's selection stays.
/// Clears the mark of a selection that the program set.
[[nodiscard]] bool TakeSelection(TextBox& box, bool filled);

/// The edit that turns one shown text into another. `caret` is the position after the edit, in
/// characters; it determines which of several equal characters changed.
[[nodiscard]] TextEdit FindEdit(std::string_view before, std::string_view after, int caret);

/// The edit that turns the shown text of a box into the text that its widget holds, with line
/// breaks of any form (CR LF, CR or LF). `beforeCaret` is the held text before the caret.
[[nodiscard]] TextEdit FindEdit(const TextBox& box, std::string_view held,
                                std::string_view beforeCaret);

/// The text of a box after an edit of its shown text. Inserted characters outside the ANSI code
/// page become '?' and line breaks become CR LF; a NUL or the typed limit ends the insertion.
[[nodiscard]] std::string EditedText(const TextBox& box, const TextEdit& edit);

/// The number of characters in a UTF-8 text; CR LF counts as two.
[[nodiscard]] int CharacterCount(std::string_view text);

}  // namespace corvane
