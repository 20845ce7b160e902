// The undo and redo history of a text box. A widget's own history does not survive the corrections
// that the program makes, so each box keeps one.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvane {

class EditHistory {
 public:
  struct State {
    std::string Text;  // of the TextBox, not as shown
    int Caret;         // in characters of the shown text
  };

  /// Records the state before an edit and clears the redo steps.
  void Add(State before);
  /// Records a character typed at `before.Caret`. Consecutive characters form one step.
  void AddTyped(State before);
  /// Ends a run of typed characters.
  void EndTyping() { TypingAt = NotTyping; }

  /// The state one step back or forward from `now`; nothing if no step is left.
  [[nodiscard]] std::optional<State> Undo(State now);
  [[nodiscard]] std::optional<State> Redo(State now);

  [[nodiscard]] bool CanUndo() const { return !Back.empty(); }
  [[nodiscard]] bool CanRedo() const { return !Forward.empty(); }

 private:
  static constexpr int NotTyping = -1;
  std::vector<State> Back, Forward;
  int TypingAt = NotTyping;  // the caret at which a character joins the last step
};

}  // namespace corvane
