#!/usr/bin/env bash
# Installs what the build needs on a Debian 12 machine (as root, or with sudo),
# then configures and builds one preset: scripts/setup.sh [preset] [targets...]
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev
          libpng-dev libfreetype-dev xfonts-wqy libsdl2-dev libx11-dev xvfb xdotool
          sdcc sdcc-ucsim)
preset="${1:-default}"
# The fuzz targets build with clang and link its libFuzzer runtime.
[ "$preset" = fuzz ] && packages+=(clang libclang-rt-14-dev)
missing=()
for p in "${packages[@]}"; do
    dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo_cmd=""
    [ "$(id -u)" -eq 0 ] || sudo_cmd="sudo"
    $sudo_cmd apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq "${missing[@]}"
fi

shift || true
cmake --preset "$preset" >/dev/null
if [ $# -gt 0 ]; then
    cmake --build --preset "$preset" --target "$@"
else
    cmake --build --preset "$preset"
fi
