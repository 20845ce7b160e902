// Rows of the table: a job of the program and its floor, the least that the same job can cost. The
// two run alternately, and only their ratio counts, because a busy machine slows both.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

namespace corvane {

/// Does its work and returns the cost, in the unit that its row names.
using Job = std::function<double()>;

/// Exits if a measured job failed.
inline void Require(bool done, const char* what) {
  if (done) return;
  std::fprintf(stderr, "failed: %s\n", what);
  std::exit(2);
}

/// The average time of `work` in microseconds.
template <class Work>
double Micros(int times, const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  for (int time = 0; time < times; ++time) work();
  const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / times;
}

inline double Quartile(std::vector<double> values, std::size_t quarter) {
  std::ranges::sort(values);
  return values[(values.size() - 1) * quarter / 4];
}

/// Adds a row, which prints itself after `rounds` rounds.
inline void AddRow(const char* job, const Job& ours, const char* floor, const Job& least,
                   double maxRatio, int rounds) {
  const auto measure = [=](benchmark::State& state) {
    std::vector<double> costs, floors, ratios;
    least();  // warm up both, so that neither pays for one-time work
    ours();
    for ([[maybe_unused]] auto round : state) {
      const bool first = ratios.size() % 2 == 0;
      if (first) costs.push_back(ours());
      floors.push_back(least());
      if (!first) costs.push_back(ours());
      ratios.push_back(costs.back() / floors.back());
    }
    // OVER requires three rounds in four above the limit: a median alone can be noise.
    const bool over = Quartile(ratios, 1) > maxRatio;
    const char* result = over ? "OVER" : Quartile(ratios, 2) > maxRatio ? "unclear" : "ok";
    std::printf("| %s | %.1f | %s | %.1f | %.2f | %.2f | %s |\n", job, Quartile(costs, 2), floor,
                Quartile(floors, 2), Quartile(ratios, 2), maxRatio, result);
    std::fflush(stdout);
  };
  benchmark::RegisterBenchmark(job, measure)->Iterations(rounds);
}

}  // namespace corvane
