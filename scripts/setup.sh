#!/usr/bin/env bash
# Installs what is needed, builds the release preset, and runs the program's
# main job on the bundled data: the headless start-up check.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
cmake --preset release
cmake --build --preset release
build/release/solvane/solvane-cli check
