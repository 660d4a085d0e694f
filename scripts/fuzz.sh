#!/usr/bin/env bash
# Builds the libFuzzer targets with clang in ./build-fuzz and runs each for
# SECONDS_PER_TARGET (default 10) on a copy of its seed corpus in
# fuzz/corpus/. A crash, a sanitizer report, a broken property or an input
# that takes over 10 s fails the script; the input is kept in
# build-fuzz/crashes/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-10}

# The window is left out: only the fuzz targets and what they test are built.
bash scripts/install_missing.sh clang cmake ninja-build libsqlite3-dev
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DTESSALY_BUILD_FUZZERS=ON -DTESSALY_BUILD_TESTS=OFF -DTESSALY_BUILD_BENCHMARKS=OFF \
  -DTESSALY_BUILD_QT=OFF >/dev/null
cmake --build build-fuzz --target tessaly_fuzzers -j "$(nproc)"

rm -rf build-fuzz/crashes && mkdir -p build-fuzz/crashes
failed=()
for seeds in fuzz/corpus/*/; do
  name=$(basename "$seeds")
  work=build-fuzz/corpus/$name
  rm -rf "$work" && mkdir -p "$work" && cp "$seeds"* "$work"/
  echo "Fuzzing $name for ${seconds} s"
  if ! "build-fuzz/fuzz/${name}_fuzzer" -max_total_time="$seconds" -timeout=10 \
      -artifact_prefix="build-fuzz/crashes/$name-" "$work" 2> "build-fuzz/$name.log"; then
    tail -n 30 "build-fuzz/$name.log"
    failed+=("$name")
  fi
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "Fuzzing failed: ${failed[*]} (inputs in build-fuzz/crashes/)" >&2
  exit 1
fi
echo "Fuzzing passed: no crash in ${seconds} s per target."
