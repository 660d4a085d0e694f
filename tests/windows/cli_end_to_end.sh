#!/usr/bin/env bash
# tessaly-cli.exe under Wine on real temporary folders. The command line
# reaches the program as the one text a person types: it is written into a
# batch file and started through cmd, so nothing splits or re-quotes it.
# Usage: cli_end_to_end.sh BUILD/app/cli/tessaly-cli.exe, with WINEPREFIX
# set; all runs share that prefix's registry, as runs on one machine do.
set -uo pipefail
exe=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0

# A Unix path as Wine's drive Z: shows it.
windows() { local path=${1//\//\\}; printf 'Z:%s' "$path"; }

check() {
  if eval "$2"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    printf 'FAILED: %s\n  %s\n  out: %s\n  err: %s\n' "$1" "$2" "$out" "$err" >&2
  fi
}

# A fresh folder $F (its Windows form $W) holding the given name=content files.
folder() {
  F=$(mktemp -d "$work/files.XXXX")
  W=$(windows "$F")
  local file
  for file in "$@"; do printf '%s' "${file#*=}" >"$F/${file%%=*}"; done
}

# Runs the program with the command line $1 and no terminal; sets out, err
# and status. The log's line ends and its clock times are taken off. The
# program's name is quoted, as Windows writes it, unless $2 says "bare".
run() {
  local program="\"$(windows "$exe")\""
  [ "${2:-}" = bare ] && program=$(windows "$exe")
  printf '@%s %s\r\n' "$program" "$1" >"$work/run.bat"
  setsid wine cmd /c "$(windows "$work/run.bat")" >"$work/out" 2>"$work/err" </dev/null
  status=$?
  out=$(tr -d '\r' <"$work/out" | sed -E 's/^[0-9]{2}:[0-9]{2}:[0-9]{2} - //')
  err=$(tr -d '\r' <"$work/err")
}

names() { ls "$F" | tr '\n' '|'; }
contents() { local file; for file in "$F"/*; do cat "$file"; echo; done | sort | tr '\n' '|'; }
logged() { grep -qxF -- "$1" <<<"$out"; }

# An unattended run renames every file and prints the log; step 3 stores
# the options in the registry.
folder "Alpha One.TXT=1" "BETA.txt=2" "gamma.jpg=3"
run "$W\\Alpha One.TXT;$W\\BETA.txt;$W\\gamma.jpg /settings:LowerCase /placement2:\"(none)\" /step:4 /hide /exit"
short="${W:0:6}..."
check "unattended run ends well" '[ "$status" = 0 ]'
check "every file renamed" '[ "$(names)" = "alpha one|beta|gamma|" ]'
check "log starts" 'grep -qE "^Renaming Started at: [0-9]{2}/[0-9]{2}/[0-9]{4} - [0-9:]{8}$" <<<"$out"'
check "log line of a file" 'logged "$short\\Alpha One.TXT > $short\\alpha one (Completed)"'
check "log sums up" 'logged "3 files where renamed successfully."'

# A second run without switches takes the options the first one stored:
# the name in lower case (left alone by the options a new user starts with).
folder "Delta.TXT=4"
run "$W\\Delta.TXT /step:4 /exit" bare
check "options remembered in the registry" '[ "$(names)" = "delta.txt|" ]'

# A change of letter case alone: the disk ignores case, so the new name is
# the file itself; it goes through without a question.
folder "a.TXT=5"
run "$W\\a.TXT /step:4 /exit"
check "case-only change done" '[ "$(names)" = "a.txt|" ] && [ "$(contents)" = "5|" ]'
check "case-only change asks nothing" '[[ "$err" != *"Confirm Overwrite"* ]]'
check "case-only change logged" 'logged "$short\\a.TXT > $short\\a.txt (Completed)"'

# Two files to one name: the second asks to overwrite, and with no one to
# ask the answer is No; nothing is lost.
folder "x.TXT=6" "x.jpg=7"
run "$W\\x.TXT;$W\\x.jpg /settings:LowerCase /placement2:\"(none)\" /step:4 /exit"
check "overwrite question asked" '[[ "$err" == *"Confirm Overwrite"* && "$err" == *"answering No"* ]]'
check "a file that could not be renamed fails the run" '[ "$status" = 1 ]'
check "no content lost" '[ "$(contents)" = "6|7|" ]'

# The log as JSON Lines: full paths, each backslash escaped.
folder "J.TXT=8"
run "--json $W\\J.TXT /settings:LowerCase /step:4 /exit"
json=${W//\\/\\\\}
check "JSON line of a file" 'logged "{\"old\":\"$json\\\\J.TXT\",\"new\":\"$json\\\\j.txt\",\"outcome\":\"(Completed)\",\"code\":\"completed\"}"'

# The Linux disk under Wine may hold case twins: the file listed is moved,
# its twin is someone else's and stays. A name ending in a period is its
# own file, not the one without it.
folder "NORMAL.TXT=8" "normal.txt=9"
run "$W\\NORMAL.TXT /settings:LowerCase /step:4 /exit"
check "a case twin is never deleted" '[ "$(contents)" = "8|9|" ]'
folder "TRAIL.=10" "TRAIL=11"
run "$W\\TRAIL. /placement1:\"renamed\" /placement2:\"(none)\" /placement3:\"(none)\" /placement4:\"(none)\" /placement5:\"(none)\" /placement6:\"(none)\" /step:4 /exit"
check "a name ending in a period is the file given" '[ "$(names)" = "TRAIL|renamed|" ] && [ "$(contents)" = "10|11|" ]'
# A new name ending in a period is stored as Windows programs store it.
folder "b.txt=12"
run "$W\\b.txt /placement1:\"renamed.\" /placement2:\"(none)\" /placement3:\"(none)\" /placement4:\"(none)\" /placement5:\"(none)\" /placement6:\"(none)\" /step:4 /exit"
check "a new name loses its trailing period" '[ "$(names)" = "renamed|" ]'

# Runs are journaled in the user's LOCALAPPDATA: --undo takes the last one
# back, here a change of letter case on a disk that ignores case.
folder "UNDO.TXT=12"
run "$W\\UNDO.TXT /settings:LowerCase /step:4 /exit"
check "renamed before the undo" '[ "$(names)" = "undo.txt|" ]'
run "--undo"
check "undo restores the old name" '[ "$status" = 0 ] && [ "$(names)" = "UNDO.TXT|" ] && [ "$(contents)" = "12|" ]'
check "undo logged" 'logged "$short\\undo.txt > $short\\UNDO.TXT (Restored)"'
run "--list-runs"
check "the undo listed as a run" '[[ "$out" == *", undo of "* ]]'

echo "Windows end-to-end: $passed passed, $failed failed"
[ "$failed" = 0 ]
