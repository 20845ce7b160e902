#!/usr/bin/env bash
# Makes the system fail during saves: limits, full disks, failing calls, signals, kills. See
# tests/faults/faults.py.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh
need faults
build release --target corvane_fault_program corvane-sample
exec tests/faults/faults.py build/release/tests/corvane_fault_program build/release/samples/corvane-sample
