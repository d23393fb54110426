#!/usr/bin/env python3
"""The commands on tables beside their peers, on GBK tables of 1,000,000 records of four columns and 28 MB.

Prints Markdown tables as scripts/bench.sh lines does. Names of suites as arguments measure only those:
scripts/bench.sh tables join growth
"""

import os
import random
import subprocess

from measure import ROOT, compare, compare_growth, ours, run_suites

DATA = ROOT / "build" / "bench" / "tables"
RECORDS = 1_000_000
# Two passes: the widths of the columns, then the records.
TO_FIXED = ("mawk -F'\\t' 'NR == FNR { for (i = 1; i <= NF; i++) if (length($i) > w[i]) w[i] = length($i); next }"
            " { s = \"\"; for (i = 1; i <= NF; i++) s = s sprintf(\"%-\" w[i] \"s\", $i); print s }'"
            " table.txt table.txt > peer.out")
HASH_JOIN = ("mawk -F'\\t' 'NR == FNR { row[$1] = $2 \"\\t\" $3 \"\\t\" $4; next } $1 in row { print $0 \"\\t\" row[$1] }'"
             " second.txt table.txt > peer.out")
WORDS = ["电话", "北京市海淀区", "张三", "李四光", "Beijing", "上海", "pen", "办公用品"]


def fixed():
    compare("`to-fixed-width`, `mawk`", ours("to-fixed-width table.txt"), TO_FIXED, 0.6)
    subprocess.run(ours("to-fixed-width --save-layout layout.txt table.txt"), shell=True, check=True)
    os.replace("ours.out", "fixed.txt")
    compare("`from-fixed-width`, `to-fixed-width`", ours("from-fixed-width --layout layout.txt fixed.txt"),
            ours("to-fixed-width table.txt"), "")


def joins():
    compare("`join`, `mawk`", ours("join --key 1 table.txt second.txt"), HASH_JOIN, 0.8)
    compare("`join --kind full`, `join`", ours("join --key 1 --kind full table.txt second.txt"),
            ours("join --key 1 table.txt second.txt"), "")


def columns():
    compare("`columns --lines`, `pr`", ours("columns --count 3 --lines 50 --width 40 lines.txt"),
            "pr -t -3 -l 50 -w 126 lines.txt > peer.out", "1.0")
    compare("`columns`, `columns --lines`", ours("columns --count 3 lines.txt"),
            ours("columns --count 3 --lines 50 --width 40 lines.txt"), "")


def growth():
    """Ten times the records: streaming commands keep their memory, and a join that of its smaller table."""
    rows = (
            ("to-fixed-width {}", "table.txt", "tenfold.txt"),
            ("from-fixed-width --widths 9,12,12,99 --width-unit characters --delimiter comma {}", "table.txt", "tenfold.txt"),
            ("split-columns --delimiter tab {}", "table.txt", "tenfold.txt"),
            ("columns --count 3 --lines 50 {}", "table.txt", "tenfold.txt"),
            ("join --key 1 {} second.txt", "table.txt", "tenfold.txt"),
            ("join --key 1 second.txt {}", "table.txt", "tenfold.txt"),
    )
    compare_growth("records", ((f"`{command.format('')}`", command.format(small), command.format(large))
                               for command, small, large in rows))


def make_files():
    if (DATA / "tenfold.txt").exists():  # the last that is made
        return
    DATA.mkdir(parents=True, exist_ok=True)
    random.seed(17)

    def record(key):
        return f"{key}\t{random.choice(WORDS)}\t{random.randint(0, 999_999)}\t{random.choice(WORDS)}"

    keys = list(range(RECORDS))
    for name in ("table.txt", "second.txt"):
        random.shuffle(keys)
        (DATA / name).write_bytes(("\n".join(map(record, keys)) + "\n").encode("gb18030"))
    subprocess.run("tr '\\t' ' ' < table.txt > lines.txt;"
                   "for i in 0 1 2 3 4 5 6 7 8 9; do cat table.txt; done > making.txt; mv making.txt tenfold.txt",
                   shell=True, check=True, cwd=DATA)


def main():
    suites = {"fixed": fixed, "join": joins, "columns": columns, "growth": growth}
    run_suites(suites, make_files, DATA, ["fixed.txt", "layout.txt"])


main()
