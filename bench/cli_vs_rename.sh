#!/usr/bin/env bash
# Whole-program timing: tessaly-cli lower-cases 32,767 files, against
# Debian's perl `rename` and `mmv` doing the same on fresh copies of the
# same folder (whose own name holds capitals, as real folders' do). Prints
# the three times, the ratios tessaly/rename and tessaly/mmv, and the
# system calls tessaly-cli makes per file, counted with strace over two
# sizes of folder. Installs `rename`, `mmv` and `strace` if missing.
#   bash bench/cli_vs_rename.sh [COUNT]
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-32767}
cli=$PWD/build/app/cli/tessaly-cli
[ -x "$cli" ] || bash scripts/setup.sh

missing=()
command -v rename >/dev/null || missing+=(rename)
command -v mmv >/dev/null || missing+=(mmv)
command -v strace >/dev/null || missing+=(strace)
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}" >/dev/null
fi

work=$(mktemp -d "${TMPDIR:-/tmp}/tessaly-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
# Names with upper case in the name and the extension, and a blank.
make_folder() {
  mkdir -p "$1"
  (cd "$1" && seq -f "IMG_%05g Holiday.JPG" 1 "$2" | tr '\n' '\0' | xargs -0 touch)
}
make_folder "$work/base/Holiday Photos" "$count"
for copy in tessaly rename mmv; do cp -a "$work/base" "$work/$copy"; done
sync

now_ns() { date +%s%N; }
# Runs the command in a copy and prints the seconds it took.
timed() {
  local folder=$1; shift
  local start end
  start=$(now_ns)
  (cd "$work/$folder/Holiday Photos" && "$@") >"$work/$folder.out" 2>"$work/$folder.err"
  end=$(now_ns)
  awk -v ns=$((end - start)) 'BEGIN { printf "%.3f", ns / 1e9 }'
}
# Fails the benchmark if a copy still holds an upper-case name.
check() {
  local left
  left=$(find "$work/$1/Holiday Photos" -mindepth 1 -name '*[A-Z]*' | wc -l)
  local total
  total=$(find "$work/$1/Holiday Photos" -mindepth 1 | wc -l)
  if [ "$left" -ne 0 ] || [ "$total" -ne "$count" ]; then
    echo "$1: $left of $total names still hold upper case (expected 0 of $count)" >&2
    exit 1
  fi
}

export TESSALY_REGISTRY_DIR="$work/settings"
# One word per file; each goes straight into the list.
t_tessaly=$(timed tessaly sh -c 'exec "$0" ./* /settings:LowerCase /step:4 /exit' "$cli")
check tessaly
t_rename=$(timed rename sh -c 'exec rename "y/A-Z/a-z/" -- *')
check rename
t_mmv=$(timed mmv mmv '*' '#l1')
check mmv

# System calls per file: the difference between two sizes of folder, so
# that start-up and the settings store drop out.
calls_for() {
  local folder="$work/calls-$1/Holiday Photos"
  make_folder "$folder" "$1"
  (cd "$folder" && strace -f -c -o "$work/calls-$1.txt" "$cli" ./* /settings:LowerCase /step:4 /exit \
    >/dev/null 2>&1)
  awk '$NF == "total" { print $4 }' \
    "$work/calls-$1.txt"
}
small=$((count / 4)); large=$((count / 2))
calls_small=$(calls_for "$small")
calls_large=$(calls_for "$large")

echo "files:            $count"
echo "tessaly-cli:      ${t_tessaly} s"
echo "rename (perl):    ${t_rename} s"
echo "mmv:              ${t_mmv} s"
awk -v t="$t_tessaly" -v r="$t_rename" -v m="$t_mmv" \
    -v cs="$calls_small" -v cl="$calls_large" -v ns="$small" -v nl="$large" 'BEGIN {
  printf "tessaly/rename:   %.2f\n", t / r
  printf "tessaly/mmv:      %.2f\n", t / m
  printf "system calls per file (tessaly-cli, %d vs %d files): %.2f\n", ns, nl, (cl - cs) / (nl - ns)
}'
