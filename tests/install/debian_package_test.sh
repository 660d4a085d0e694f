#!/usr/bin/env bash
# Builds the Debian package, lets lintian judge it, unpacks it into a
# temporary root and runs the programs from there: the console program's
# version and a small rename, and the window program started and ended
# without a screen.
set -euo pipefail
build=$1
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

cpack --config "$build/CPackConfig.cmake" -B "$tmp/out" >"$tmp/cpack.log" 2>&1 ||
  { cat "$tmp/cpack.log"; fail "cpack"; }
deb=$(ls "$tmp"/out/tessaly_*.deb)
echo "package: $(basename "$deb"), $(du -k "$deb" | cut -f1) KiB"

# Warnings would be allowed if explained; today lintian gives none, only
# informational tags (hardening flags the build does not set).
lintian --fail-on error "$deb" || fail "lintian found errors"

depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
for library in libqt6widgets6 libqt6core6 libsqlite3-0 qt6-qpa-plugins; do
  grep -q "$library" <<<"$depends" || fail "Depends lacks $library"
done

dpkg-deb -x "$deb" "$tmp/root"
# zsh on Debian reads packaged completions from vendor-completions only.
[ -f "$tmp/root/usr/share/zsh/vendor-completions/_tessaly" ] || fail "zsh completion misplaced"
cli=$tmp/root/usr/bin/tessaly-cli
export TESSALY_REGISTRY_DIR=$tmp/registry
# --version comes with the console program's Unix options; until then
# --help does not name it and only the rename below is checked.
if "$cli" --help | grep -q -- --version; then
  "$cli" --version | grep -q "1\.[0-9]" || fail "tessaly-cli --version names no version"
else
  echo "SKIP: tessaly-cli has no --version yet"
fi

mkdir "$tmp/work"
echo demo >"$tmp/work/Holiday Photo.JPG"
"$cli" "$tmp/work/Holiday Photo.JPG" /settings:LowerCase /step:4 /exit </dev/null >"$tmp/log.txt" ||
  { cat "$tmp/log.txt"; fail "tessaly-cli ended in failure"; }
[ -f "$tmp/work/holiday photo.jpg" ] && [ ! -e "$tmp/work/Holiday Photo.JPG" ] ||
  { cat "$tmp/log.txt"; fail "the installed tessaly-cli did not rename"; }

QT_QPA_PLATFORM=offscreen timeout 60 "$tmp/root/usr/bin/tessaly" --command-line "/hide /exit" ||
  fail "the installed tessaly did not start and end"
echo "debian package: ok"
