#!/usr/bin/env bash
# Reads all code of the program with clang-tidy; takes some minutes.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need check
build clang
git ls-files '*.cpp' | grep -Ev '^(tests|fuzz|benchmarks|tour)/|/windows/' |
  xargs -P "$(nproc)" -n 4 clang-tidy -p build/clang --quiet --warnings-as-errors='*'
