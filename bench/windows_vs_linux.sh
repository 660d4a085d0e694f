#!/usr/bin/env bash
# Whole-program timing of the Windows build against the Linux one:
# tessaly-cli.exe under Wine and build/app/cli/tessaly-cli each lower-case
# 32,767 files of a fresh copy of the same folder, unattended, the files
# given as a list (--files-from) since a Windows command line holds at most
# 32,767 characters. Wine's start-up is paid once before the timing (the
# prefix is made, its server kept running, and a run on ten files warms it
# up); each program's own start stays in its time. Prints both times and
# the ratio Windows/Linux. Under Wine a name that is not on the disk
# exactly as written is looked for ignoring case by reading the whole
# folder. Windows folds letter case, so lower-casing takes each file
# through its temporary name: two renames onto names not yet on the disk,
# and Wine reads the folder for each, whatever the program asks. So the
# Windows time grows with the square of the folder's size (Windows itself
# looks names up in the volume's index).
#   bash bench/windows_vs_linux.sh [COUNT]
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-32767}
linux_cli=$PWD/build/app/cli/tessaly-cli
windows_cli=$PWD/build-win/app/cli/tessaly-cli.exe
[ -x "$linux_cli" ] || bash scripts/setup.sh
[ -f "$windows_cli" ] || bash scripts/build-windows.sh
bash scripts/install_missing.sh time

export WINEPREFIX="$PWD/build-win/bench-prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
work=$(mktemp -d "${TMPDIR:-/tmp}/tessaly-bench.XXXXXX")
trap 'wineserver -k 2>/dev/null || true; rm -rf "$work"' EXIT
mkdir -p "$WINEPREFIX"  # the server starts in it, before wineboot makes it
wineserver -k 2>/dev/null || true
wineserver -p  # stays up between the runs below
wine wineboot --init >/dev/null 2>&1

# A Unix path as Wine's drive Z: shows it.
windows() { local path=${1//\//\\}; printf 'Z:%s' "$path"; }

make_folder() {
  mkdir -p "$1"
  (cd "$1" && seq -f "IMG_%05g Holiday.JPG" 1 "$2" | tr '\n' '\0' | xargs -0 touch)
}
make_folder "$work/base/Holiday Photos" "$count"
for copy in linux windows; do cp -a "$work/base" "$work/$copy"; done
make_folder "$work/warm-up/Holiday Photos" 10
(cd "$work/base/Holiday Photos" && ls) >"$work/names.txt"
sync

# Runs the command in a copy's folder and prints the wall-clock seconds.
timed() {
  local copy=$1; shift
  (cd "$work/$copy/Holiday Photos" && /usr/bin/time -f "%e" -o "$work/$copy.time" "$@") \
    >"$work/$copy.out" 2>"$work/$copy.err"
  cat "$work/$copy.time"
}
# Fails the benchmark if a copy still holds an upper-case name.
check() {
  local left total
  left=$(find "$work/$1/Holiday Photos" -mindepth 1 -name '*[A-Z]*' | wc -l)
  total=$(find "$work/$1/Holiday Photos" -mindepth 1 | wc -l)
  if [ "$left" -ne 0 ] || [ "$total" -ne "$count" ]; then
    echo "$1: $left of $total names still hold upper case (expected 0 of $count)" >&2
    exit 1
  fi
}

# The Windows program reads its command line as one text, so it starts
# from a batch file, as a person's script would.
printf '@%s --files-from %s /settings:LowerCase /step:4 /exit\r\n' "$(windows "$windows_cli")" \
  "$(windows "$work/names.txt")" >"$work/run.bat"
run_windows() { timed "$1" wine cmd /c "$(windows "$work/run.bat")"; }
# The warm-up folder holds ten of the listed files: the rest are left out,
# which the program reports in its exit status.
run_windows warm-up >/dev/null || true
t_windows=$(run_windows windows)
check windows

export TESSALY_REGISTRY_DIR="$work/settings"
t_linux=$(timed linux "$linux_cli" --files-from "$work/names.txt" /settings:LowerCase /step:4 /exit)
check linux

echo "files:                    $count   (seconds, wall clock)"
echo "tessaly-cli.exe (Wine):   $t_windows s"
echo "tessaly-cli (Linux):      $t_linux s"
awk -v w="$t_windows" -v l="$t_linux" 'BEGIN { printf "Windows/Linux:            %.2f\n", w / l }'
