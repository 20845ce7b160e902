// Keystrokes as a display reports them.
#pragma once

#include <algorithm>
#include <span>

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

/// A key by its code in the toolkit of a display.
struct NativeKey {
  int Code;
  Key Means;
};

/// The stroke of a native key. The codes of letters are those of 'A' to 'Z' on every display.
[[nodiscard]] inline KeyStroke StrokeOf(int code, Modifiers with, std::span<const NativeKey> keys) {
  if (code >= 'A' && code <= 'Z') return {static_cast<char>(code), with};
  const auto known = std::ranges::find(keys, code, &NativeKey::Code);
  return {known == keys.end() ? Key::Other : known->Means, with};
}

}  // namespace corvane
