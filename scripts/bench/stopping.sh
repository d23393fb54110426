#!/usr/bin/env bash
# How long the window does not answer while commands work on a large document, and how soon Esc ends them:
# scripts/bench.sh stopping [LINES]. Of each command: its whole time, the longest silence, then for moments of its time
# what passes from Esc to the end; "late" where the command has ended before it could be stopped.
set -euo pipefail
cd "$(dirname "$0")/../.."
scripts/build.sh windows bench_stopping
scripts/wine-env.sh wine build/windows/bin/bench_stopping.exe "${1:-30000}"
