#!/usr/bin/env bash
# Builds the Debian package from the working tree, in build/package, and checks it.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need package
version=$(sed -n 's/^project(Corvane VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
work=build/package
rm -rf "$work"
mkdir -p "$work/corvane-$version"
tar --exclude=./build --exclude=./.git -c . | tar -C "$work/corvane-$version" -x
(cd "$work/corvane-$version" &&
  DEB_BUILD_OPTIONS="nocheck parallel=$(nproc)" dpkg-buildpackage -us -uc) >"$work/log" 2>&1 ||
  { tail -n 40 "$work/log"; exit 1; }
desktop-file-validate packaging/*.desktop
appstreamcli validate --no-net "$work"/corvane-*/obj-*/packaging/*.metainfo.xml
lintian --pedantic --fail-on error,warning "$work"/*.dsc "$work"/corvane_*.deb
ls -l "$work"/*.deb
