// The result of an operation that can fail: a value or the reason why there is none, never both.
#pragma once

#include <optional>
#include <utility>

#include "base/Failure.h"

namespace corvane {

template <class Value = void, class Reason = Failure>
class [[nodiscard]] Result {
 public:
  Result(Value value) : Held(std::move(value)) {}
  Result(Reason reason) : Failed(std::move(reason)) {}

  [[nodiscard]] bool Done() const { return Held.has_value(); }
  /// The value; there must be one.
  [[nodiscard]] Value& operator*() { return *Held; }
  [[nodiscard]] const Value& operator*() const { return *Held; }
  [[nodiscard]] Value* operator->() { return &*Held; }
  [[nodiscard]] const Value* operator->() const { return &*Held; }
  /// The failure; there must be one.
  [[nodiscard]] const Reason& Error() const { return Failed; }

 private:
  std::optional<Value> Held;
  Reason Failed{};  // meaningless if there is a value
};

template <class Reason>
class [[nodiscard]] Result<void, Reason> {
 public:
  Result() = default;
  Result(Reason reason) : Failed(std::move(reason)) {}

  [[nodiscard]] bool Done() const { return !Failed; }
  /// The failure; there must be one.
  [[nodiscard]] const Reason& Error() const { return *Failed; }

 private:
  std::optional<Reason> Failed;
};

}  // namespace corvane
