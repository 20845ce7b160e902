#!/usr/bin/env bash
# Builds with sanitizers and with clang++, runs all tests in both builds, and checks the format.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need check
for preset in asan clang; do
  echo "== $preset"
  build "$preset"
  ctest --preset "$preset" -j "$(nproc)" --no-tests=error
done

echo "== clang-format"
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
