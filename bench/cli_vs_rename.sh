#!/usr/bin/env bash
# Whole-program timing: tessaly-cli lower-cases 32,767 files, against
# Debian's perl `rename` and `mmv` doing the same on fresh copies of the
# same folder (whose own name holds capitals, as real folders' do), and
# against build/bench/calls_alone, which makes tessaly-cli's system calls
# and nothing else: the part of the time that the disk alone costs. Prints
# the times, the peak memory, the ratios, the system calls tessaly-cli makes
# per file, counted with strace over two sizes of folder, and how its time
# and memory grow from a folder of 10,000 files to one of 100,000 (renamed
# in runs of at most 32,767 files, all the list holds). Installs `rename`,
# `mmv` and `strace` if missing.
#   bash bench/cli_vs_rename.sh [COUNT]
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-32767}
cli=$PWD/build/app/cli/tessaly-cli
calls=$PWD/build/bench/calls_alone
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
# processor (user + system) and system alone, and its peak memory in KB,
# separated by blanks: on a busy machine the processor time tells more, and
# the system time shows what the file system's own work costs.
timed() {
  local folder=$1; shift
  (cd "$work/$folder/Holiday Photos" && /usr/bin/time -f "%e %U %S %M" -o "$work/$folder.time" "$@") \
    >"$work/$folder.out" 2>"$work/$folder.err"
  awk '{ printf "%.3f %.3f %.3f %d", $1, $2 + $3, $3, $4 }' "$work/$folder.time"
}
# Fails the benchmark if a copy still holds an upper-case name.
check() {
  local left
  left=$(find "$work/$1/Holiday Photos" -mindepth 1 -name '*[A-Z]*' | wc -l)
  local total
  total=$(find "$work/$1/Holiday Photos" -mindepth 1 | wc -l)
  if [ "$left" -ne 0 ] || [ "$total" -ne "${2:-$count}" ]; then
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
t_calls=$(timed calls sh -c 'exec "$0" "$1" ./*' "$calls" "$work/calls.journal")
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
rm -rf "$work"/calls-*

# Growth: the whole job on a folder of 10,000 files and on one of 100,000,
# the larger in runs of at most 32,767 files, as the list holds no more.
# Prints the processor seconds and the largest peak memory of one run. The
# folder is read beforehand: find itself takes some 30 MB for 100,000
# names, which would pass for the largest run's.
grown() {
  make_folder "$work/grown-$1/Holiday Photos" "$1"
  (cd "$work/grown-$1/Holiday Photos" && find . -mindepth 1 -maxdepth 1 -print0) >"$work/grown-$1.names"
  local t
  t=$(timed "grown-$1" sh -c 'xargs -0 -n 32767 -s 2000000 \
    sh -c '"'"'exec "$0" "$@" /settings:LowerCase /step:4 /exit'"'"' "$0" <"$1"' \
    "$cli" "$work/grown-$1.names")
  check "grown-$1" "$1"
  rm -rf "$work/grown-$1" "$work/grown-$1.names"
  echo "$t" | awk '{ print $2, $4 }'
}
read -r c_10k m_10k <<<"$(grown 10000)"
read -r c_100k m_100k <<<"$(grown 100000)"

read -r w_tessaly c_tessaly s_tessaly m_tessaly <<<"$t_tessaly"
read -r w_rename c_rename s_rename m_rename <<<"$t_rename"
read -r w_mmv c_mmv s_mmv m_mmv <<<"$t_mmv"
read -r w_calls c_calls s_calls m_calls <<<"$t_calls"
echo "files:            $count   (seconds: wall clock, processor, of which system; peak memory)"
echo "tessaly-cli:      ${w_tessaly} s, ${c_tessaly} s, ${s_tessaly} s; ${m_tessaly} KB"
echo "rename (perl):    ${w_rename} s, ${c_rename} s, ${s_rename} s; ${m_rename} KB"
echo "mmv:              ${w_mmv} s, ${c_mmv} s, ${s_mmv} s; ${m_mmv} KB"
echo "its calls alone:  ${w_calls} s, ${c_calls} s, ${s_calls} s; ${m_calls} KB"
awk -v t="$w_tessaly" -v r="$w_rename" -v m="$w_mmv" \
    -v ct="$c_tessaly" -v cr="$c_rename" -v cm="$c_mmv" -v k="$w_calls" -v ck="$c_calls" \
    -v mt="$m_tessaly" -v mm="$m_mmv" \
    -v cs="$calls_small" -v cl="$calls_large" -v ns="$small" -v nl="$large" \
    -v c1="$c_10k" -v c2="$c_100k" -v m1="$m_10k" -v m2="$m_100k" 'BEGIN {
  printf "tessaly/rename:   %.2f wall clock, %.2f processor\n", t / r, ct / cr
  printf "tessaly/mmv:      %.2f wall clock, %.2f processor, %.2f peak memory\n", t / m, ct / cm, mt / mm
  printf "calls alone/mmv:  %.2f wall clock, %.2f processor\n", k / m, ck / cm
  printf "system calls per file (tessaly-cli, %d vs %d files): %.2f\n", ns, nl, (cl - cs) / (nl - ns)
  printf "growth, 10,000 to 100,000 files: processor %.3f s to %.3f s (%.2f times as much a file), " \
         "peak memory of a run %d KB to %d KB\n", c1, c2, (c2 / 100000) / (c1 / 10000), m1, m2
}'
