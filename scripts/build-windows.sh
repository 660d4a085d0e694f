#!/usr/bin/env bash
# Installs the MinGW-w64 cross compiler, Wine and GoogleTest's sources when
# missing, then cross-builds tessaly-cli.exe and the Windows test programs,
# statically linked, into ./build-win. Safe to run again.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install_missing.sh cmake ninja-build g++-mingw-w64-x86-64-posix wine wine64 googletest
cmake --no-warn-unused-cli -S . -B build-win -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake \
  -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build-win -j "${TESSALY_BUILD_JOBS:-$(nproc)}"
