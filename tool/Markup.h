// A writer of XML. Whatever it is given, the result is well-formed: texts and values are made
// visible and escaped on their way in, and every element that opens closes.
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
  /// An element; what follows lies in it until its Close.
  void Open(std::string_view name, Attributes attributes = {});
  void Close();
  /// An element with nothing in it.
  void Leaf(std::string_view name, Attributes attributes);
  /// An element that holds a text. In it, "\n" stays a line break.
  void Leaf(std::string_view name, Attributes attributes, std::string_view text);
  void Text(std::string_view text);
  /// Markup that is known to be well-formed.
  void Raw(std::string_view markup) { Out += markup; }
  /// The whole, with every element closed.
  [[nodiscard]] std::string Take();

 private:
  void Begin(std::string_view name, Attributes attributes);
  void Escape(std::string_view line);

  std::string Out;
  std::vector<std::string_view> Opened;  // names are literals
};

/// Half-units as a decimal number: 7 is "3.5".
[[nodiscard]] std::string InHalves(std::int64_t halves);

}  // namespace corvane
