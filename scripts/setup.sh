#!/usr/bin/env bash
# Installs the Debian packages the project needs (only those missing), then
# configures and builds into ./build. Safe to run again.
set -euo pipefail
cd "$(dirname "$0")/.."

# strace lets the tests count the renames a run makes; locales holds the
# sources localedef needs to build the German locale that the date-name
# test reads (without them that test is skipped).
packages=(cmake g++ ninja-build libgtest-dev libgmock-dev libbenchmark-dev libsqlite3-dev qt6-base-dev
          strace locales)
# The install tests build the Debian package, lint it, validate the
# desktop files, ask gio which program opens a type, and type into bash
# (by script) and fish to try the completions.
packages+=(dpkg-dev file lintian desktop-file-utils appstream libglib2.0-bin bsdutils fish)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  $sudo_cmd apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}"
fi

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$(nproc)"
