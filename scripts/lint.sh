#!/usr/bin/env bash
# scripts/lint.sh [linux|windows|msvc]...: runs clang-tidy on all sources, as the compilers of both
# systems see them. msvc finds what Microsoft's compiler would reject: it runs clang in MSVC mode on
# the headers of MinGW-w64.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

[ $# -gt 0 ] || set -- linux windows msvc
need lint

# The headers of MinGW-w64, where its own compiler finds them, and no complaint about an option that
# only that compiler knows.
mapfile -t mingw < <(x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 |
  sed -n 's|^ \(/.*/c++.*\)|--extra-arg=-isystem\1|p')
mingw+=(--extra-arg={-isystem/usr/x86_64-w64-mingw32/include,-Wno-unknown-warning-option})
windows=(--target=x86_64-w64-mingw32)
# These headers expect g++, and define some of their macros for it only.
msvc=(--target=x86_64-pc-windows-msvc -fms-compatibility -fms-extensions -fgnuc-version=12.2
  -U__SIZEOF_INT128__ -D__MSVCRT__ -D__declspec=__declspec
  -Wno-unknown-attributes -Wno-ignored-attributes -Wno-pragma-pack)

# The sources in a build's compilation database that match $2 but not $3.
sources() {
  sed -n 's/^ *"file": "\(.*\.cpp\)",*$/\1/p' "build/$1/compile_commands.json" | sort -u |
    sed "s|^$PWD/||" | grep -v '^/\|^build/' | grep -E "$2" | grep -Ev "$3" || true
}

# tidy BUILD ARGUMENT...: checks the sources listed on stdin.
tidy() {
  local build=$1
  shift
  xargs -P "$(nproc)" -n 1 clang-tidy -p "build/$build" --quiet "$@" 2>&1 |
    sed -u '/^[0-9]* warnings\? \(and [0-9]* errors\? \)\?generated\.$/d'
}

prepare() {
  local log=build/lint.log
  mkdir -p build
  cmake --preset "$1" >"$log" 2>&1 || { cat "$log"; return 1; }
}

failed=0
for pass in "$@"; do
  echo "== clang-tidy: $pass"
  case $pass in
    linux)
      prepare clang
      sources clang . ^$ | tidy clang || failed=1
      ;;
    windows)
      prepare windows
      # Handles are pointers, and messages carry pointers as numbers.
      sources windows /windows/ ^$ | tidy windows "${mingw[@]}" "${windows[@]/#/--extra-arg=}" \
        --checks=-misc-misplaced-const,-performance-no-int-to-ptr || failed=1
      ;;
    msvc)
      prepare windows
      # clang-tidy requires at least one check of its own.
      sources windows . ^tests/ | tidy windows "${mingw[@]}" "${msvc[@]/#/--extra-arg=}" \
        '--checks=-*,clang-diagnostic-*,misc-unused-alias-decls' || failed=1
      ;;
    *) echo "usage: scripts/lint.sh [linux|windows|msvc]..." >&2; exit 2 ;;
  esac
done
exit $failed
