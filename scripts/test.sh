#!/usr/bin/env bash
# Installs and builds if needed, then runs every test: unit tests and the
# offscreen tests of the desktop screens.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
preset="${SOLVANE_TEST_PRESET:-release}"
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
export QT_QPA_PLATFORM=offscreen
# Leaks of system libraries are not ours to fix (sanitizer builds only).
export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$PWD/tests/sanitizers/lsan.supp}"
ctest --preset "$preset" --output-on-failure -j2
