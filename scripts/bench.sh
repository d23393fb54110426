#!/usr/bin/env bash
# Compares the console program with its peers: scripts/bench.sh lines. Prints CPU seconds, wall seconds and memory of
# each, and the ratio of the CPU seconds.
set -euo pipefail
cd "$(dirname "$0")/.."
suite=${1:?usage: scripts/bench.sh lines|crypto}
# A comparison with a program of its own in scripts/bench/.
[ -x "scripts/bench/$suite.py" ] && exec "scripts/bench/$suite.py"
[ -x "scripts/bench/$suite.sh" ] && exec "scripts/bench/$suite.sh"
batch=$PWD/build/native/bin/scrivanta-batch
data=$PWD/build/bench/$suite
[ "$suite" = lines ] || { echo "no such suite: $suite" >&2; exit 2; }
[ -e "$data/few20.txt" ] || python3 bench/make_lines.py "$data"
cd "$data"

# measure COMMAND: its CPU seconds in $cpu, wall seconds and kilobytes in $rest
measure() {
  LC_ALL=C /usr/bin/time -o time.txt -f '%U %S %e %M' bash -c "$1"
  cpu=$(awk '{ print $1 + $2 }' time.txt)
  rest=$(awk '{ print $3 " s wall, " int($4 / 1024) " MiB" }' time.txt)
}

compare() { # NAME OURS PEER
  measure "$batch $2 -o ours.out"; local ours=$cpu oursRest=$rest
  measure "$3"
  awk -v n="$1" -v a="$ours" -v ar="$oursRest" -v b="$cpu" -v br="$rest" \
    'BEGIN { printf "%-22s %.2f s (%s), peer %.2f s (%s): %.2f times\n", n, a, ar, b, br, a / b }'
}

once="mawk '!seen[\$0]++'"
compare del-empty-lines "del-empty-lines random.txt" "sed '/^\$/d' random.txt > peer.out"
compare trim-lines "trim-lines random.txt" "sed 's/^ *//;s/ *\$//' random.txt > peer.out"
compare del-lines "del-lines --from 5 --to 9 random.txt" "sed 5,9d random.txt > peer.out"
compare filter "filter --keyword abc random.txt" "grep -aF abc random.txt > peer.out; grep -avF abc random.txt > peer2.out"
compare sort "sort random.txt" "sort random.txt > peer.out"
compare "sort, sorted" "sort sorted.txt" "$batch sort random.txt -o peer.out"
compare "sort, equal" "sort equal.txt" "$batch sort random.txt -o peer.out"
compare "sort by number" "sort --by number random.txt" "sort -n random.txt > peer.out"
compare shuffle "shuffle random.txt" "shuf random.txt > peer.out"
compare dedupe "dedupe random.txt" "$once random.txt > peer.out"
compare "dedupe --keep none" "dedupe --keep none random.txt" "$once random.txt > peer.out; $once random.txt > peer.out"
for count in 2 5 10 20; do
  compare "dedupe, $count words" "dedupe few$count.txt" "$once few$count.txt > peer.out"
done
