#!/usr/bin/env bash
# Makes the pictures in docs/images from the program itself. Run it when the windows have changed, and look at the pictures.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
scripts/build.sh windows pictures
mkdir -p docs/images
# Relative paths are the same to both systems but for the strokes.
scripts/wine-env.sh wine build/windows/bin/pictures.exe samples docs/images
ls -l docs/images
