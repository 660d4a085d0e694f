#!/usr/bin/env bash
# Whole-program timing: tessaly-cli lower-cases 32,767 files, against
# Debian's perl `rename` and `mmv` doing the same on fresh copies of the
# same folder (whose own name holds capitals, as real folders' do), and
# against build/bench/five_calls, which makes tessaly-cli's system calls
# and nothing else: the part of the time that the disk alone costs. Prints
# the times, the ratios, and the system calls tessaly-cli makes per file,
# counted with strace over two sizes of folder. Installs `rename`, `mmv`
# and `strace` if missing.
#   bash bench/cli_vs_rename.sh [COUNT]
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-32767}
cli=$PWD/build/app/cli/tessaly-cli
calls=$PWD/build/bench/five_calls
[ -x "$cli" ] && [ -x "$calls" ] || bash scripts/setup.sh

missing=()
command -v rename >/dev/null || missing+=(rename)
command -v mmv >/dev/null || missing+=(mmv)
command -v strace >/dev/null || missing+=(strace)
[ -x /usr/bin/time ] || missing+=(time)
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
for copy in tessaly rename mmv calls; do cp -a "$work/base" "$work/$copy"; done
sync

# Runs the command in a copy and prints the seconds it took, wall clock,
# processor (user + system) and system alone, separated by blanks: on a
# busy machine the processor time tells more, and the system time shows
# what the file system's own work costs.
timed() {
  local folder=$1; shift
  (cd "$work/$folder/Holiday Photos" && /usr/bin/time -f "%e %U %S" -o "$work/$folder.time" "$@") \
    >"$work/$folder.out" 2>"$work/$folder.err"
  awk '{ printf "%.3f %.3f %.3f", $1, $2 + $3, $3 }' "$work/$folder.time"
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
# The settings as after a first run: the first run of all creates the
# settings database and stores every option, some fifty synced writes
# whose wait on the disk would otherwise swamp the wall clock.
make_folder "$work/first/Holiday Photos" 1
(cd "$work/first/Holiday Photos" && "$cli" ./* /settings:LowerCase /step:4 /exit >/dev/null 2>&1)
# One word per file; each goes straight into the list.
t_tessaly=$(timed tessaly sh -c 'exec "$0" ./* /settings:LowerCase /step:4 /exit' "$cli")
check tessaly
t_rename=$(timed rename sh -c 'exec rename "y/A-Z/a-z/" -- *')
check rename
t_mmv=$(timed mmv mmv '*' '#l1')
check mmv
t_calls=$(timed calls sh -c 'exec "$0" ./*' "$calls")
check calls

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

read -r w_tessaly c_tessaly s_tessaly <<<"$t_tessaly"
read -r w_rename c_rename s_rename <<<"$t_rename"
read -r w_mmv c_mmv s_mmv <<<"$t_mmv"
read -r w_calls c_calls s_calls <<<"$t_calls"
echo "files:            $count   (seconds: wall clock, processor, of which system)"
echo "tessaly-cli:      ${w_tessaly} s, ${c_tessaly} s, ${s_tessaly} s"
echo "rename (perl):    ${w_rename} s, ${c_rename} s, ${s_rename} s"
echo "mmv:              ${w_mmv} s, ${c_mmv} s, ${s_mmv} s"
echo "its calls alone:  ${w_calls} s, ${c_calls} s, ${s_calls} s"
awk -v t="$w_tessaly" -v r="$w_rename" -v m="$w_mmv" \
    -v ct="$c_tessaly" -v cr="$c_rename" -v cm="$c_mmv" -v k="$w_calls" -v ck="$c_calls" \
    -v cs="$calls_small" -v cl="$calls_large" -v ns="$small" -v nl="$large" 'BEGIN {
  printf "tessaly/rename:   %.2f wall clock, %.2f processor\n", t / r, ct / cr
  printf "tessaly/mmv:      %.2f wall clock, %.2f processor\n", t / m, ct / cm
  printf "calls alone/mmv:  %.2f wall clock, %.2f processor\n", k / m, ck / cm
  printf "system calls per file (tessaly-cli, %d vs %d files): %.2f\n", ns, nl, (cl - cs) / (nl - ns)
}'
