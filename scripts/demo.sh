#!/usr/bin/env bash
# Builds the demo IDE and runs it. By default it plays its tour headless: it
# loads the panes module, docks the panes over the sample project and writes
# numbered screenshots, out/tour.md (one line for each) and
# out/transcript.txt. With --window it opens the IDE in a desktop window for
# a person to drive (close the window to quit).
set -euo pipefail
cd "$(dirname "$0")/.."
mode="--headless"
if [ "${1:-}" = "--window" ]; then mode="--window"; fi
scripts/setup.sh default demohost dockpanes
mkdir -p out
if [ "$mode" = "--headless" ]; then rm -f out/*.png; fi
build/default/bin/demohost "$mode" out
