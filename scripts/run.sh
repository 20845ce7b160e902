#!/usr/bin/env bash
# Builds Corvane and starts it in the folder of a sample game; without a display, runs the tour.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need build
build release --target corvane corvane-sample corvane_tour

game=build/sample-game
[ -e "$game" ] || build/release/samples/corvane-sample "$game"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  program=$PWD/build/release/corvane
  cd "$game"
  exec "$program"
fi
echo "No display was found, so Corvane cannot be shown. Running an automated tour of its windows"
echo "off screen instead."
exec env QT_QPA_PLATFORM=offscreen "QT_LOGGING_RULES=*.warning=false" \
  build/release/tests/tour/corvane_tour build/tour
