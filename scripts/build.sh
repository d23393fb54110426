#!/usr/bin/env bash
# Builds targets of a preset and says nothing unless that fails: scripts/build.sh PRESET [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:?usage: scripts/build.sh PRESET [TARGET...]}
shift
log=build/$preset.build.log
mkdir -p build
(cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}) >"$log" 2>&1 || {
  grep -E -A 5 'error|FAILED|undefined' "$log" | head -n 100 >&2 || tail -n 50 "$log" >&2
  exit 1
}
