#!/usr/bin/env bash
# scripts/try-package.sh FILE.deb [SYSTEM]: installs the package on a clean system of scripts/roots.sh,
# by default the system of this machine, starts both programs, removes the package, and fails if
# files remain. As root.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh
. scripts/roots.sh

[ -f "${1-}" ] || { echo "usage: scripts/try-package.sh FILE.deb [SYSTEM]" >&2; exit 2; }
need roots
system=${2-$(. /etc/os-release && echo "$ID${VERSION_ID//./}")}
new_root "$system" package
trap 'remove_root package' EXIT
cp "$1" "$roots/package/tmp/corvane.deb"
in_root package root apt-get install -qq -y --no-install-recommends \
  xvfb xauth x11-utils openbox fonts-dejavu-core >/dev/null

files() { (cd "$roots/package" && find etc home opt root srv usr var -xdev | LC_ALL=C sort); }

# Its dependencies stay installed, so install them before the first listing.
depends=$(dpkg-deb -f "$1" Depends | sed 's/([^)]*)//g; s/|[^,]*//g; s/,/ /g')
# shellcheck disable=SC2086 # a list
in_root package root apt-get install -qq -y --no-install-recommends $depends >/dev/null
files >"$roots/package.before"

in_root package root apt-get install -qq -y --no-install-recommends /tmp/corvane.deb >/dev/null
in_root package modder corvane-tool --version
# The window must appear, and the program must end on SIGTERM.
cat >"$roots/package/tmp/start.sh" <<'END'
openbox &
corvane &
program=$!
for _ in $(seq 100); do
  if xwininfo -root -tree | grep -q '"Corvane'; then
    echo "the window appeared"
    kill "$program"
    wait "$program" || true
    exit 0
  fi
  kill -0 "$program" || exit 1
  sleep 0.1
done
exit 1
END
in_root package modder xvfb-run -a -w 30 -s "-screen 0 1280x900x24" sh /tmp/start.sh
in_root package root apt-get purge -qq -y corvane >/dev/null
files >"$roots/package.after"
# Logs and caches of the system's own programs do not count.
own='var/(lib|cache|log)/(apt|dpkg|ldconfig|debconf|fontconfig)|home/modder/\.cache(/(fontconfig|mesa|openbox)|$)'
remaining=$(LC_ALL=C comm -13 "$roots/package.before" "$roots/package.after" | grep -vE "^($own)" || true)
if [ -n "$remaining" ]; then
  printf 'These files remain after the removal:\n%s\n' "$remaining" >&2
  exit 1
fi
echo "installed, started and removed on $system: no files remain"
