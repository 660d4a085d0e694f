#!/usr/bin/env bash
# The Windows window's pictures for scripts/screenshots.sh: Wine on a
# virtual X screen, in a prefix of its own, once at 96 dots an inch and
# once at 144 (one and a half times). Writes into the folder given.
set -euo pipefail
cd "$(dirname "$0")/.."
out=$1
bash scripts/install_missing.sh xvfb
export WINEPREFIX="$PWD/build-win/shotprefix"
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
Xvfb :71 -screen 0 1920x1080x24 -nolisten tcp &
xvfb=$!
trap 'wineserver -k 2>/dev/null || true; kill $xvfb 2>/dev/null || true' EXIT
export DISPLAY=:71
if [ ! -d "$WINEPREFIX" ]; then
  wine wineboot --init >/dev/null 2>&1
  mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
  cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/"
fi
# One desktop window that Wine draws itself, title bars included, as
# Windows shows them; no window manager is needed.
wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Shots /f >/dev/null 2>&1
wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Shots /d 1920x1080 /f >/dev/null 2>&1
shots=build-win/tests/win32/win32_screenshots.exe
for size in normal:96 large:144; do
  wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "${size#*:}" /f >/dev/null 2>&1
  wineserver -k 2>/dev/null || true
  wine "$shots" "$(winepath -w "$out/${size%%:*}")"
done
