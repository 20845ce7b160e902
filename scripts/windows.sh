#!/usr/bin/env bash
# Builds the Windows program, 64 and 32 bits, runs its tests and the tour of its real windows under
# Wine, and leaves build/windows/Corvane.exe and a zip of it. For Debian and Ubuntu.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need windows
runs="windows"
if need_wine32; then
  runs="windows windows32"
else
  echo "Wine for 32-bit programs cannot be installed here: the 32-bit tests are built, not run."
fi
. scripts/wine.sh

# run_tests PRESET [ARGUMENT...]: runs the tests that the arguments of ctest choose, and keeps its log.
run_tests() {
  local preset=$1
  shift
  on_screen ctest --preset "$preset" --no-tests=error "$@"
  cat "build/$preset/Testing/Temporary/LastTest.log" >>"build/$preset/tests.log"
}

for preset in windows windows32; do
  echo "== $preset: build and tests"
  build "$preset"
  [[ " $runs " == *" $preset "* ]] || continue
  rm -f "build/$preset/tests.log"
  run_tests "$preset" -R corvane_tests
  # Twice at most: as a window comes up, the screen may take back a key that is held down already.
  run_tests "$preset" -E corvane_tests --repeat until-pass:2
done

# Linked twice, the program is the same to the byte.
for preset in windows windows32; do
  first=$(sha256sum <"build/$preset/Corvane.exe")
  rm "build/$preset/Corvane.exe"
  build "$preset" --target corvane
  [ "$first" = "$(sha256sum <"build/$preset/Corvane.exe")" ] ||
    { echo "$preset: the same sources made another program" >&2; exit 1; }
done

rm -f build/Corvane-windows.zip
zip -qj build/Corvane-windows.zip build/windows/Corvane.exe README.md

for preset in $runs; do
  echo "== ran under Wine: $preset"
  tr -d '\r' <"build/$preset/tests.log" |
    sed -nE 's/^Command: .*[\\/]([^"\\/]+\.exe)".*/\1:/p; /^\[==========\].* ran|^All came out/p'
done
for preset in windows windows32; do
  echo "== $preset"
  ls -l "build/$preset/Corvane.exe"
  imports=$(x86_64-w64-mingw32-objdump -p "build/$preset/Corvane.exe" | sed -n 's/.*DLL Name: //p' | sort -f)
  # shellcheck disable=SC2086 # one word a name
  echo "imports:" $imports
done
ls -l build/Corvane-windows.zip
