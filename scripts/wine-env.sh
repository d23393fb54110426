#!/usr/bin/env bash
# Runs a command in an environment for Wine of its own: a Wine prefix under build/wine, a virtual display, the Chinese
# locale and font. When the command ends, or is interrupted, everything that was started for it ends too.
#
#   scripts/wine-env.sh ctest --preset windows
#   scripts/wine-env.sh --on-user-display wine build/windows/bin/Scrivanta.exe
#
# Several may run at the same time; each takes the first prefix that is free.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
wine_folder=$root/build/wine

on_user_display=false
if [ "${1-}" = --on-user-display ]; then
  on_user_display=true
  shift
fi
if [ $# = 0 ]; then
  echo "usage: scripts/wine-env.sh [--on-user-display] COMMAND [ARGUMENT...]" >&2
  exit 2
fi
mkdir -p "$wine_folder"

# The text of the windows is Chinese whatever the language of the machine: Wine takes its code page from the locale.
export LC_ALL=zh_CN.UTF-8
export WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:--all}
# No offers to install .NET or HTML engines, no entries in the user's menus. With the debugger a crash would end with
# exit status 0 every now and then.
export WINEDLLOVERRIDES='mscoree,mshtml,winedbg.exe,winemenubuilder.exe='

# Two fonts are seen: one Chinese one, and the signs of the caption buttons. Other Chinese fonts draw small text illegibly
# at 96 dots per inch, and beside a Latin one Chinese punctuation is missing. Wine looks at folders and does not ask which
# of their fonts are wanted, so they get a folder of their own.
fonts=$wine_folder/fonts
mkdir -p "$fonts"
ln -sf /usr/share/fonts/truetype/wqy/wqy-microhei.ttc /usr/share/wine/fonts/marlett.ttf "$fonts"
export FONTCONFIG_FILE=$wine_folder/fonts.conf
cat >"$FONTCONFIG_FILE.$$" <<CONFIGURATION
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>$fonts</dir>
  <cachedir>$wine_folder/font-cache</cachedir>
</fontconfig>
CONFIGURATION
mv "$FONTCONFIG_FILE.$$" "$FONTCONFIG_FILE"

xvfb_pid=
keeper_pid=
clean_up() {
  trap - EXIT INT TERM HUP
  if [ -n "$keeper_pid" ]; then
    exec {keeper_input}>&-
    wineserver -k 2>/dev/null || true
    wait "$keeper_pid" 2>/dev/null || true
  fi
  if [ -n "$xvfb_pid" ]; then
    kill "$xvfb_pid" 2>/dev/null || true
    wait "$xvfb_pid" 2>/dev/null || true
  fi
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

start_display() {
  local number
  exec {display_pipe}< <(exec setpriv --pdeathsig TERM Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp -noreset 2>/dev/null)
  xvfb_pid=$!
  read -r -t 20 number <&"$display_pipe" || {
    echo 'wine-env: no virtual display: Xvfb did not start' >&2
    exit 1
  }
  export DISPLAY=:$number
}

# A prefix from nothing takes a quarter of a minute, a copy of one two seconds: the first is kept to copy from.
make_template() {
  local template=$wine_folder/template
  exec {template_lock}>"$template.lock"
  flock "$template_lock"
  if [ ! -e "$template/ready" ]; then
    rm -rf "$template"
    WINEPREFIX=$template wineboot --init >"$wine_folder/wineboot.log" 2>&1 &&
      WINEPREFIX=$template wineserver -w && [ -e "$template/system.reg" ] || {
      cat "$wine_folder/wineboot.log" >&2
      echo 'wine-env: the Wine prefix could not be made' >&2
      exit 1
    }
    touch "$template/ready"
  fi
  exec {template_lock}>&-
}

# take_prefix NAME: locks build/wine/NAME for the life of this script, and makes it when it is not there. False when
# another holds it.
take_prefix() {
  local prefix=$wine_folder/$1
  exec {prefix_lock}>"$prefix.lock"
  flock -n "$prefix_lock" || return 1
  make_template
  if [ ! -e "$prefix/ready" ]; then
    rm -rf "$prefix"
    cp -a "$wine_folder/template" "$prefix"
  fi
  export WINEPREFIX=$prefix
}

if $on_user_display; then
  [ -n "${DISPLAY-}" ] || {
    echo 'wine-env: DISPLAY is not set' >&2
    exit 1
  }
  take_prefix user || {
    # Another program of this user runs in it: that one owns the prefix, this one joins.
    WINEPREFIX=$wine_folder/user
    export WINEPREFIX
  }
  "$@"
  exit
fi

start_display
slot=1
until take_prefix "prefix-$slot"; do
  slot=$((slot + 1))
done
# Windows are left unmanaged: without a window manager a managed one waits two seconds for an answer that never comes.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null 2>&1
# One program that stays keeps the server and the desktop alive between the tests, which then start in a third of the
# time. It ends when its input does, so not even a killed script leaves it behind.
exec {keeper_input}> >(exec wine cmd /q /d >/dev/null 2>&1)
keeper_pid=$!
# The first window starts the desktop. It must not be the command's: the desktop would hold the command's output open.
wine rundll32 user32.dll,GetDesktopWindow </dev/null >/dev/null 2>&1

"$@"
