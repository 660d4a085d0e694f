#!/usr/bin/env bash
# Sets up, builds and runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cd build
ctest --output-on-failure -j "$(nproc)"
