// A strict XML parser that checks that pictures and pages are well-formed.
#pragma once

#include <algorithm>
#include <map>
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
    if (Rest.starts_with("<!DOCTYPE html>")) Rest.remove_prefix(15);
    while (Fault.empty() && !Rest.empty()) ReadNext();
    if (Fault.empty() && !Opened.empty()) Fault = Elements[Opened.back()].Name + " stays open";
  }

  std::vector<XmlElement> Elements;
  std::string Fault;  // empty if the document is well-formed

  /// All elements of this name and, unless it is empty, of a class that starts with `style`.
  [[nodiscard]] std::vector<XmlElement> All(std::string_view name,
                                            std::string_view style = {}) const {
    std::vector<XmlElement> found;
    std::ranges::copy_if(Elements, std::back_inserter(found), [&](const XmlElement& element) {
      return element.Name == name && (style.empty() || element["class"].starts_with(style));
    });
    return found;
  }
  /// The element with this id; a blank one if there is none or more than one.
  [[nodiscard]] XmlElement Id(std::string_view id) const {
    const auto has = [id](const XmlElement& element) { return element["id"] == id; };
    const auto found = std::ranges::find_if(Elements, has);
    return std::ranges::count_if(Elements, has) == 1 ? *found : XmlElement{};
  }
  /// The first element of this name in the element with this id.
  [[nodiscard]] XmlElement Child(std::string_view id, std::string_view name) const {
    for (const XmlElement& element : Elements) {
      const XmlElement& parent = Elements[element.Parent];
      if (element.Name == name && parent["id"] == id) return element;
    }
    return {};
  }

 private:
  void ReadNext() {
    if (!Rest.starts_with('<')) return ReadText(Rest.substr(0, Rest.find('<')));
    if (Rest.starts_with("</")) return ReadEnd();
    ReadStart();
  }

  void ReadText(std::string_view raw) {
    Rest.remove_prefix(raw.size());
    const std::string text = Unescaped(raw);
    if (!Opened.empty()) {
      Elements[Opened.back()].Text += text;
    } else if (text.find_first_not_of("\n") != text.npos) {
      Fault = "text outside of all elements";
    }
  }

  void ReadEnd() {
    const std::string_view name = Rest.substr(2, Rest.find('>') - 2);
    if (Opened.empty() || Elements[Opened.back()].Name != name) {
      Fault = "</" + std::string(name) + "> closes what is not open";
      return;
    }
    Opened.pop_back();
    Rest.remove_prefix(name.size() + 3);
  }

  void ReadStart() {
    Rest.remove_prefix(1);
    XmlElement element;
    element.Name = TakeName();
    if (!Opened.empty()) element.Parent = Opened.back();
    if (Opened.empty() && !Elements.empty()) Fault = "a second root";
    while (Fault.empty() && Rest.starts_with(' ')) ReadAttribute(element);
    const bool empty = Rest.starts_with('/');
    if (empty) Rest.remove_prefix(1);
    if (!Rest.starts_with('>')) Fault = "<" + element.Name + " does not end";
    if (!Fault.empty()) return;
    Rest.remove_prefix(1);
    Elements.push_back(element);
    if (!empty) Opened.push_back(Elements.size() - 1);
    if (!empty && (element.Name == "script" || element.Name == "style")) ReadRaw(element.Name);
  }

  // Reads to the end of an element whose text is not markup.
  void ReadRaw(const std::string& name) {
    const std::size_t end = Rest.find("</" + name + ">");
    if (end == Rest.npos) Fault = name + " does not end";
    Elements.back().Text = Rest.substr(0, end);
    Rest.remove_prefix(std::min(end, Rest.size()));
  }

  void ReadAttribute(XmlElement& element) {
    Rest.remove_prefix(1);
    const std::string name = TakeName();
    const std::size_t end = Rest.starts_with("=\"") ? Rest.find('"', 2) : Rest.npos;
    if (end == Rest.npos || element.Attributes.contains(name)) {
      Fault = "the attribute " + name + " of " + element.Name;
      return;
    }
    element.Attributes[name] = Unescaped(Rest.substr(2, end - 2));
    Rest.remove_prefix(end + 1);
  }

  std::string TakeName() {
    const std::size_t end = std::min(Rest.find_first_of(" =/>\"<"), Rest.size());
    const std::string name(Rest.substr(0, end));
    if (name.empty()) Fault = "a name is missing";
    Rest.remove_prefix(end);
    return name;
  }

  std::string Unescaped(std::string_view raw) {
    std::string text;
    while (!raw.empty()) {
      if (raw.starts_with('&')) {
        text += TakeEntity(raw);
        continue;
      }
      const Character character = NextCharacter(raw);
      const bool allowed = character.Valid && character.Bytes != "<" &&
                           (character.Code == '\n' || !IsUnprintable(character.Code));
      if (!allowed) Fault = "not a character: " + Printable(character.Bytes);
      text += character.Bytes;
    }
    return text;
  }

  char TakeEntity(std::string_view& raw) {
    constexpr std::pair<std::string_view, char> Entities[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&#39;", '\''}};
    for (const auto& [entity, character] : Entities) {
      if (!raw.starts_with(entity)) continue;
      raw.remove_prefix(entity.size());
      return character;
    }
    Fault = "an unknown entity";
    raw.remove_prefix(1);
    return '&';
  }

  std::string_view Rest;
  std::vector<std::size_t> Opened;
};

}  // namespace corvane
