#!/usr/bin/env bash
# scripts/release.sh: builds all files of a release from the last commit, in build/release-VERSION:
# source archive, Debian source and binary package, .tar.gz, Windows zips, release notes and
# SHA256SUMS. Builds them a second time from another folder and compares every byte. For Debian and
# Ubuntu; the working tree must be clean.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh
. scripts/release-parts.sh

[ -z "$(git status --porcelain)" ] || { echo "Commit or remove the files that git status lists." >&2; exit 1; }
need package
need windows
need release
check_version

out=build/release-$version
first=$(mktemp -d)
second=$(mktemp -d -p "$first" another-folder-XXXXXX)
trap 'rm -rf "$first"' EXIT
for place in "$first" "$second"; do
  echo "== building in $place"
  git clone --quiet . "$place/clone"
  (cd "$place/clone" && bash -euo pipefail -c '. scripts/release-parts.sh && make_release "$1"' \
    bash "$place/files") >"$place/log" 2>&1 ||
    { tail -n 40 "$place/log"; echo "The build failed." >&2; exit 1; }
done

rm -rf "$out"
mkdir -p build
cp -r "$first/files" "$out"
if diff -r "$first/files" "$second/files"; then
  echo "== both builds are byte-identical"
else
  diffoscope --text "$out.differences" "$first/files" "$second/files" || true
  echo "The builds differ; $out.differences shows where." >&2
  exit 1
fi
lintian --pedantic --fail-on error,warning "$out"/*.dsc "$out"/*.deb
cat "$out/SHA256SUMS"
