#!/usr/bin/env bash
# Tries the packages as a person would have them: installs silently, starts the program, opens a document, upgrades,
# uninstalls, and looks for what was left behind. Then the portable zip. Takes about two minutes, so it is not in
# scripts/test.sh; run it when the packages or the program's settings and folders change.
#
#   scripts/test-package.sh
set -euo pipefail
cd "$(dirname "$0")/.."
packages=$PWD/build/packages

if [ "${1-}" != --inside ]; then
  scripts/package.sh --version 0.0.9 >/dev/null
  scripts/package.sh >/dev/null
  exec scripts/wine-env.sh scripts/test-package.sh --inside
fi

new_version=$(sed -nE 's/^project\(Scrivanta VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
old_setup=$packages/Scrivanta-0.0.9-setup.exe
new_setup=$packages/Scrivanta-$new_version-setup.exe
portable=$packages/Scrivanta-$new_version-portable.zip
scratch=$(mktemp -d)
trap 'wineserver -k 2>/dev/null || true; rm -rf "$scratch"' EXIT

# A prefix that no other test has written to.
cp -a build/wine/template "$scratch/prefix"
export WINEPREFIX=$scratch/prefix
wineserver -p
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
drive=$WINEPREFIX/drive_c
folder=$drive/文本\ 工具/Scrivanta
windows_folder='C:\文本 工具\Scrivanta'
# The installer takes the rest of the command line as the folder, and Wine puts quotes around words with blanks: so two words.
into_folder=('/D=C:\文本' '工具\Scrivanta')
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Scrivanta'
settings_key='HKCU\Software\Scrivanta'

failed=0
# expect WHAT COMMAND...: the command succeeds.
expect() {
  local what=$1
  shift
  if "$@"; then
    echo "ok: $what"
  else
    echo "FAILED: $what"
    failed=$((failed + 1))
  fi
}
# refuse WHAT COMMAND...: the command fails.
refuse() {
  local what=$1
  shift
  expect "$what" not "$@"
}
not() { ! "$@"; }
# until_true COMMAND...: asks every fifth of a second until the command succeeds, for half a minute.
until_true() {
  local turn
  for turn in $(seq 150); do
    "$@" && return
    sleep 0.2
  done
  echo "still not so: $*" >&2
  return 1
}
# status COMMAND...: prints its exit status.
status() { "$@" >/dev/null 2>&1 && echo 0 || echo $?; }

key_exists() { wine reg query "$1" >/dev/null 2>&1; }
# value KEY NAME: the text of a registry value.
value() { wine reg query "$1" /v "$2" 2>/dev/null | iconv -f GB18030 -t UTF-8 | tr -d '\r' | sed -nE 's/^ +[^ ].* REG_[A-Z]+ +//p'; }
has_window() { xdotool search --name "$1" >/dev/null 2>&1; }
start() { wine "$@" >/dev/null 2>&1 & }
close_program() {
  wine taskkill /im Scrivanta.exe >/dev/null 2>&1 || true
  until_true not has_window '^Scrivanta '
}
uninstall() {
  wine "$windows_folder\\Uninstall.exe" /S "$@"
  until_true not key_exists "$uninstall_key"
}
# What lies in the user's folders and in the parts of the registry that a program may write to, without the times.
traces() {
  find "$drive/users" "$drive/Program Files" "$drive" -maxdepth 9 -not -path '*/Temp/*' -not -path "$drive/windows/*" -not -path '*/Windows/Recent*' | sort -u
  for key in 'HKCU\Software\Classes' 'HKCU\Software\Scrivanta' "$uninstall_key"; do
    ! key_exists "$key" || wine reg query "$key" /s | tr -d '\r' | iconv -f GB18030 -t UTF-8 | sed '/^$/d'
  done
}

traces >"$scratch/before"

echo '-- install'
expect 'a silent installation succeeds' [ "$(status wine "$old_setup" /S "${into_folder[@]}")" = 0 ]
for file in Scrivanta.exe scrivanta-batch.exe ScrivantaJet32.exe Scrivanta.rtf samples/notes.txt samples/table.txt Uninstall.exe; do
  expect "$file is there" [ -e "$folder/$file" ]
done
expect 'the version is known to the system' [ "$(value "$uninstall_key" DisplayVersion)" = 0.0.9 ]
expect 'the start menu has it' [ -n "$(find "$drive/users" -name Scrivanta.lnk)" ]
for type in txt rtf; do
  expect "open with: $type" key_exists "HKCU\\Software\\Classes\\Scrivanta.$type\\shell\\open\\command"
done

echo '-- use'
start "$windows_folder\\Scrivanta.exe" "$windows_folder\\samples\\notes.txt"
expect 'the program opens a document' until_true has_window '^Scrivanta .*notes\.txt$'
expect 'no upgrade while it runs' [ "$(status wine "$new_setup" /S)" = 2 ]
expect 'the old version is still whole' [ "$(value "$uninstall_key" DisplayVersion)" = 0.0.9 ]
close_program
expect 'its settings stand where the uninstaller looks for them' key_exists "$settings_key\\Settings"

echo '-- upgrade'
wine reg add "$uninstall_key" /v ChoiceTxt /t REG_DWORD /d 0 /f >/dev/null
echo mine >>"$folder/samples/notes.txt"
echo document >"$folder/document.txt"
expect 'an upgrade succeeds' [ "$(status wine "$new_setup" /S)" = 0 ]
expect 'it goes where the old version is' [ "$(value "$uninstall_key" DisplayVersion)" = "$new_version" ]
expect 'a changed sample is kept' grep -q mine "$folder/samples/notes.txt"
refuse 'what was not ticked is taken away' key_exists 'HKCU\Software\Classes\Scrivanta.txt'
expect 'what was ticked stays' key_exists 'HKCU\Software\Classes\Scrivanta.rtf'
expect 'settings are kept' key_exists "$settings_key\\Settings"

echo '-- uninstall, keeping the settings'
expect 'uninstalling comes to its end' uninstall
refuse 'the program is gone' [ -e "$folder/Scrivanta.exe" ]
refuse 'an unchanged sample is gone' [ -e "$folder/samples/table.txt" ]
expect 'a changed sample stays' [ -e "$folder/samples/notes.txt" ]
expect 'a document stays' [ -e "$folder/document.txt" ]
expect 'settings stay' key_exists "$settings_key\\Settings"
rm -rf "$drive/文本 工具"

echo '-- uninstall with the settings'
expect 'it can be installed again' [ "$(status wine "$new_setup" /S "${into_folder[@]}")" = 0 ]
start "$windows_folder\\Scrivanta.exe"
until_true has_window '^Scrivanta\.[0-9]+$'
close_program
expect 'uninstalling comes to its end' uninstall /REMOVESETTINGS
rmdir "$drive/文本 工具" 2>/dev/null || true
traces >"$scratch/after"
expect 'nothing is left behind' diff "$scratch/before" "$scratch/after"

echo '-- portable'
mkdir "$drive/便携"
python3 -m zipfile -e "$portable" "$drive/便携"
start 'C:\便携\Scrivanta\Scrivanta.exe' 'C:\便携\Scrivanta\samples\table.txt'
expect 'it opens a document' until_true has_window '^Scrivanta .*table\.txt$'
close_program
expect 'its settings stand beside it' grep -q MainWidth "$drive/便携/Scrivanta/Scrivanta.ini"
rm -rf "$drive/便携"
traces >"$scratch/after"
expect 'nothing is left behind' diff "$scratch/before" "$scratch/after"

echo "package: $failed failed"
[ "$failed" = 0 ]
