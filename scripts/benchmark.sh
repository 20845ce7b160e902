#!/usr/bin/env bash
# Measures the program against its floors, prints the table, and fails where a row is over its limit.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need benchmark
build benchmark -- --quiet
echo "$(nproc) processors, $(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -1)"
exec build/benchmark/benchmarks/corvane_benchmarks "$@"
