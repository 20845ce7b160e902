// How both windows measure the selection of maps.
#pragma once

#include <unistd.h>

#include <QtWidgets>
#include <cstdio>

/// Prints the median time to select a map and paint the result, in microseconds, over maps 0 to 42
/// and back.
template <class Select>
void PrintSelectTime(const Select& select) {
  std::vector<double> times;
  for (int step = 1; step <= 2 * 84; ++step) {
    QElapsedTimer timer;
    timer.start();
    select(step % 84 <= 42 ? step % 84 : 84 - step % 84);
    QApplication::processEvents();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1000);
  }
  std::ranges::sort(times);
  ::dprintf(STDOUT_FILENO, "%f\n", times[84]);
}
