// Findings and warnings with the place that each belongs to, for listings and for the picture.
#pragma once

#include <string>
#include <vector>

namespace corvane {

enum class MarkKind { Finding, Warning };

struct Mark {
  MarkKind Kind = MarkKind::Finding;
  std::string Text;  // one line
  int Map = -1;      // the map slot that it is about; -1 for none
  int Arrow = -1;    // the arrow slot that it is about; -1 for none
};

using Marks = std::vector<Mark>;

}  // namespace corvane
