#!/usr/bin/env bash
# Builds the demo IDE and plays its tour: it loads the panes module, docks the
# panes over the sample project and writes numbered screenshots, out/tour.md
# (one line for each) and out/transcript.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh default demohost dockpanes
mkdir -p out
rm -f out/*.png
build/default/bin/demohost --headless out
