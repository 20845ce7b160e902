// What an operation that can fail gives back: a value or a failure, never both.
#pragma once

#include <optional>
#include <utility>

#include "base/Failure.h"

namespace corvane {

template <class Value = void>
class [[nodiscard]] Result {
 public:
  Result(Value value) : Held(std::move(value)) {}
  Result(Failure failure) : Failed(std::move(failure)) {}

  [[nodiscard]] bool Done() const { return Held.has_value(); }
  /// The value; there must be one.
  [[nodiscard]] Value& operator*() { return *Held; }
  [[nodiscard]] const Value& operator*() const { return *Held; }
  [[nodiscard]] Value* operator->() { return &*Held; }
  [[nodiscard]] const Value* operator->() const { return &*Held; }
  /// The failure; there must be one.
  [[nodiscard]] const Failure& Error() const { return Failed; }

 private:
  std::optional<Value> Held;
  Failure Failed;  // means nothing beside a value
};

template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Failure failure) : Failed(std::move(failure)) {}

  [[nodiscard]] bool Done() const { return !Failed; }
  /// The failure; there must be one.
  [[nodiscard]] const Failure& Error() const { return *Failed; }

 private:
  std::optional<Failure> Failed;
};

}  // namespace corvane
