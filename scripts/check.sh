#!/usr/bin/env bash
# Builds with sanitizers and with clang++ and runs all tests in both; then format and lint.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need check
for preset in asan clang; do
  echo "== $preset"
  build "$preset" -- --quiet
  ctest --preset "$preset" -j "$(nproc)"
done

echo "== clang-format"
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror

echo "== clang-tidy"
git ls-files '*.cpp' | grep -Ev '^(tests|fuzz|benchmarks|tour)/|/windows/' |
  xargs -P "$(nproc)" -n 4 clang-tidy -p build/clang --quiet --warnings-as-errors='*'
