#!/usr/bin/env bash
# The crash-consistency check at length: tessaly-cli renaming within a
# folder and moving files to another file system, killed with SIGKILL at random
# points (4 kills a round, ROUNDS rounds) of runs over COUNT files with unique
# contents, the folders checked after every kill and again after
# `tessaly-cli --undo` has taken the killed run back. Prints one line per
# kill and per undo, and the totals.
#   bash bench/crash_consistency.sh [COUNT] [ROUNDS]
set -euo pipefail
cd "$(dirname "$0")/.."
test=$PWD/build/tests/cli/crash_consistency_test
[ -x "$test" ] || bash scripts/setup.sh

start=$SECONDS
log=$(TESSALY_CRASH_FILES=${1:-5000} TESSALY_CRASH_KILLS=4 "$test" --gtest_brief=1 \
  --gtest_repeat="${2:-10}" 2>&1) \
  && status=0 || status=$?
grep -E "kill [0-9]+|undo:|race:" <<<"$log" || true
grep -E "Failure|found|unknown|wrong name" <<<"$log" || true
kills=$(grep -cE "kill [0-9]+:" <<<"$log" || true)
alone=$(grep -c "ended by itself" <<<"$log" || true)
copies=$(grep -cE "copy beside source [1-9]" <<<"$log" || true)
undos=$(grep -cE "undo: " <<<"$log" || true)
restored=$(grep -cE "undo: old ${1:-5000}, faults 0" <<<"$log" || true)
echo "files: ${1:-5000}, kills mid-run: $kills, runs that ended before their kill: $alone," \
  "kills that left a whole copy beside its source: $copies," \
  "undos that put every file back: $restored of $undos, seconds: $((SECONDS - start))"
[ "$status" -eq 0 ] && echo "every content found exactly once" || echo "FAILED"
exit "$status"
