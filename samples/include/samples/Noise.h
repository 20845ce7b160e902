// Pseudo-random bytes, the same in every run and on every system.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

class Noise {
 public:
  explicit Noise(std::uint32_t seed) : State(seed) {}

  /// A number from 0 to `max`.
  int UpTo(int max) { return static_cast<int>(Next() % (static_cast<std::uint32_t>(max) + 1)); }

  /// Never zero, so that a lost byte shows.
  std::uint8_t Byte() { return static_cast<std::uint8_t>(1 + UpTo(254)); }

  std::string Bytes(std::size_t count) {
    std::string bytes;
    while (bytes.size() < count) bytes += static_cast<char>(Byte());
    return bytes;
  }

 private:
  std::uint32_t Next() {
    State = State * 1664525 + 1013904223;
    return State >> 8;  // the low bits have short periods
  }

  std::uint32_t State;
};

}  // namespace corvane
