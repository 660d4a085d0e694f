#!/usr/bin/env bash
# Sets up, builds and runs the program's main job. With arguments, runs
# tessaly-cli with them (paths count from where you called this script).
# Without, makes a demo folder of awkwardly named files and renames them
# unattended, settings kept inside the demo folder, and prints the log.
set -euo pipefail
caller_dir=$PWD
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cli=$PWD/build/app/cli/tessaly-cli
cd "$caller_dir"

if [ $# -gt 0 ]; then
  exec "$cli" "$@"
fi

demo=$(mktemp -d "${TMPDIR:-/tmp}/tessaly-demo.XXXXXX")
export TESSALY_REGISTRY_DIR="$demo/.settings"
for name in "holiday  photo_01.JPG" "Ünïcode Ça.JPG" "my_report   final.TXT" \
            "the QUICK brown fox.Txt" "notes (1).txt" "IMG_0042.JPEG"; do
  printf 'demo\n' > "$demo/$name"
done

echo "Demo folder: $demo"
echo "Before:"
ls -1 "$demo" | sed 's/^/  /'
echo
"$cli" "$demo"/* /settings:Capitalize /settings:FixSpacing /settings:RemoveUnderscores \
  /settings:RemoveDoubleSpace /step:4 /exit
echo
echo "After:"
ls -1 "$demo" | sed 's/^/  /'
