#!/usr/bin/env bash
# scripts/windows.sh [--debian13]: builds the Windows program, 64-bit and 32-bit, and runs its tests
# and the tour of its real windows under Wine. The program is build/windows/Corvane.exe. If this
# system has no 32-bit Wine, it skips the 32-bit tests. With --debian13, it then also runs both sets of
# tests in a clean installation of Debian 13, which needs root. For Debian and Ubuntu.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need windows
presets="windows windows32"
echo "== windows: build"
build windows
ctest --preset windows -R levels --no-tests=error
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
    echo "This system has no 32-bit Wine; --debian13 runs the 32-bit tests in a Debian 13 installation."
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

# Linking twice must give byte-identical programs.
for preset in $presets; do
  first=$(sha256sum <"build/$preset/Corvane.exe")
  rm "build/$preset/Corvane.exe"
  build "$preset" --target corvane
  [ "$first" = "$(sha256sum <"build/$preset/Corvane.exe")" ] ||
    { echo "$preset: two links of the same sources differ" >&2; exit 1; }
done

for preset in $presets; do
  echo "== $preset"
  ls -l "build/$preset/Corvane.exe"
  imports=$(x86_64-w64-mingw32-objdump -p "build/$preset/Corvane.exe" | sed -n 's/.*DLL Name: //p' | sort -f)
  # shellcheck disable=SC2086 # one word per name
  echo "imports:" $imports
done
