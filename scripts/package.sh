#!/usr/bin/env bash
# Makes the packages from what the Windows build made: build/packages/Scrivanta-VERSION-setup.exe, the installer for one
# user, and build/packages/Scrivanta-VERSION-portable.zip, which runs from any folder and keeps its settings there.
#
#   scripts/package.sh [--version VERSION]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
output=$root/build/packages
version=$(sed -nE 's/^project\(Scrivanta VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
if [ "${1-}" = --version ]; then
  version=$2
fi

if ! dpkg-query -W -f '${Status}\n' nsis 2>/dev/null | grep -q 'ok installed'; then
  as_root=()
  [ "$(id -u)" = 0 ] || as_root=(sudo)
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends nsis >/dev/null
fi

scripts/build.sh windows scrivanta scrivanta-batch companion32 help_document

# What is delivered, without what only a debugger reads.
stage=$output/stage
rm -rf "$stage"
mkdir -p "$stage/Scrivanta/samples"
for program in Scrivanta.exe scrivanta-batch.exe; do
  x86_64-w64-mingw32-strip -o "$stage/Scrivanta/$program" "build/windows/bin/$program"
done
cp build/windows/bin/ScrivantaJet32.exe build/windows/bin/Scrivanta.rtf "$stage/Scrivanta/"
cp samples/*.txt "$stage/Scrivanta/samples/"
# The libraries that the programs hold ask for their notices to go with them.
for package in libpcre2-dev libsqlite3-dev libxlsxwriter-dev libpugixml-dev libminizip-dev zlib1g-dev libsodium-dev libcli11-dev \
  nlohmann-json3-dev mingw-w64-x86-64-dev gcc-mingw-w64-x86-64-posix; do
  printf '==== %s ====\n\n' "$package"
  cat "/usr/share/doc/$package/copyright"
done | sed 's/$/\r/' >"$stage/Scrivanta/licences.txt"

setup=$output/Scrivanta-$version-setup.exe
makensis -V2 -WX -INPUTCHARSET UTF8 '-XTarget amd64-unicode' "-DVERSION=$version" "-DPROGRAM_FOLDER=$stage/Scrivanta" \
  "-DSAMPLES_FOLDER=$stage/Scrivanta/samples" "-DICON=$root/src/Scrivanta.ico" "-DOUTPUT=$setup" packaging/Scrivanta.nsi

portable=$output/Scrivanta-$version-portable.zip
rm -f "$portable"
iconv -f UTF-8 -t GBK packaging/portable.ini | sed 's/$/\r/' >"$stage/Scrivanta/Scrivanta.ini"
(cd "$stage" && python3 -m zipfile -c "$portable" Scrivanta)
rm -rf "$stage"
ls -l "$setup" "$portable"
