#!/usr/bin/env bash
# Runs a test program under Wine, for ctest. Passed is what ends with exit status 0 and with GoogleTest's closing line:
# a program that is ended in the middle of a test can leave 0 behind.
set -uo pipefail
if [ -z "${WINEPREFIX-}" ]; then
  echo 'window tests need a display and a Wine prefix: scripts/wine-env.sh ctest --preset windows' >&2
  exit 1
fi
case " $* " in
  *' --gtest_list_tests '*) exec wine "$@" ;;
esac
output=$(mktemp)
trap 'rm -f "$output"' EXIT
wine "$@" | tee "$output"
status=${PIPESTATUS[0]}
if [ "$status" = 0 ] && ! grep -qE '^\[  PASSED  \] 1 test\.' "$output"; then
  echo 'the test program ended before its test did'
  exit 1
fi
exit "$status"
