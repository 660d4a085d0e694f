#!/usr/bin/env bash
# Builds the tests that need no window with AddressSanitizer and
# UndefinedBehaviorSanitizer into ./build-asan and runs them. Any report
# ends the test that made it, so it fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."

checks="-fsanitize=address,undefined -fno-sanitize-recover=all"
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DTESSALY_BUILD_BENCHMARKS=OFF -DTESSALY_BUILD_QT=OFF \
  -DCMAKE_CXX_FLAGS="$checks -fno-omit-frame-pointer -O1" \
  -DCMAKE_EXE_LINKER_FLAGS="$checks" >/dev/null
cmake --build build-asan -j "$(nproc)"

export ASAN_OPTIONS="detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1"
export LSAN_OPTIONS="suppressions=$PWD/scripts/lsan.supp"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
cd build-asan
# Install checks want the whole program, window included: not built here.
ctest --output-on-failure -j "$(nproc)" --label-exclude install
