#!/usr/bin/env bash
# The installer under Wine, silently, once per machine and once per user
# (/CurrentUser): what it puts in place (both programs, the Start-menu
# entry, App Paths, the entry in the list of programs, Explorer's verb on
# files and folders), then the uninstaller, silently, which takes all of it
# away and leaves the person's settings.
# Usage: installer.sh SETUP.exe, with WINEPREFIX set.
set -uo pipefail
setup=$1
failed=0
settings='HKCU\Software\Ostrelle\Tessaly\Settings'
user=$(id -un)
profile="$WINEPREFIX/drive_c/users/$user/AppData"

check() {
  if ! eval "$2"; then
    failed=$((failed + 1))
    printf 'FAILED: %s\n  %s\n' "$1" "$2" >&2
  fi
}
# A value of a key, or its default value.
value() {
  if [ -n "${2:-}" ]; then
    wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r'
  else
    wine reg query "$1" /ve 2>/dev/null | tr -d '\r'
  fi
}
has_key() { wine reg query "$1" >/dev/null 2>&1; }

# One round: ROOT of the keys, the programs' folder as Windows and as this
# machine write it, the Start-menu entry, and the installer's own options.
round() {
  local root=$1 windows_folder=$2 programs=$3 menu=$4
  shift 4
  local uninstall="$root\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessaly_is1"
  local app_paths="$root\Software\Microsoft\Windows\CurrentVersion\App Paths\tessaly.exe"
  local file_verb="$root\Software\Classes\*\shell\Tessaly\command"
  local folder_verb="$root\Software\Classes\Directory\shell\Tessaly\command"
  wine reg add "$settings" /v Kept /d yes /f >/dev/null 2>&1
  wine "$setup" /S "$@"
  wineserver -w
  check "$root: both programs installed" '[ -f "$programs/tessaly.exe" ] && [ -f "$programs/tessaly-cli.exe" ]'
  check "$root: a Start-menu entry" '[ -f "$menu" ]'
  check "$root: App Paths names the window program" \
    'value "$app_paths" | grep -qF "$windows_folder\tessaly.exe"'
  check "$root: an entry in the list of programs" 'value "$uninstall" DisplayName | grep -q "Tessaly"'
  check "$root: a silent uninstall is offered" 'value "$uninstall" QuietUninstallString | grep -q "/S"'
  check "$root: Rename with Tessaly on files" 'value "$file_verb" | grep -qF "tessaly.exe\" \"%1\""'
  check "$root: Rename with Tessaly on folders" 'value "$folder_verb" | grep -qF "tessaly.exe\" \"%1\""'

  # "_?=" keeps the uninstaller in place, so it ends before this goes on.
  wine "$programs/uninstall.exe" /S "_?=$windows_folder"
  wineserver -w
  rm -f "$programs/uninstall.exe"  # left behind by "_?=" by design
  rmdir "$programs" 2>/dev/null
  check "$root: the programs are gone" '[ ! -e "$programs" ]'
  check "$root: the Start-menu entry is gone" '[ ! -e "$menu" ]'
  for key in "$uninstall" "$app_paths" "$file_verb" "$folder_verb"; do
    check "$key is gone" '! has_key "$key"'
  done
  check "$root: the person's settings stay" 'value "$settings" Kept | grep -q yes'
  wine reg delete "$settings" /f >/dev/null 2>&1
}

round HKLM 'C:\Program Files\Tessaly' "$WINEPREFIX/drive_c/Program Files/Tessaly" \
  "$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Tessaly.lnk"
round HKCU "C:\\users\\$user\\AppData\\Local\\Programs\\Tessaly" "$profile/Local/Programs/Tessaly" \
  "$profile/Roaming/Microsoft/Windows/Start Menu/Programs/Tessaly.lnk" /CurrentUser

[ "$failed" -eq 0 ] && echo "installer: every check passed"
exit $((failed > 0))
