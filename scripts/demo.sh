#!/usr/bin/env bash
# Builds the demo host and runs it: it loads the panes module, shows the
# views over a sample project and writes out/panes.png and out/transcript.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh default demohost dockpanes
mkdir -p out
build/default/bin/demohost out
