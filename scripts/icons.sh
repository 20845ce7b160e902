#!/usr/bin/env bash
# Regenerates packaging/icons/corvane.ico from corvane.svg. Needs rsvg-convert and ImageMagick.
set -euo pipefail
cd "$(dirname "$0")/../packaging/icons"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
images=()
for size in 16 20 24 32 40 48 64 256; do  # small and large icons at 96, 120, 144 and 192 dpi
  rsvg-convert -w "$size" -h "$size" corvane.svg -o "$work/$size.png"
  images+=("$work/$size.png")
done
convert "${images[@]}" corvane.ico
identify corvane.ico
