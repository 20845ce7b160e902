#!/usr/bin/env bash
# Builds corvane-tool, makes a sample game, and draws its strategic layer: build/layer.svg, and the
# page build/layer.html for the browser.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need build
build release --target corvane-tool corvane-sample
[ -e build/sample-game ] || build/release/samples/corvane-sample build/sample-game
for picture in build/layer.svg build/layer.html; do
  build/release/tool/corvane-tool draw build/sample-game/CC4.EXE "$picture"
  echo "Drew $PWD/$picture"
done
