#!/usr/bin/env bash
# Installs the MinGW-w64 cross compiler, Wine, NSIS, icoutils and
# GoogleTest's sources when missing, then cross-builds tessaly.exe,
# tessaly-cli.exe, the Windows test programs (statically linked) and the
# installer tessaly-VERSION-win64-setup.exe into ./build-win. Safe to run
# again.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install_missing.sh cmake ninja-build g++-mingw-w64-x86-64-posix wine wine64 googletest \
  nsis icoutils
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake --no-warn-unused-cli -S . -B build-win -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake \
  -DCMAKE_BUILD_TYPE=Release "${launcher[@]}" >/dev/null
cmake --build build-win -j "${TESSALY_BUILD_JOBS:-$(nproc)}"
