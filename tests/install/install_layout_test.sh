#!/usr/bin/env bash
# Installs the build into a temporary root as `cmake --install` does and
# checks that each file lies where the desktop, man and the shells look for
# it, that the validators accept the desktop file and the AppStream record,
# and that the completions and man pages know the options the program has.
set -euo pipefail
build=$1
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
DESTDIR=$root cmake --install "$build" --prefix /usr/local >/dev/null
usr=$root/usr/local
share=$usr/share
fail() { echo "FAIL: $*" >&2; exit 1; }

for path in bin/tessaly bin/tessaly-cli; do
  [ -x "$usr/$path" ] || fail "$path is not installed"
done
for path in applications/tessaly.desktop metainfo/org.tessaly.Tessaly.metainfo.xml \
    icons/hicolor/scalable/apps/tessaly.svg icons/hicolor/48x48/apps/tessaly.png \
    man/man1/tessaly.1.gz man/man1/tessaly-cli.1.gz \
    bash-completion/completions/tessaly bash-completion/completions/tessaly-cli \
    zsh/site-functions/_tessaly fish/vendor_completions.d/tessaly-cli.fish \
    kio/servicemenus/tessaly.desktop "tessaly/nautilus/Rename with Tessaly"; do
  [ -f "$share/$path" ] || fail "$path is not installed"
done

desktop=$share/applications/tessaly.desktop
desktop-file-validate "$desktop" || fail "desktop-file-validate"
appstreamcli validate --no-net "$share/metainfo/org.tessaly.Tessaly.metainfo.xml" >/dev/null ||
  fail "appstreamcli validate"
grep -qx 'Exec=tessaly %F' "$desktop" || fail "the menu entry does not start tessaly with the files"
grep -qx 'Icon=tessaly' "$desktop" || fail "the menu entry names another icon"
# Installing the menu entry makes Tessaly nobody's default program: not
# for unknown files, not for folders, not for the types they fall back to.
applications=$root/applications
cp -r "$share/applications" "$applications"
update-desktop-database "$applications"
for type in application/octet-stream application/x-unknown-thing inode/directory text/plain; do
  default=$(env -i PATH="$usr/bin:/usr/bin:/bin" HOME="$root" XDG_DATA_HOME="$root/none" \
    XDG_CONFIG_HOME="$root/none" XDG_CONFIG_DIRS="$root/none" XDG_DATA_DIRS="$root" \
    gio mime "$type" 2>&1 | head -1)
  [[ $default == "No default applications for"* ]] || fail "$type: $default"
done
grep -q '<launchable type="desktop-id">tessaly.desktop</launchable>' \
  "$share/metainfo/org.tessaly.Tessaly.metainfo.xml" || fail "the AppStream record launches another file"
# Every PNG is as large as the folder it lies in says.
for png in "$share"/icons/hicolor/*/apps/tessaly.png; do
  size=$(basename "$(dirname "$(dirname "$png")")")
  [ "$(file -b "$png" | grep -o '[0-9]* x [0-9]*' | tr -d ' ')" = "$size" ] || fail "$png is not $size"
done

# Both programs print their usage and version, and refuse an unknown
# option with status 2, without a display: the window program too.
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
"$usr/bin/tessaly" --version | grep -qx 'tessaly (Tessaly) [0-9.]*' || fail "tessaly --version"
status=0
"$usr/bin/tessaly" --bogus 2>"$root/err" || status=$?
[ $status -eq 2 ] && grep -q "unknown option '--bogus'" "$root/err" ||
  fail "tessaly --bogus ended with $status: $(cat "$root/err")"

# The options --help lists (indented lines that begin with "-") are known
# to the man page and to every completion.
knows() {
  local file=$1 option=$2 pattern=$2
  if [[ $file == *.fish ]]; then
    [[ $option == --* ]] && pattern="-l ${option#--}" || pattern="-s ${option#-}"
  fi
  grep -qE -- "(^|[ (\"'])$pattern([ ):\"']|\$)" "$file"
}
for program in tessaly tessaly-cli; do
  help=$("$usr/bin/$program" --help) || fail "$program --help"
  zcat "$share/man/man1/$program.1.gz" | sed 's/\\-/-/g' >"$root/man.txt"
  options=$(sed -nE 's/^ +(-.*)$/\1/p' <<<"$help" | sed -E 's/  .*//' | grep -oE -- '--?[a-z0-9][a-z0-9-]*' || true)
  [ -n "$options" ] || fail "$program --help lists no options"
  for option in $options; do
    for file in "$root/man.txt" "$share/bash-completion/completions/$program" \
        "$share/zsh/site-functions/_tessaly" "$share/fish/vendor_completions.d/$program.fish"; do
      knows "$file" "$option" || fail "$program: ${file#"$root"} lacks $option"
    done
  done
done

# bash completes "/settings:" with the fourteen names --help lists.
help=$("$usr/bin/tessaly-cli" --help)
source "$share/bash-completion/completions/tessaly-cli"
COMP_WORDS=(tessaly-cli /settings :) COMP_CWORD=2
set +e  # a completion function runs without it
_tessaly
set -e
[ ${#COMPREPLY[@]} -eq 14 ] || fail "bash completes ${#COMPREPLY[@]} names behind /settings:"
for name in "${COMPREPLY[@]}"; do
  grep -qw -- "$name" <<<"$help" || fail "bash completes /settings:$name, which --help does not name"
  grep -q -- "$name" "$share/zsh/site-functions/_tessaly" || fail "zsh lacks /settings:$name"
  grep -q -- "$name" "$share/fish/vendor_completions.d/tessaly-cli.fish" || fail "fish lacks /settings:$name"
done

# As a person types, in a folder holding a file "Lofile": in bash "/set"
# TAB gives "/settings:", whose value then completes (readline once quoted
# it as a file name's "/settings\:"); in fish a switch's value is never
# a file name.
mkdir "$root/typing" && touch "$root/typing/Lofile"
typed=$(printf 'source %q\ncd %q\ntessaly-cli /set\tLowerC\t\001echo \005\nexit\n' \
    "$share/bash-completion/completions/tessaly-cli" "$root/typing" |
  INPUTRC=/dev/null TERM=dumb timeout 20 script -qec "bash --norc --noprofile -i" /dev/null | tr -d '\r')
grep -qx 'tessaly-cli /settings:LowerCase' <<<"$typed" || fail "bash typed: $typed"
offered=$(cd "$root/typing" && fish --no-config -c \
  "source $share/fish/vendor_completions.d/tessaly-cli.fish; complete -C 'tessaly-cli /settings:Lo'")
[ "$offered" = $'/settings:LongExtension\n/settings:LowerCase' ] || fail "fish offers: $offered"
echo "install layout: ok"
