#!/usr/bin/env bash
# Makes the pictures in docs/images from the program itself. Run it when the windows have changed, and look at the pictures.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
mkdir -p build docs/images
(cmake --preset windows && cmake --build --preset windows --target screenshots) >build/screenshots.log 2>&1 || {
  tail -n 50 build/screenshots.log >&2
  exit 1
}
# Relative paths are the same to both systems but for the strokes.
scripts/wine-env.sh wine build/windows/bin/screenshots.exe samples docs/images
ls -l docs/images
