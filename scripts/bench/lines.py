#!/usr/bin/env python3
"""The line commands beside their peers on a GBK file of 1,000,000 lines and 40 MB.

Each pair runs in turns, three times (once where it is slow); of each the run with the fewest CPU seconds counts. Prints
Markdown tables: CPU seconds (user and system) and wall seconds, their ratio, the limit, and the largest peak of memory.
Names of commands as arguments measure only those: scripts/bench.sh lines sort shuffle
"""

import subprocess
import sys

from measure import ROOT, compare, compare_growth, ours, run_suites

DATA = ROOT / "build" / "bench" / "lines"
ONCE = "mawk '!seen[$0]++'"
PAD = ("mawk -F'\\t' 'NR == FNR { if (NF > m) m = NF; next } { while (NF < m) $0 = $0 \"\\t\"; print }'"
       " tabs.txt tabs.txt > peer.out")


def clean_ups():
    compare("`del-empty-lines`, `sed`", ours("del-empty-lines random.txt"), "sed '/^$/d' random.txt > peer.out", 3)
    compare("`trim-lines`, `sed`", ours("trim-lines random.txt"), "sed 's/^ *//;s/ *$//' random.txt > peer.out", 3)
    compare("`del-lines`, `sed`", ours("del-lines --from 5 --to 9 random.txt"), "sed 5,9d random.txt > peer.out", 3)
    compare("`add-tabs`, `mawk`", ours("add-tabs tabs.txt"), PAD, 3)


def filters():
    compare("`filter`, `grep -F` twice", ours("filter --keyword abc random.txt"),
            "grep -aF abc random.txt > peer.out; grep -avF abc random.txt > peer2.out", 2)


def sorts():
    compare("`sort`, `sort`", ours("sort random.txt"), "sort random.txt > peer.out", "1.0")
    compare("`sort --by number`, `sort -n`", ours("sort --by number random.txt"), "sort -n random.txt > peer.out", "1.0")
    for kind in ("sorted", "equal"):
        compare(f"`sort` of {kind} lines, of random ones", ours(f"sort {kind}.txt"), ours("sort random.txt"), "1.0")


def shuffles():
    compare("`shuffle`, `shuf`", ours("shuffle random.txt"), "shuf random.txt > peer.out", 2)


def duplicates():
    compare("`dedupe`, `mawk`", ours("dedupe random.txt"), f"{ONCE} random.txt > peer.out", "1.0")
    compare("`dedupe --keep none`, `mawk` twice", ours("dedupe --keep none random.txt"),
            f"{ONCE} random.txt > peer.out; {ONCE} random.txt > peer.out", 1.5)
    for count in (2, 5, 10, 20):
        compare(f"`dedupe` of {count} words, `mawk`", ours(f"dedupe few{count}.txt"), f"{ONCE} few{count}.txt > peer.out",
                15, rounds=1)


def growth():
    """Ten times the lines: streaming commands keep their memory, the others at most twelve times the time."""
    rows = (
            ("del-empty-lines", "random.txt", "tenfold.txt"),
            ("trim-lines", "random.txt", "tenfold.txt"),
            ("del-lines --from 5 --to 9", "random.txt", "tenfold.txt"),
            ("add-tabs", "random.txt", "tenfold.txt"),
            ("filter --keyword abc", "random.txt", "tenfold.txt"),
            ("dedupe-consecutive", "random.txt", "tenfold.txt"),
            ("dedupe", "tenth.txt", "random.txt"),
            ("dedupe --keep none", "tenth.txt", "random.txt"),
            ("sort", "tenth.txt", "random.txt"),
            ("sort --by number", "tenth.txt", "random.txt"),
            ("shuffle", "tenth.txt", "random.txt"),
    )
    compare_growth("lines", ((f"`{command}` {small}", f"{command} {small}", f"{command} {large}")
                             for command, small, large in rows))


def make_files():
    if (DATA / "tenfold.txt").exists():  # the last that is made
        return
    subprocess.run([sys.executable, ROOT / "bench" / "make_lines.py", DATA], check=True)
    subprocess.run("tr ' ' '\\t' < random.txt > tabs.txt; head -n 100000 random.txt > tenth.txt;"
                   "for i in 0 1 2 3 4 5 6 7 8 9; do cat random.txt; done > making.txt; mv making.txt tenfold.txt",
                   shell=True, check=True, cwd=DATA)


def main():
    suites = {"clean-up": clean_ups, "filter": filters, "sort": sorts, "shuffle": shuffles, "dedupe": duplicates,
              "growth": growth}
    run_suites(suites, make_files, DATA, ["peer2.out"])


main()
