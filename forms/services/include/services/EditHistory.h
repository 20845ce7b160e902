// The edits that a user made in a text box, to be undone and done again one by one. A box keeps its
// own, since a widget's history does not survive the corrections that the program makes.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvane {

class EditHistory {
 public:
  struct State {
    std::string Text;  // of the box, as the program holds it
    int Caret;         // in characters of the shown text
  };

  /// Remembers the state ahead of an edit. What was undone can no longer be done again.
  void Add(State before);
  /// Remembers a character typed at `before.Caret`: characters typed in a row are one step.
  void AddTyped(State before);
  /// Ends a row of typed characters.
  void EndTyping() { TypingAt = NotTyping; }

  /// The state one step back or forth from `now`; nothing where no step is left.
  [[nodiscard]] std::optional<State> Undo(State now);
  [[nodiscard]] std::optional<State> Redo(State now);

  [[nodiscard]] bool CanUndo() const { return !Back.empty(); }
  [[nodiscard]] bool CanRedo() const { return !Forth.empty(); }

 private:
  static constexpr int NotTyping = -1;
  std::vector<State> Back, Forth;
  int TypingAt = NotTyping;  // where the next character joins the last step
};

}  // namespace corvane
