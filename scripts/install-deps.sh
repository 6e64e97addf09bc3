#!/usr/bin/env bash
# Installs with apt what building and testing need. Safe to run again.
set -euo pipefail

packages=(
    g++ clang cmake ninja-build clang-format
    qt6-base-dev qt6-base-dev-tools qt6-charts-dev qt6-svg-dev libgl1-mesa-dev
    googletest libgtest-dev libgmock-dev libbenchmark-dev
    xvfb xauth
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
    SUDO=""
    [ "$(id -u)" -ne 0 ] && SUDO="sudo"
    $SUDO apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
