#!/usr/bin/env bash
# scripts/windows.sh [--debian13]: builds the Windows program, 64 and 32 bits, runs its tests and the
# tour of its real windows under Wine, and leaves build/windows/Corvane.exe. Where this system has no
# Wine for 32 bits, the 32-bit tests are not built, unless --debian13 runs the tests of both in a clean
# installation of Debian 13, which has it; that takes root. For Debian and Ubuntu.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need windows
presets="windows windows32"
echo "== windows: build"
build windows
echo "== windows32: build"
if installed wine32:i386 || [ "${1-}" = --debian13 ]; then
  build windows32
else
  build windows32 --target corvane corvane-tool
fi
if installed wine32:i386; then
  scripts/windows-tests.sh windows windows32
else
  scripts/windows-tests.sh windows
  [ "${1-}" = --debian13 ] ||
    echo "There is no Wine for 32-bit programs here; with --debian13 their tests run in another system."
fi
if [ "${1-}" = --debian13 ]; then
  need roots
  . scripts/roots.sh
  new_root debian13 wine
  in_root wine root dpkg --add-architecture i386
  in_root wine root apt-get update -qq
  in_root wine root apt-get install -qq -y --no-install-recommends \
    wine wine64 wine32:i386 fonts-wine xvfb xauth cmake >/dev/null
  shared=$PWD in_root wine root env CORVANE_WINEPREFIX="$PWD/build/wine-debian13" \
    "$PWD/scripts/windows-tests.sh" windows windows32
  remove_root wine
fi

# Linked twice, the program is the same to the byte.
for preset in $presets; do
  first=$(sha256sum <"build/$preset/Corvane.exe")
  rm "build/$preset/Corvane.exe"
  build "$preset" --target corvane
  [ "$first" = "$(sha256sum <"build/$preset/Corvane.exe")" ] ||
    { echo "$preset: the same sources made another program" >&2; exit 1; }
done

for preset in $presets; do
  echo "== $preset"
  ls -l "build/$preset/Corvane.exe"
  imports=$(x86_64-w64-mingw32-objdump -p "build/$preset/Corvane.exe" | sed -n 's/.*DLL Name: //p' | sort -f)
  # shellcheck disable=SC2086 # one word a name
  echo "imports:" $imports
done
