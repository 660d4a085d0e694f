#!/usr/bin/env bash
# The Windows window against the Qt window, side by side in one run:
#  1. the views' own work over files in memory at the list's limit of
#     32,767 (first page on show, step 3's preview, step 4's run and log,
#     a drop of the whole list): win32_views_bench.exe under Wine with no
#     display, qt_views_bench on the offscreen platform;
#  2. the whole program on real folders of 2,000 and 4,000 files, the
#     folder given on the command line, lower-cased unattended: tessaly.exe
#     under Wine against tessaly on Linux.
# Prints milliseconds (1) and seconds (2), with the ratio Win32/Qt; the
# goal is at most 2 on each figure, and the log of 32,767 lines in under
# 5 s. Needs the Linux build (scripts/setup.sh) and the Windows build
# (scripts/build-windows.sh).
#   bash bench/windows_window.sh [COUNT...]
set -euo pipefail
cd "$(dirname "$0")/.."
counts=("${@:-2000 4000}")
[ -x build/bench/qt_views_bench ] || bash scripts/setup.sh
cmake --build build --target qt_views_bench tessaly >/dev/null
[ -f build-win/tests/win32/win32_views_bench.exe ] || bash scripts/build-windows.sh
bash scripts/install_missing.sh time

export WINEPREFIX="$PWD/build-win/bench-prefix" WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
unset DISPLAY
work=$(mktemp -d "${TMPDIR:-/tmp}/tessaly-window-bench.XXXXXX")
trap 'wineserver -k 2>/dev/null || true; rm -rf "$work"' EXIT
mkdir -p "$WINEPREFIX"
wineserver -k 2>/dev/null || true
wine wineboot --init >/dev/null 2>&1
# No display: Wine's null graphics driver, as the window tests use it.
wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
wineserver -k 2>/dev/null || true
mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/"
wineserver -p  # stays up between the runs below

# 1. The views in memory. Google Benchmark names the Qt figures; the
# Win32 program prints "figure  N ms".
QT_QPA_PLATFORM=offscreen build/bench/qt_views_bench --benchmark_format=csv 2>/dev/null \
  | awk -F, '/^"BM_/ { gsub(/"/, "", $1); sub(/\/.*/, "", $1); print $1, $3 }' >"$work/qt.txt"
wine build-win/tests/win32/win32_views_bench.exe 2>/dev/null | tr -d '\r' >"$work/win32.txt"
qt_figure() { awk -v n="$1" '$1 == n { printf "%.1f", $2 }' "$work/qt.txt"; }
win32_figure() { awk -v n="$1" '$1 == n { printf "%.1f", $2 }' "$work/win32.txt"; }
row() {
  awk -v f="$1" -v w="$2" -v q="$3" -v u="$4" \
    'BEGIN { printf "%-28s %10s %10s %8.2f\n", f, w " " u, q " " u, (q > 0 ? w / q : 0) }'
}
printf '%-28s %10s %10s %8s\n' "in memory, 32,767 files" "Win32" "Qt" "ratio"
row "first page on show" "$(win32_figure first_page)" "$(qt_figure BM_FirstPageOnShow)" ms
row "step 3, preview" "$(win32_figure preview_in_window)" "$(qt_figure BM_PreviewShownInWindow)" ms
row "  (no window)" "$(win32_figure preview_without_window)" "$(qt_figure BM_PreviewWithoutWindow)" ms
row "step 4, run and log" "$(win32_figure run_log_in_window)" "$(qt_figure BM_RunAndColouredLogInWindow)" ms
row "  (no window)" "$(win32_figure run_log_without_window)" "$(qt_figure BM_RunAndLogWithoutWindow)" ms
row "drop of the whole list" "$(win32_figure drop_on_list_page)" "$(qt_figure BM_DropOfLargestListOnShow)" ms

# 2. The whole program on real folders, folder as the argument.
windows() { local path=${1//\//\\}; printf 'Z:%s' "$path"; }
make_folder() {
  mkdir -p "$1"
  (cd "$1" && seq -f "IMG_%05g Holiday.JPG" 1 "$2" | tr '\n' '\0' | xargs -0 touch)
}
timed() {
  /usr/bin/time -f "%e" -o "$work/time" "$@" >/dev/null 2>&1 || true
  cat "$work/time"
}
lower_left() { find "$1" -mindepth 1 -name '*[A-Z]*' | wc -l; }
export TESSALY_REGISTRY_DIR="$work/settings"
make_folder "$work/warm-up" 10
wine "$PWD/build-win/app/win32/tessaly.exe" "$(windows "$work/warm-up")" /settings:LowerCase /step:4 /exit
printf '\n%-28s %10s %10s %8s\n' "on disk, folder of" "Win32" "Qt" "ratio"
for count in ${counts[*]}; do
  make_folder "$work/win32-$count" "$count"
  make_folder "$work/qt-$count" "$count"
  sync
  t_win32=$(timed wine "$PWD/build-win/app/win32/tessaly.exe" "$(windows "$work/win32-$count")" \
    /settings:LowerCase /step:4 /exit)
  t_qt=$(QT_QPA_PLATFORM=offscreen timed build/app/qt/tessaly "$work/qt-$count" /settings:LowerCase /step:4 /exit)
  for side in win32 qt; do
    left=$(lower_left "$work/$side-$count")
    [ "$left" -eq 0 ] || { echo "$side: $left of $count names still hold upper case" >&2; exit 1; }
  done
  row "$count files" "$t_win32" "$t_qt" s
done
