#!/usr/bin/env bash
# Makes the packages (.deb and .tar.gz) in build/release/packages and looks them over.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need package
build release --target corvane
cmake --build --preset release --target package >/dev/null
desktop-file-validate packaging/*.desktop
appstreamcli validate --no-net build/release/packaging/*.metainfo.xml
lintian --fail-on error,warning build/release/packages/*.deb
ls -l build/release/packages/*.deb build/release/packages/*.tar.gz
