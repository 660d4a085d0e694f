#!/usr/bin/env bash
# Sets up, builds and runs the program's main job.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
exec build/app/demo/tessaly-demo "$@"
