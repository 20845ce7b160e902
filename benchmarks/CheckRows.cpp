#include <numeric>

#include "Groups.h"
#include "Rows.h"
#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"
#include "rules/ConsistencyCheck.h"

namespace corvane {
namespace {

unsigned SumOf(const void* table, std::size_t size) {
  const auto* bytes = static_cast<const unsigned char*>(table);
  return std::accumulate(bytes, bytes + size, 0U);
}

// Causes a finding for every exit, map slot and arrow slot.
void BreakTables() {
  StrMap = {};
  StrArrow = {};
  VLDest = {};
  for (int cell = 0; cell < MapSlotCount * MapSlotCount; ++cell)
    MapConnections(cell % MapSlotCount, cell / MapSlotCount) = NoConnection;
}

// The findings, split between words and numbers as the check composes them.
std::vector<std::string> PiecesOf(const std::string& findings) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  std::vector<std::string> pieces;
  for (const char c : findings) {
    if (pieces.empty() || isDigit(c) != isDigit(pieces.back().back()) || c == '\r')
      pieces.emplace_back();
    pieces.back() += c;
  }
  return pieces;
}

std::string Joined(const std::vector<std::string>& pieces, std::size_t size) {
  std::string text;
  text.reserve(size);
  for (const std::string& piece : pieces) text += piece;
  return text;
}

}  // namespace

void AddCheckRows(const std::string& folder) {
  BreakTables();
  const std::string findings = CheckTables();
  Require(std::ranges::count(findings, '\n') == 554, "causing 554 findings");
  Open(folder);
  Require(CheckTables().empty(), "the check of the sample game");
  const auto check = [] { benchmark::DoNotOptimize(CheckTables()); };
  const auto sum = [] {
    benchmark::DoNotOptimize(SumOf(&VLDest, sizeof VLDest) + SumOf(&Tables, sizeof Tables));
  };
  const auto append = [pieces = PiecesOf(findings), size = findings.size()] {
    benchmark::DoNotOptimize(Joined(pieces, size));
  };
  const auto on = [=](const std::function<void()>& prepare, const auto& work) {
    return [=] {
      prepare();
      work();
      return Micros(50, work);
    };
  };
  const auto open = std::bind_front(Open, folder);
  AddRow("Check tables without findings (us)", on(open, check),
         "one pass over the bytes of the tables", on(open, sum), 1.5, 1001);
  AddRow("Check tables with 554 findings (us)", on(BreakTables, check),
         "the same pieces appended to a reserved buffer", on(BreakTables, append), 1.5, 1001);
}

}  // namespace corvane
