#!/usr/bin/env bash
# Compares the search windows with the bare edit control and with a search in memory: scripts/bench.sh find. Takes about a
# minute under Wine.
set -euo pipefail
cd "$(dirname "$0")/../.."
scripts/build.sh windows bench_find
scripts/wine-env.sh wine build/windows/bin/bench_find.exe colour
scripts/wine-env.sh wine build/windows/bin/bench_find.exe find
scripts/wine-env.sh wine build/windows/bin/bench_find.exe note
