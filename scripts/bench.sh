#!/usr/bin/env bash
# Compares the programs with their peers in one run: scripts/bench.sh SUITE [ARGUMENT...]. Each suite is
# a program of its own in scripts/bench/ and says at its top what it measures and prints.
set -euo pipefail
cd "$(dirname "$0")/.."
suite=${1:?usage: scripts/bench.sh lines|crypto|regexp|tables|hanzi|contacts|database|window|find|startup|stopping}
shift
for program in "scripts/bench/$suite.py" "scripts/bench/$suite.sh"; do
  [ -x "$program" ] && exec "$program" "$@"
done
echo "no such suite: $suite" >&2
exit 2
