// A strict reader of the XML that the tool draws: it accepts well-formed documents only.
#pragma once

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tool/Printable.h"

namespace corvane {

struct XmlElement {
  std::string Name;
  std::map<std::string, std::string> Attributes;
  std::string Text;  // directly in it
  std::size_t Parent = 0;

  [[nodiscard]] std::string operator[](const std::string& name) const {
    const auto found = Attributes.find(name);
    return found == Attributes.end() ? "(none)" : found->second;
  }
  [[nodiscard]] int Number(const std::string& name) const { return std::stoi((*this)[name]); }
};

class Xml {
 public:
  explicit Xml(std::string_view text) : Rest(text) {
    try {
      Skip("<!DOCTYPE html>\n");
      while (!Rest.empty()) ReadTag();
      Require(Open.empty(), "an element stays open");
    } catch (const std::exception& fault) {
      Fault = fault.what() + std::string(" before ") + Printable(Rest.substr(0, 40));
    }
  }

  std::vector<XmlElement> Elements;
  std::string Fault;  // empty for a well-formed document

  /// All elements of this name and, unless it is empty, of a class that starts with `style`.
  [[nodiscard]] std::vector<XmlElement> All(std::string_view name,
                                            std::string_view style = {}) const {
    std::vector<XmlElement> found;
    std::ranges::copy_if(Elements, std::back_inserter(found), [&](const XmlElement& element) {
      return element.Name == name && (style.empty() || element["class"].starts_with(style));
    });
    return found;
  }
  /// The element of this id; an empty one if there is none or more than one.
  [[nodiscard]] XmlElement Id(std::string_view id) const {
    const auto has = [id](const XmlElement& element) { return element["id"] == id; };
    const auto found = std::ranges::find_if(Elements, has);
    return std::ranges::count_if(Elements, has) == 1 ? *found : XmlElement{};
  }
  /// The first element of this name in the one of this id.
  [[nodiscard]] XmlElement Child(std::string_view id, std::string_view name) const {
    for (const XmlElement& element : All(name))
      if (Elements[element.Parent]["id"] == id) return element;
    return {};
  }

 private:
  static void Require(bool holds, const char* fault) {
    if (!holds) throw std::runtime_error(fault);
  }

  // Reads a tag and the text after it.
  void ReadTag() {
    Require(Skip("<"), "text outside of all elements");
    Skip("/") ? ReadEnd() : ReadStart();
    if (!Open.empty()) Elements[Open.back()].Text += Decode(Cut(Rest.find('<')));
    if (Open.empty()) Skip("\n");
  }

  void ReadEnd() {
    Require(!Open.empty() && Skip(Elements[Open.back()].Name + ">"), "closes what is not open");
    Open.pop_back();
  }

  void ReadStart() {
    Require(Open.empty() == Elements.empty(), "a second root");
    XmlElement element;
    element.Name = CutName();
    if (!Open.empty()) element.Parent = Open.back();
    while (Skip(" ")) {
      const std::string name = CutName();
      Require(Skip("=\""), "an attribute without a value");
      const std::string value = Decode(Cut(Rest.find('"')));
      Require(Skip("\"") && element.Attributes.emplace(name, value).second, "a bad attribute");
    }
    const bool empty = Skip("/");
    Require(Skip(">"), "a tag does not end");
    if (element.Name == "script" || element.Name == "style")  // their text is no markup
      element.Text = Cut(Rest.find("</" + element.Name));
    if (!empty) Open.push_back(Elements.size());
    Elements.push_back(element);
  }

  bool Skip(std::string_view text) {
    const bool found = Rest.starts_with(text);
    if (found) Rest.remove_prefix(text.size());
    return found;
  }

  std::string Cut(std::size_t end) {
    const std::string_view head = Rest.substr(0, end);
    Rest.remove_prefix(head.size());
    return std::string(head);
  }

  std::string CutName() {
    const std::string name = Cut(Rest.find_first_of(" =/>\"<"));
    Require(!name.empty(), "a name is missing");
    return name;
  }

  static std::string Decode(std::string_view raw) {
    static const std::map<std::string_view, char> Entities = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"#39", '\''}};
    std::string text;
    while (!raw.empty()) {
      const Character next = NextCharacter(raw);
      Require(next.Valid && next.Bytes != "<", "not a character");
      Require(next.Code == '\n' || !IsUnprintable(next.Code), "an unprintable character");
      if (next.Code != '&') {
        text += next.Bytes;
        continue;
      }
      const std::string_view entity = raw.substr(0, raw.find(';'));
      text += Entities.at(entity);  // throws if it is unknown
      raw.remove_prefix(entity.size() + 1);
    }
    return text;
  }

  std::string_view Rest;
  std::vector<std::size_t> Open;
};

}  // namespace corvane
