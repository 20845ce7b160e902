#!/usr/bin/env bash
# Measures the program and its floors, and prints the table; rows over their limit are marked. With
# "windows" as the first argument it measures the window of the Windows program under Wine. Passes
# all other arguments to the benchmarks, for example --benchmark_filter=start.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need benchmark
build benchmark
run=(build/benchmark/benchmarks/corvane_benchmarks)
if [ "${1-}" = windows ]; then
  shift
  need windows
  programs=build/windows-benchmark
  cmake --preset windows -B $programs -DCORVANE_BENCHMARKS=ON -DCORVANE_TESTS=OFF >/dev/null
  cmake --build $programs --target corvane_program_window corvane_bare_window
  . scripts/wine.sh
  run=(on_screen "${run[@]}" $programs/benchmarks)
  wine --version
fi
echo "$(nproc) processors, $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -1)"
"${run[@]}" "$@"
