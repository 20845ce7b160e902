// Edits of a text box: what the user sees of its text, what part of that an edit changed, and what
// becomes of the text itself. What the user did not touch comes through to the byte.
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

/// The text as a display shows it, in UTF-8: in a multi-line box each line break, be it CR LF, a
/// lone CR or a lone LF, is one "\n", or what the display takes for one. `most` of its characters.
[[nodiscard]] std::string ShownText(const TextBox& box, std::string_view lineBreak = "\n",
                                    int most = INT_MAX);

/// A text with this for each line break.
[[nodiscard]] std::string WithLineBreaks(std::string_view text, std::string_view lineBreak);

/// Whether a widget has to select what the box tells, now that it shows the box's text: after the
/// text was set anew (`filled`), or the program selected. Otherwise the user's selection stays.
[[nodiscard]] bool TakeSelection(TextBox& box, bool filled);

/// The edit that leads from one shown text to another. `caret` is where the caret stands
/// afterwards, in characters: among equal characters it tells which were meant.
[[nodiscard]] TextEdit FindEdit(std::string_view before, std::string_view after, int caret);

/// The same from what a box shows to what its widget holds, where each of the three is a line
/// break; `beforeCaret` is what of that stands before the caret.
[[nodiscard]] TextEdit FindEdit(const TextBox& box, std::string_view held,
                                std::string_view beforeCaret);

/// The text of a box after an edit of what it shows. Characters that the ANSI code page lacks come
/// in as '?', line breaks as CR LF, and no more than the typed limit allows.
[[nodiscard]] std::string EditedText(const TextBox& box, const TextEdit& edit);

/// The characters of a UTF-8 text, in which CR LF counts as two.
[[nodiscard]] int CharacterCount(std::string_view text);

}  // namespace corvane
