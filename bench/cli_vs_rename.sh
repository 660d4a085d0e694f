#!/usr/bin/env bash
# Whole-program timing: tessaly-cli lower-cases 32,767 files, against
# Debian's perl `rename` and `mmv` doing the same on fresh copies of the
# same folder. Prints the three times and the ratios tessaly/rename and
# tessaly/mmv. Installs `rename` and `mmv` if they are missing.
#   bash bench/cli_vs_rename.sh [COUNT]
set -euo pipefail
cd "$(dirname "$0")/.."
count=${1:-32767}
cli=$PWD/build/app/cli/tessaly-cli
[ -x "$cli" ] || bash scripts/setup.sh

missing=()
command -v rename >/dev/null || missing+=(rename)
command -v mmv >/dev/null || missing+=(mmv)
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}" >/dev/null
fi

work=$(mktemp -d "${TMPDIR:-/tmp}/tessaly-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work/base"
# Names with upper case in the name and the extension, and a blank.
(cd "$work/base" && seq -f "IMG_%05g Holiday.JPG" 1 "$count" | tr '\n' '\0' | xargs -0 touch)
for copy in tessaly rename mmv floor; do cp -a "$work/base" "$work/$copy"; done
sync

now_ns() { date +%s%N; }
# Runs the command in a copy and prints the seconds it took.
timed() {
  local folder=$1; shift
  local start end
  start=$(now_ns)
  (cd "$work/$folder" && "$@") >"$work/$folder.out" 2>"$work/$folder.err"
  end=$(now_ns)
  awk -v ns=$((end - start)) 'BEGIN { printf "%.3f", ns / 1e9 }'
}
# Fails the benchmark if a copy still holds an upper-case name.
check() {
  local left
  left=$(find "$work/$1" -mindepth 1 -name '*[A-Z]*' | wc -l)
  local total
  total=$(find "$work/$1" -mindepth 1 | wc -l)
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
# A change of letter case alone goes through a temporary name on a volume
# that ignores case, as Tessaly's volumes do: two renames per file. This is
# the least that road costs, with no checks at all.
t_floor=$(timed floor perl -e 'for (glob "*") { my $l = lc; rename $_, "$l.temp"; rename "$l.temp", $l }')
check floor

echo "files:            $count"
echo "tessaly-cli:      ${t_tessaly} s"
echo "rename (perl):    ${t_rename} s"
echo "mmv:              ${t_mmv} s"
echo "two bare renames: ${t_floor} s"
awk -v t="$t_tessaly" -v r="$t_rename" -v m="$t_mmv" -v f="$t_floor" 'BEGIN {
  printf "tessaly/rename:   %.2f\n", t / r
  printf "tessaly/mmv:      %.2f\n", t / m
  printf "tessaly/two bare renames: %.2f\n", t / f
}'
