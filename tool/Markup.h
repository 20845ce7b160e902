// Writes XML that is well-formed for any input: escapes texts and values, makes control characters
// visible and closes every element.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

struct Attribute {
  Attribute(std::string_view name, std::string value) : Name(name), Value(std::move(value)) {}
  Attribute(std::string_view name, std::integral auto number)
      : Name(name), Value(std::to_string(number)) {}
  std::string_view Name;
  std::string Value;
};
using Attributes = std::initializer_list<Attribute>;

class Markup {
 public:
  /// Starts an element, which contains everything up to its Close.
  void Open(std::string_view name, Attributes attributes = {});
  void Close();
  /// An empty element.
  void Leaf(std::string_view name, Attributes attributes);
  /// An element that contains a text, in which "\n" remains a line break.
  void Leaf(std::string_view name, Attributes attributes, std::string_view text);
  void Text(std::string_view text);
  /// Appends markup that is known to be well-formed.
  void Raw(std::string_view markup) { Out += markup; }
  /// Closes every element and returns the document.
  [[nodiscard]] std::string Take();

 private:
  void Begin(std::string_view name, Attributes attributes);
  void Escape(std::string_view line);

  std::string Out;
  std::vector<std::string_view> Opened;  // names are literals
};

/// A number of halves in decimal: 7 is "3.5".
[[nodiscard]] std::string FormatHalves(std::int64_t halves);

}  // namespace corvane
