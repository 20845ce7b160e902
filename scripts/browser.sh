#!/usr/bin/env bash
# Tests the page of corvane-tool in headless Chromium. Leaves screenshots, light and dark and at
# scales 1 and 2, in build/browser. For Debian and Ubuntu.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need browser
build release --target corvane-sample corvane-tool
rm -rf build/browser
PYTHONDONTWRITEBYTECODE=1 timeout 600 python3 tests/browser/page_tests.py \
  build/release/samples/corvane-sample build/release/tool/corvane-tool build/browser
echo "Pictures: build/browser"
