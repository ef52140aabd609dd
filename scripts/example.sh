#!/usr/bin/env bash
# Builds the example host and runs it: it loads the panes module, shows the
# views over a sample project and writes out/panes.png and out/transcript.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh default panes_example dockpanes
mkdir -p out
build/default/bin/panes_example out
