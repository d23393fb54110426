#!/usr/bin/env bash
# Sets up, builds natively and for Windows, and runs every test and check. Ends with one line that counts passed and failed.
# What has not changed since the last run is not built and not linted again.
set -uo pipefail
cd "$(dirname "$0")/.."
export CTEST_OUTPUT_ON_FAILURE=1

passed=0
failed=0

# check NAME COMMAND...: one test, passed when the command succeeds.
check() {
  local name=$1
  shift
  echo "== $name"
  if "$@"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "FAILED: $name"
  fi
}

# tests PRESET COMMAND...: runs ctest and adds its counts; a run that executed no test has failed.
tests() {
  local preset=$1 log=build/$1.test.log line
  shift
  echo "== tests: $preset"
  "$@" ctest --preset "$preset" >"$log" 2>&1
  line=$(grep -E '^[0-9]+% tests passed, [0-9]+ tests? failed out of [0-9]+$' "$log")
  if [[ $line =~ ,\ ([0-9]+)\ tests?\ failed\ out\ of\ ([0-9]+)$ ]] && [ "${BASH_REMATCH[2]}" -gt 0 ]; then
    passed=$((passed + BASH_REMATCH[2] - BASH_REMATCH[1]))
    failed=$((failed + BASH_REMATCH[1]))
    echo "$line"
    [ "${BASH_REMATCH[1]}" = 0 ] || grep -vE '^ *(Start +[0-9]+:|[0-9]+/[0-9]+ Test .*Passed)' "$log" | tail -n 200
  else
    failed=$((failed + 1))
    tail -n 50 "$log"
    echo "FAILED: tests of $preset did not run"
  fi
}

formatted() {
  git ls-files -z -- '*.cpp' '*.h' | grep -zv 'Table\.cpp$' | xargs -0 clang-format --dry-run -Werror
}

scripts/setup.sh || {
  echo '0 passed, 1 failed'
  exit 1
}
mkdir -p build

check 'build: native' scripts/build.sh native
tests native
check 'build: sanitize' scripts/build.sh sanitize
tests sanitize
check 'build: windows' scripts/build.sh windows
tests windows scripts/wine-env.sh
check 'format' formatted
check 'lint' scripts/lint.py

echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
