#!/usr/bin/env bash
# Measures the program against its floors and prints the table; a row over its limit is marked.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need benchmark
build benchmark
echo "$(nproc) processors, $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -1)"
exec build/benchmark/benchmarks/corvane_benchmarks "$@"
