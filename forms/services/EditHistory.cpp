#include "services/EditHistory.h"

#include <utility>

namespace corvane {
namespace {

constexpr std::size_t MaxSteps = 1000;  // about 4 KB each at most

std::optional<EditHistory::State> Move(std::vector<EditHistory::State>& from,
                                       std::vector<EditHistory::State>& to,
                                       EditHistory::State now) {
  if (from.empty()) return std::nullopt;
  to.push_back(std::move(now));
  EditHistory::State next = std::move(from.back());
  from.pop_back();
  return next;
}

}  // namespace

void EditHistory::Add(State before) {
  EndTyping();
  Forward.clear();
  if (Back.size() == MaxSteps) Back.erase(Back.begin());
  Back.push_back(std::move(before));
}

void EditHistory::AddTyped(State before) {
  const int at = before.Caret;
  if (at != TypingAt) Add(std::move(before));
  TypingAt = at + 1;
}

std::optional<EditHistory::State> EditHistory::Undo(State now) {
  EndTyping();
  return Move(Back, Forward, std::move(now));
}

std::optional<EditHistory::State> EditHistory::Redo(State now) {
  EndTyping();
  return Move(Forward, Back, std::move(now));
}

}  // namespace corvane
