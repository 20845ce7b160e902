#!/usr/bin/env bash
# Builds the Windows program, 64 and 32 bits, runs its tests and the tour of its real windows under
# Wine, and leaves build/windows/Corvane.exe and a zip of it. For Debian and Ubuntu.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need windows
runs="windows"
if need_wine32; then
  runs="windows windows32"
else
  echo "Wine for 32-bit programs cannot be installed here: the 32-bit tests are built, not run."
fi

# A prefix of its own: the tests write into its registry.
export WINEPREFIX=$PWD/build/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
mkdir -p "$WINEPREFIX"
[ -f "$WINEPREFIX/system.reg" ] || wineboot --init >build/wine/boot.log 2>&1
# Wine draws with these where it has no others.
cp -n /usr/share/wine/fonts/*.ttf build/wine/drive_c/windows/Fonts/ 2>/dev/null || true
trap 'wineserver -k || true' EXIT

for preset in windows windows32; do
  echo "== $preset: build and tests"
  build "$preset" -- --quiet
  [[ " $runs " != *" $preset "* ]] ||
    xvfb-run -a -s "-screen 0 800x600x24" ctest --preset "$preset"
done

echo "== tour of the real windows under Wine"
xvfb-run -a -s "-screen 0 1024x768x24" \
  wine build/windows/tour/corvane_tour.exe 'build\tour-windows' | tr -d '\r'

for preset in windows windows32; do
  echo "== $preset"
  ls -l "build/$preset/Corvane.exe"
  imports=$(objdump -p "build/$preset/Corvane.exe" | sed -n 's/.*DLL Name: //p' | sort -f)
  # shellcheck disable=SC2086 # one word a name
  echo "imports:" $imports
done
rm -f build/Corvane-windows.zip
zip -qj build/Corvane-windows.zip build/windows/Corvane.exe README.md
ls -l build/Corvane-windows.zip
