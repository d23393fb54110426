#!/usr/bin/env bash
# Compares the search windows with the bare edit control and with a search in memory: scripts/bench.sh find. Needs the
# program built for Windows. Takes about two minutes under Wine.
set -euo pipefail
cd "$(dirname "$0")/../.."
scripts/wine-env.sh wine build/windows/bin/find_bench.exe colour
scripts/wine-env.sh wine build/windows/bin/find_bench.exe find
