// Shared by the fuzz drivers. A violated property aborts the run.
#pragma once

#include <cstdio>
#include <cstdlib>

#include "TestFolder.h"
#include "data/TableImages.h"
#include "rules/ConsistencyCheck.h"

namespace corvane {

void Run(const TestFolder& folder, const std::string& input);  // each driver defines its own

inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "VIOLATED: %s\n", property);
  std::abort();
}

/// The contents of a file after its first `size` bytes were read and written back.
inline std::string ZeroExtended(std::string bytes, std::size_t size) {
  bytes.resize(std::max(bytes.size(), size), '\0');
  return bytes;
}

}  // namespace corvane

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  static const TestFolder folder;
  corvane::Run(folder, {data, size});
  return 0;
}
