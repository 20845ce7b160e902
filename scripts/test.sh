#!/usr/bin/env bash
# Builds Corvane and runs all of its tests: units, whole sessions, the real windows, the tour.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need test
build release -- --quiet
ctest --preset release -j "$(nproc)"
