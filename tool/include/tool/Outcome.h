// What an operation of the tool gives back: a value, or the sentence that tells why there is none.
#pragma once

#include <optional>
#include <string>
#include <utility>

namespace corvane {

template <typename Value>
class [[nodiscard]] Outcome {
 public:
  Outcome(Value value) : Held(std::move(value)) {}
  [[nodiscard]] static Outcome Failed(std::string reason) {
    Outcome outcome;
    outcome.Why = std::move(reason);
    return outcome;
  }

  [[nodiscard]] bool Done() const { return Held.has_value(); }
  /// Only once Done() was asked.
  [[nodiscard]] Value& operator*() { return *Held; }
  [[nodiscard]] const Value& operator*() const { return *Held; }
  [[nodiscard]] Value* operator->() { return &*Held; }
  [[nodiscard]] const Value* operator->() const { return &*Held; }
  /// Names the file and the reason; empty if there is a value.
  [[nodiscard]] const std::string& Reason() const { return Why; }

 private:
  Outcome() = default;
  std::optional<Value> Held;
  std::string Why;
};

}  // namespace corvane
