#!/usr/bin/env bash
# Builds Corvane and starts it beside a sample game; without a display, plays a tour of it instead.
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
echo "There is no display here, so Corvane cannot be shown. This is a tour of it instead, played in"
echo "its real windows, off screen."
exec env QT_QPA_PLATFORM=offscreen "QT_LOGGING_RULES=*.warning=false" \
  build/release/tests/tour/corvane_tour build/tour
