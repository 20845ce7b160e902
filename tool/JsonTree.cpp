#include "JsonTree.h"

#include <algorithm>
#include <vector>

namespace corvane {
namespace {

using Json = nlohmann::json;

constexpr std::size_t MaxDepth = 8;  // the documents need four

std::string LineAndColumn(std::string_view text, std::size_t bytesRead) {
  const std::string_view read = text.substr(0, std::min(bytesRead, text.size()));
  const std::size_t start = read.rfind('\n') + 1;  // 0 in the first line
  return "line " + std::to_string(1 + std::ranges::count(read, '\n')) + ", column " +
         std::to_string(std::max<std::size_t>(read.size() - start, 1));
}

// Receives the events of the parser. Returning false stops it.
class TreeBuilder : public nlohmann::json_sax<Json> {
 public:
  explicit TreeBuilder(std::string_view text) : Text(text) {}

  bool null() override { return Put(nullptr); }
  bool boolean(bool value) override { return Put(value); }
  bool number_integer(number_integer_t value) override { return Put(value); }
  bool number_unsigned(number_unsigned_t value) override { return Put(value); }
  bool number_float(number_float_t value, const string_t&) override { return Put(value); }
  bool string(string_t& value) override { return Put(std::move(value)); }
  bool binary(binary_t&) override { return false; }  // never occurs in text
  bool start_object(std::size_t) override { return Enter(Json::object()); }
  bool start_array(std::size_t) override { return Enter(Json::array()); }
  bool end_object() override { return Leave(); }
  bool end_array() override { return Leave(); }

  bool key(string_t& name) override {
    Open.back().Key = name;
    if (!Open.back().Node->contains(name)) return true;
    return Refuse("duplicate key");
  }

  bool parse_error(std::size_t bytesRead, const std::string&, const Json::exception&) override {
    return Refuse("invalid JSON at " + LineAndColumn(Text, bytesRead));
  }

  Json Root;
  std::string Fault;

 private:
  struct OpenNode {
    Json* Node;
    std::string Key;  // of the current member of an object
  };

  bool Put(Json value) { return Add(std::move(value)) != nullptr; }

  Json* Add(Json value) {
    if (Open.empty()) return &(Root = std::move(value));
    auto& [parent, key] = Open.back();
    if (parent->is_object()) return &((*parent)[key] = std::move(value));
    parent->push_back(std::move(value));
    return &parent->back();
  }

  bool Enter(Json container) {
    if (Open.size() == MaxDepth) return Refuse("nested too deeply");
    Open.push_back({Add(std::move(container)), {}});
    return true;
  }

  bool Leave() {
    Open.pop_back();
    return true;
  }

  // The place of the next value.
  [[nodiscard]] std::string Pointer() const {
    std::string pointer;
    for (std::size_t level = 0; level < Open.size(); ++level) {
      const auto& [node, key] = Open[level];
      const std::size_t last = level + 1 < Open.size() ? 1 : 0;  // already in its parent
      pointer += PointerPart(node->is_object() ? key : std::to_string(node->size() - last));
    }
    return pointer;
  }

  bool Refuse(const std::string& reason) {
    if (Fault.empty()) Fault = (Open.empty() ? "/" : Pointer()) + ": " + reason;
    return false;
  }

  std::string_view Text;
  std::vector<OpenNode> Open;
};

}  // namespace

std::string PointerPart(std::string_view key) {
  std::string part = "/";
  for (const char c : key) {
    if (c == '~' || c == '/') {
      part += c == '~' ? "~0" : "~1";
    } else {
      part += c;
    }
  }
  return part;
}

Result<Json, std::string> ParseTree(std::string_view text) {
  TreeBuilder builder(text);
  // The parser stops at a NUL and would ignore what follows it.
  if (const std::size_t nul = text.find('\0'); nul != text.npos)
    return "/: invalid JSON at " + LineAndColumn(text, nul + 1);
  if (Json::sax_parse(text, &builder)) return std::move(builder.Root);
  return builder.Fault;
}

}  // namespace corvane
