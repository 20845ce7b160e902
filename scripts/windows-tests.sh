#!/usr/bin/env bash
# scripts/windows-tests.sh PRESET...: runs the tests of built Windows presets under this system's Wine,
# and tells which Wine ran which. Called by scripts/windows.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/wine.sh

# run_tests PRESET [ARGUMENT...]: runs the tests that the arguments of ctest choose, and keeps its log.
run_tests() {
  local preset=$1
  shift
  on_screen ctest --preset "$preset" --no-tests=error "$@"
  cat "build/$preset/Testing/Temporary/LastTest.log" >>"build/$preset/tests.log"
}

for preset in "$@"; do
  rm -f "build/$preset/tests.log"
  run_tests "$preset" -R corvane_tests
  # Twice at most: as a window comes up, the screen may take back a key that is held down already.
  run_tests "$preset" -E corvane_tests --repeat until-pass:2
done
for preset in "$@"; do
  echo "== ran under $(wine --version): $preset"
  tr -d '\r' <"build/$preset/tests.log" |
    sed -nE 's/^Command: .*[\\/]([^"\\/]+\.exe)".*/\1:/p; /^\[==========\].* ran|^All came out/p'
done
