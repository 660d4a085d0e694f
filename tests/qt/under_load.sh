#!/usr/bin/env bash
# Runs one window case again and again beside two busy loops: a dialog
# answered before it is ready once hung only on a loaded machine. Passes
# only if that one case ran and passed every time.
#   under_load.sh TEST_PROGRAM FILTER [REPEATS]
set -u
repeats=${3:-20}
for _ in 1 2; do (while :; do :; done) & done
trap 'kill $(jobs -p) 2>/dev/null' EXIT
out=$("$1" --gtest_filter="$2" --gtest_repeat="$repeats" --gtest_brief=1 2>&1)
status=$?
printf '%s\n' "$out"
passed=$(grep -c '^\[  PASSED  \] 1 test\.' <<<"$out")
[ "$status" -eq 0 ] && [ "$passed" -eq "$repeats" ] || { echo "passed $passed of $repeats" >&2; exit 1; }
