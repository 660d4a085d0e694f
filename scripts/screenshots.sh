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
export QT_QPA_PLATFORM=offscreen
build/tests/qt/qt_screenshots "$out/qt/normal" 2>/dev/null
QT_SCALE_FACTOR=1.5 build/tests/qt/qt_screenshots "$out/qt/large" 2>/dev/null
if [ -x build-win/tools/win32_screenshots.exe ] && [ -f scripts/win32_screenshots.sh ]; then
  bash scripts/win32_screenshots.sh "$out/win32"
fi
find "$out" -name '*.png' | sort
