#!/usr/bin/env bash
# Sets up, builds and runs the program's main job. Without arguments it
# makes a demo folder of awkwardly named files (settings kept inside it):
# on a desktop it opens the wizard with them listed, so you can walk the
# steps yourself; without a display (or with TESSALY_CONSOLE=1) it renames
# them unattended with tessaly-cli and prints the log. With arguments, runs
# tessaly-cli with them (paths count from where you called this script).
set -euo pipefail
caller_dir=$PWD
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cli=$PWD/build/app/cli/tessaly-cli
wizard=$PWD/build/app/qt/tessaly
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
if [ -z "${TESSALY_CONSOLE:-}" ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
  echo "Opening the wizard with the demo files listed."
  exec "$wizard" "$demo"/*
fi

echo "Before:"
ls -1 "$demo" | sed 's/^/  /'
echo
switches=(/settings:Capitalize /settings:FixSpacing /settings:RemoveUnderscores
          /settings:RemoveDoubleSpace /step:4 /exit)
echo "Dry run (-n), nothing renamed yet:"
"$cli" -n "$demo"/* "${switches[@]}"
echo
"$cli" "$demo"/* "${switches[@]}"
echo
echo "After:"
ls -1 "$demo" | sed 's/^/  /'
