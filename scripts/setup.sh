#!/usr/bin/env bash
# Installs what is needed, builds the release preset, and runs the program's
# main job on a bundled sample: the headless simulation of a project.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
cmake --preset release
cmake --build --preset release
build/release/solvane/solvane-cli run "build/release/solvane/sample/Small Office [two levels, I-P].inp"
