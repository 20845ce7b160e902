#!/usr/bin/env bash
# scripts/systems.sh [SYSTEM...]: builds and tests the last commit on clean installations of other
# systems (debian12 debian13 ubuntu2204 ubuntu2404): runs run.sh and test.sh there, once as an ordinary
# user (with sudo) with g++ and once as root with clang++, and prints the results. For Debian and
# Ubuntu, as root. Packages come from DEBIAN_MIRROR and UBUNTU_MIRROR, or from the package sources of
# this machine.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh
. scripts/roots.sh

need roots
[ $# -gt 0 ] || set -- debian12 debian13 ubuntu2204 ubuntu2404
failed=0
rows=()

# try SYSTEM USER COMPILER: adds a row to the table.
try() {
  local name=try-$1-$3 script version log times=()
  if ! new_root "$1" "$name"; then
    rows+=("| $title | $3 | $2 | the installation failed | |")
    failed=1
    return
  fi
  put_sources "$name" "$2"
  for script in run test; do
    log=$roots/$name-$script.log
    SECONDS=0
    if in_root "$name" "$2" env CXX="$3" "corvane/scripts/$script.sh" >"$log" 2>&1 </dev/null; then
      times+=("passed in $SECONDS s")
    else
      times+=("FAILED, see ${log#"$PWD/"}")
      failed=1
    fi
  done
  version=$(in_root "$name" "$2" "$3" -dumpfullversion -dumpversion 2>/dev/null || true)
  rows+=("| $title | $3 ${version:-} | $2 | ${times[0]} | ${times[1]} |")
  remove_root "$name"
}

for system in "$@"; do
  about_system "$system" || { rows+=("| $system | | | unknown, or without a package source | |"); failed=1; continue; }
  try "$system" modder g++
  try "$system" root clang++
done

echo "| System | Compiler | User | run.sh | test.sh |"
echo "|---|---|---|---|---|"
printf '%s\n' "${rows[@]}"
exit $failed
