// Key strokes as a display reports them.
#pragma once

namespace corvane {

enum class Key { Other, Letter, Tab, Enter, Escape, Backspace };

struct Modifiers {
  bool Ctrl = false, Shift = false, Alt = false;
  bool operator==(const Modifiers&) const = default;
};

struct KeyStroke {
  KeyStroke(Key key, Modifiers with = {}) : Pressed(key), With(with) {}
  KeyStroke(char letter, Modifiers with) : Pressed(Key::Letter), Letter(letter), With(with) {}

  Key Pressed;
  char Letter = '\0';  // of Key::Letter: A to Z, in either case
  Modifiers With;
};

}  // namespace corvane
