#!/usr/bin/env bash
# Works with the program at random, comparing the document with a plain model after each step:
#
#   scripts/soak.sh [STEPS [SEED]]
#
# Without a seed it takes one and says which, so that what goes wrong can be had again.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/build.sh windows soak
scripts/wine-env.sh wine build/windows/bin/soak.exe "${1:-2000}" ${2:+"$2"}
