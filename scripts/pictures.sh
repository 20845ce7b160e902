#!/usr/bin/env bash
# Regenerates the pictures in docs/pictures: the windows of both programs from their tours, and the
# strategic layer of the sample game from the browser. For Debian and Ubuntu.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need browser
need windows
build release --target corvane_tour corvane-tool corvane-sample
build windows --target corvane_tour
. scripts/wine.sh

QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*.warning=false' \
  build/release/tests/tour/corvane_tour build/pictures/linux >/dev/null
on_screen wine build/windows/tests/tour/corvane_tour.exe 'build\pictures\windows' >/dev/null
for picture in main-window add-connection edit-map-btd findings; do
  cp "build/pictures/linux/$picture.png" "docs/pictures/$picture.png"
  cp "build/pictures/windows/$picture.png" "docs/pictures/$picture-windows.png"
done

build/release/samples/corvane-sample build/pictures/sample >/dev/null
build/release/tool/corvane-tool draw build/pictures/sample/CC4.EXE build/pictures/layer.svg
profile=$(mktemp -d)
trap 'rm -rf "$profile"; wineserver -k || true' EXIT
chromium --headless --no-sandbox --disable-gpu --no-first-run --disable-background-networking \
  --user-data-dir="$profile" --hide-scrollbars --window-size=888,770 \
  --screenshot="$PWD/docs/pictures/strategic-layer.png" "file://$PWD/build/pictures/layer.svg" \
  2>/dev/null
ls -l docs/pictures
