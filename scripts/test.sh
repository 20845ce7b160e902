#!/usr/bin/env bash
# Builds Corvane and runs all tests: units, complete sessions, the real windows, the tour.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need test
build release
[ -x build/release/tests/corvane_tests ] || { echo "The tests were not built." >&2; exit 1; }
ctest --preset release -j "$(nproc)" --no-tests=error
