// A strict reader of XML, to hold what is drawn against: whatever it is given must be well-formed.
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
  std::string Fault;  // empty for a document that is well-formed

  /// All elements of this name and, unless it is empty, of a class that starts with `style`.
  [[nodiscard]] std::vector<XmlElement> All(std::string_view name,
                                            std::string_view style = {}) const {
    std::vector<XmlElement> found;
    std::ranges::copy_if(Elements, std::back_inserter(found), [&](const XmlElement& element) {
      return element.Name == name && (style.empty() || element["class"].starts_with(style));
    });
    return found;
  }
  /// The element of this id; a blank one if there is none or more than one.
  [[nodiscard]] XmlElement Id(std::string_view id) const {
    const auto has = [id](const XmlElement& element) { return element["id"] == id; };
    const auto found = std::ranges::find_if(Elements, has);
    return std::ranges::count_if(Elements, has) == 1 ? *found : XmlElement{};
  }
  /// The first element of this name in the one of this id.
  [[nodiscard]] XmlElement Child(std::string_view id, std::string_view name) const {
    for (const XmlElement& element : Elements) {
      const XmlElement& parent = Elements[element.Parent];
      if (element.Name == name && parent["id"] == id) return element;
    }
    return {};
  }

 private:
  void ReadNext() {
    if (!Rest.starts_with('<')) {
      const std::string text = Unescaped(Take(Rest.find('<')));
      if (!Opened.empty()) Elements[Opened.back()].Text += text;
      if (Opened.empty() && text != "\n") Fault = "text outside of all elements";
    } else if (Rest.starts_with("</")) {
      ReadEnd();
    } else {
      ReadStart();
    }
  }

  void ReadEnd() {
    const std::string end = Opened.empty() ? "" : "</" + Elements[Opened.back()].Name + ">";
    if (end.empty() || Take(end.size()) != end) {
      Fault = "closes what is not open: " + std::string(Rest.substr(0, 40));
      return;
    }
    Opened.pop_back();
  }

  void ReadStart() {
    if (Opened.empty() && !Elements.empty()) Fault = "a second root";
    Take(1);
    XmlElement element;
    element.Name = TakeName();
    if (!Opened.empty()) element.Parent = Opened.back();
    while (Fault.empty() && Rest.starts_with(' ')) ReadAttribute(element);
    const bool empty = Rest.starts_with('/');
    if (Take(empty ? 2 : 1) != (empty ? "/>" : ">")) Fault = "<" + element.Name + " does not end";
    // Their text is no markup.
    if (element.Name == "script" || element.Name == "style")
      element.Text = Take(Rest.find("</" + element.Name + ">"));
    Elements.push_back(element);
    if (!empty) Opened.push_back(Elements.size() - 1);
  }

  void ReadAttribute(XmlElement& element) {
    Take(1);
    const std::string name = TakeName();
    const bool opens = Take(2) == "=\"";
    const bool fresh = element.Attributes.emplace(name, Unescaped(Take(Rest.find('"')))).second;
    if (!opens || !fresh || Take(1) != "\"") Fault = "the attribute " + name;
  }

  std::string_view Take(std::size_t count) {
    const std::string_view taken = Rest.substr(0, count);
    Rest.remove_prefix(taken.size());
    return taken;
  }

  std::string TakeName() {
    const std::string name(Take(Rest.find_first_of(" =/>\"<")));
    if (name.empty()) Fault = "a name is missing";
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
