// Findings and warnings with the slot of each, for listings and for the picture.
#pragma once

#include <string>
#include <vector>

namespace corvane {

enum class MarkKind { Finding, Warning };

struct Mark {
  MarkKind Kind = MarkKind::Finding;
  std::string Text;  // one line
  int Map = -1;      // map slot; -1 for none
  int Arrow = -1;    // arrow slot; -1 for none
};

using Marks = std::vector<Mark>;

}  // namespace corvane
