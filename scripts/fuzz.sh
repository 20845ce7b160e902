#!/usr/bin/env bash
# scripts/fuzz.sh SECONDS: builds the fuzz drivers and runs each for that time. An input that violates
# a property stays in build/fuzz, named after its driver; pass it to the driver to reproduce the fault.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

seconds=${1:-}
[[ $seconds =~ ^[1-9][0-9]*$ ]] || { echo "usage: scripts/fuzz.sh SECONDS" >&2; exit 2; }
need fuzz
export ASAN_OPTIONS=detect_stack_use_after_return=1
build fuzz

# In memory if possible, and deep enough for a base name with ".." in it.
memory=/dev/shm
[ -w "$memory" ] || memory=${TMPDIR:-/tmp}
scratch=$(mktemp -d -p "$memory")
trap 'rm -rf "$scratch"' EXIT
export TMPDIR=$scratch/two/deep
mkdir -p "$TMPDIR"
build/fuzz/samples/corvane-corpus "$scratch/corpus"

failed=0
for driver in PatchFuzz GameExeFuzz BtdFuzz RegistryFuzz SessionFuzz DrawFuzz JsonFuzz; do
  log=build/fuzz/$driver.log
  longest=16384
  [ "$driver" != SessionFuzz ] || longest=512
  # A leak check after each input would take longer than the input.
  if build/fuzz/fuzz/$driver -max_total_time="$seconds" -max_len=$longest -timeout=10 \
    -detect_leaks=0 -print_final_stats=1 -artifact_prefix="build/fuzz/$driver-" \
    "$scratch/corpus/$driver" >"$log" 2>&1; then
    result="no failures"
  else
    input=$(sed -n 's/.*Test unit written to //p' "$log")
    result="FAILED, ${input:-stopped without a finding}, see $log"
    failed=1
  fi
  printf '%-13s%8s runs,%6s per second: %s\n' "$driver" \
    "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")" \
    "$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")" "$result"
  grep '^VIOLATED' "$log" || true
done
exit $failed
