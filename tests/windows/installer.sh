#!/usr/bin/env bash
# The installer under Wine, silently: what it puts in place (both programs,
# the Start-menu entry, App Paths, the entry in the list of programs,
# Explorer's verb on files and folders), then the uninstaller, silently,
# which takes all of it away and leaves the person's settings.
# Usage: installer.sh SETUP.exe, with WINEPREFIX set.
set -uo pipefail
setup=$1
failed=0
programs="$WINEPREFIX/drive_c/Program Files/Tessaly"
menu="$WINEPREFIX/drive_c/ProgramData/Microsoft/Windows/Start Menu/Programs/Tessaly.lnk"
uninstall='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessaly_is1'
app_paths='HKLM\Software\Microsoft\Windows\CurrentVersion\App Paths\tessaly.exe'
file_verb='HKLM\Software\Classes\*\shell\Tessaly\command'
folder_verb='HKLM\Software\Classes\Directory\shell\Tessaly\command'
settings='HKCU\Software\Ostrelle\Tessaly\Settings'

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

wine reg add "$settings" /v Kept /d yes /f >/dev/null 2>&1
wine "$setup" /S
wineserver -w
check "both programs installed" '[ -f "$programs/tessaly.exe" ] && [ -f "$programs/tessaly-cli.exe" ]'
check "a Start-menu entry" '[ -f "$menu" ]'
check "App Paths names the window program" \
  'value "$app_paths" | grep -qF "C:\\Program Files\\Tessaly\\tessaly.exe"'
check "an entry in the list of programs" 'value "$uninstall" DisplayName | grep -q "Tessaly"'
check "a silent uninstall is offered" 'value "$uninstall" QuietUninstallString | grep -q "/S"'
check "Rename with Tessaly on files" 'value "$file_verb" | grep -qF "tessaly.exe\" \"%1\""'
check "Rename with Tessaly on folders" 'value "$folder_verb" | grep -qF "tessaly.exe\" \"%1\""'

# "_?=" keeps the uninstaller in place, so it ends before this goes on.
wine "$programs/uninstall.exe" /S '_?=C:\Program Files\Tessaly'
wineserver -w
rm -f "$programs/uninstall.exe"  # left behind by "_?=" by design
rmdir "$programs" 2>/dev/null
check "the programs are gone" '[ ! -e "$programs" ]'
check "the Start-menu entry is gone" '[ ! -e "$menu" ]'
for key in "$uninstall" "$app_paths" "$file_verb" "$folder_verb"; do
  check "$key is gone" '! has_key "$key"'
done
check "the person's settings stay" 'value "$settings" Kept | grep -q yes'
wine reg delete "$settings" /f >/dev/null 2>&1

[ "$failed" -eq 0 ] && echo "installer: every check passed"
exit $((failed > 0))
