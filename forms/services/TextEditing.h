// Edits of a text box: what the user sees of its text, what part of that an edit changed, and what
// becomes of the text itself. What the user did not touch comes through to the byte.
#pragma once

#include <string>
#include <string_view>

#include "Controls.h"

namespace corvane {

/// A replacement in a shown text; positions and lengths in characters.
struct TextEdit {
  int Start;
  int Removed;
  std::string Inserted;  // UTF-8; "\n" is a line break
};

/// The text as a display shows it, in UTF-8: in a multi-line box each line break, be it CR LF, a
/// lone CR or a lone LF, is one "\n".
[[nodiscard]] std::string ShownText(const TextBox& box);

/// The edit that leads from one shown text to another. `caret` is where the caret stands
/// afterwards, in characters: among equal characters it tells which were meant.
[[nodiscard]] TextEdit FindEdit(std::string_view before, std::string_view after, int caret);

/// The text of a box after an edit of what it shows. Characters that the ANSI code page lacks come
/// in as '?', line breaks as CR LF, and no more than the typed limit allows.
[[nodiscard]] std::string EditedText(const TextBox& box, const TextEdit& edit);

[[nodiscard]] int CharacterCount(std::string_view text);

}  // namespace corvane
