#!/usr/bin/env bash
# Sets up, builds and opens the program under Wine.
#
#   scripts/run.sh [FILE]
#
# On the user's display when there is one. Without a display it opens the document (a sample when none is named) on a virtual
# one, removes its empty lines through the menu, and leaves the result and a picture in build/run.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

# windows_path FILE: as programs under Wine name it.
windows_path() {
  local path
  path=$(realpath -m -- "$1")
  printf 'Z:%s' "${path//\//\\}"
}

build() {
  echo 'building'
  "$root/scripts/build.sh" windows "$@"
}

"$root/scripts/setup.sh"

if [ -n "${DISPLAY-}" ] && xdpyinfo >/dev/null 2>&1; then
  build scrivanta
  arguments=()
  [ $# = 0 ] || arguments+=("$(windows_path "$1")")
  exec "$root/scripts/wine-env.sh" --on-user-display wine "$root/build/windows/bin/Scrivanta.exe" "${arguments[@]}"
fi

build scrivanta errand
document=${1:-$root/samples/notes.txt}
folder=$root/build/run
mkdir -p "$folder"
name=$(basename "$document")
result=$folder/${name%.*}-no-empty-lines.txt
picture=$folder/window.png
echo 'there is no display: the program runs on a virtual one'
"$root/scripts/wine-env.sh" wine "$root/build/windows/bin/errand.exe" \
  "$(windows_path "$document")" "$(windows_path "$result")" "$(windows_path "$picture")" \
  2> >(grep -v '^wine: Read access denied for device' >&2)  # Wine would like to read the label of the disk
echo "result:  $result"
echo "picture: $picture"
