#!/usr/bin/env bash
# Writes a PNG of every page and dialog of the windows, at normal size and
# at one and a half times (fonts and scale), into build/screenshots: the Qt
# window on the offscreen platform, and the Windows window under Wine when
# it has been built (scripts/build-windows.sh). For a person to look at.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -x build/tests/qt/qt_screenshots ] || bash scripts/setup.sh
cmake --build build --target qt_screenshots >/dev/null
out=$PWD/build/screenshots
rm -rf "$out"
# A screen of a common size, so the window opens at the size it wants
# rather than fitted to the offscreen platform's small default screen.
screen=$(mktemp)
trap 'rm -f "$screen"' EXIT
echo '{"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1080,
  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}' >"$screen"
export QT_QPA_PLATFORM="offscreen:configfile=$screen"
build/tests/qt/qt_screenshots "$out/qt/normal" 2>/dev/null
QT_SCALE_FACTOR=1.5 build/tests/qt/qt_screenshots "$out/qt/large" 2>/dev/null
if [ -x build-win/tests/win32/win32_screenshots.exe ] && [ -f scripts/win32_screenshots.sh ]; then
  bash scripts/win32_screenshots.sh "$out/win32"
fi
find "$out" -name '*.png' | sort
