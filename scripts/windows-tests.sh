#!/usr/bin/env bash
# scripts/windows-tests.sh PRESET...: runs the tests of Windows presets under this system's Wine, and
# prints the Wine version. Called by scripts/windows.sh, which builds them.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/wine.sh

# run_tests PRESET [ARGUMENT...]: runs ctest with these arguments and appends its log to tests.log.
run_tests() {
  local preset=$1
  shift
  on_screen ctest --preset "$preset" --no-tests=error "$@"
  cat "build/$preset/Testing/Temporary/LastTest.log" >>"build/$preset/tests.log"
}

for preset in "$@"; do
  rm -f "build/$preset/tests.log"
  run_tests "$preset" -R corvane_tests
  # Up to twice: while a window appears, the X server may release a key that is held down.
  run_tests "$preset" -R "^(corvane_display_tests|tour)$" --repeat until-pass:2
done
for preset in "$@"; do
  echo "== ran under $(wine --version): $preset"
  tr -d '\r' <"build/$preset/tests.log" |
    sed -nE 's/^Command: .*[\\/]([^"\\/]+\.exe)".*/\1:/p; /^\[==========\].* ran|^All steps passed/p'
done
