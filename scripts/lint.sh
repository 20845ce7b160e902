#!/usr/bin/env bash
# scripts/lint.sh [linux|windows|msvc]...: reads all sources with clang-tidy, as the compilers of both
# systems see them. msvc looks for what Microsoft's compiler would refuse: clang in its mode, with the
# headers of MinGW-w64.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

[ $# -gt 0 ] || set -- linux windows msvc
need lint

# The headers of MinGW-w64's library, where its own compiler finds them.
mapfile -t headers < <(x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 |
  sed -n 's|^ \(/.*/c++.*\)|--extra-arg=-isystem\1|p')
headers+=(--extra-arg=-isystem/usr/x86_64-w64-mingw32/include)
windows=(--target=x86_64-w64-mingw32)
# Headers made for g++ have to be told that this is one, and have some of their macros for it only.
msvc=(--target=x86_64-pc-windows-msvc -fms-compatibility -fms-extensions -fgnuc-version=12.2
  -U__SIZEOF_INT128__ -D__MSVCRT__ -D__declspec=__declspec
  -Wno-unknown-attributes -Wno-ignored-attributes -Wno-pragma-pack)

# The sources of a build that match $2 and not $3, by their names in its compilation database.
sources() {
  sed -n 's/^ *"file": "\(.*\.cpp\)",*$/\1/p' "build/$1/compile_commands.json" | sort -u |
    sed "s|^$PWD/||" | grep -v '^/\|^build/' | grep -E "$2" | grep -Ev "$3" || true
}

# tidy BUILD ARGUMENT...: reads the sources on stdin.
tidy() {
  local build=$1
  shift
  xargs -P "$(nproc)" -n 2 clang-tidy -p "build/$build" --quiet "$@" 2>&1 |
    sed '/^[0-9]* warnings\? \(and [0-9]* errors\? \)\?generated\.$/d'
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
      sources windows /windows/ ^$ | tidy windows "${headers[@]}" "${windows[@]/#/--extra-arg=}" \
        --checks=-misc-misplaced-const,-performance-no-int-to-ptr || failed=1
      ;;
    msvc)
      prepare windows
      # It takes one check of its own to run at all.
      sources windows . ^tests/ | tidy windows "${headers[@]}" "${msvc[@]/#/--extra-arg=}" \
        '--checks=-*,clang-diagnostic-*,misc-unused-alias-decls' || failed=1
      ;;
    *) echo "usage: scripts/lint.sh [linux|windows|msvc]..." >&2; exit 2 ;;
  esac
done
exit $failed
