#include "Markup.h"

#include <algorithm>

#include "tool/Printable.h"

namespace corvane {
namespace {

// True for a character that needs no escape, which nearly all are.
bool IsPlain(char c) {
  return c >= ' ' && c <= '~' && c != '&' && c != '<' && c != '>' && c != '"' && c != '\'';
}

}  // namespace

void Markup::Open(std::string_view name, Attributes attributes) {
  Begin(name, attributes);
  Out += ">\n";
  Opened.push_back(name);
}

void Markup::Close() {
  Out.append("</").append(Opened.back()).append(">\n");
  Opened.pop_back();
}

void Markup::Leaf(std::string_view name, Attributes attributes) {
  Begin(name, attributes);
  Out += "/>\n";
}

void Markup::Leaf(std::string_view name, Attributes attributes, std::string_view text) {
  Begin(name, attributes);
  Out += ">";
  Text(text);
  Out.append("</").append(name).append(">\n");
}

void Markup::Text(std::string_view text) {
  for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
    Escape(text.substr(0, end));
    Out += '\n';
    text.remove_prefix(end + 1);
  }
  Escape(text);
}

std::string Markup::Take() {
  while (!Opened.empty()) Close();
  return std::move(Out);
}

void Markup::Begin(std::string_view name, Attributes attributes) {
  Out.append("<").append(name);
  for (const Attribute& attribute : attributes) {
    Out.append(" ").append(attribute.Name).append("=\"");
    Escape(attribute.Value);
    Out += '"';
  }
}

void Markup::Escape(std::string_view line) {
  const auto rest = std::ranges::find_if_not(line, IsPlain);
  Out.append(line.begin(), rest);
  if (rest == line.end()) return;
  for (const char c : Printable({rest, line.end()})) {
    switch (c) {
      case '&':
        Out += "&amp;";
        break;
      case '<':
        Out += "&lt;";
        break;
      case '>':
        Out += "&gt;";
        break;
      case '"':
        Out += "&quot;";
        break;
      case '\'':
        Out += "&#39;";
        break;
      default:
        Out += c;
    }
  }
}

std::string FormatHalves(std::int64_t halves) {
  const std::int64_t size = halves < 0 ? -halves : halves;
  return (halves < 0 ? "-" : "") + std::to_string(size / 2) + (size % 2 == 0 ? "" : ".5");
}

}  // namespace corvane
