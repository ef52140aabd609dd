#!/usr/bin/env bash
# Builds and runs the test suite of one preset (default: "default").
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
scripts/setup.sh "$preset"
ctest --preset "$preset" -j "$(nproc)"
