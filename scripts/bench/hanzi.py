#!/usr/bin/env python3
"""Order by pinyin, pinyin initials, merged files: what they cost beside their peers.

1,000,000 lines of 30 characters of Chinese with some ASCII in it (GBK), and the same lines in 1,000 files. "A plain copy" is
del-empty-lines, which reads and writes every line and does nothing to it. Prints a Markdown table as the lines suite does.
With the path of a file of phrases, one a line with its syllables behind a tab (UTF-8), it also counts how many initials are
right: scripts/bench.sh hanzi [PHRASES]
"""

import os
import pathlib
import random
import subprocess
import sys
import unicodedata

from measure import BATCH, HEAD, ROOT, compare, ours

DATA = ROOT / "build" / "bench" / "hanzi"
LINES, FILES = 1_000_000, 1_000
# As frequent as in running text, roughly: some hundred characters make most of it.
FREQUENT = "的一是不了在人有我他这个们中来上大为和国地到以说时要就出会可也你对生能而子那得于着下自之年过发后作里"


def line(characters):
    return "".join(random.choice(FREQUENT if random.random() < 0.4 else characters) for _ in range(30))


def make_files():
    if (DATA / "files").exists():  # the last that is made
        return
    random.seed(7)
    characters = bytes(b for lead in range(0xB0, 0xF8) for trail in range(0xA1, 0xFF) for b in (lead, trail))
    characters = characters.decode("gbk", "ignore") + "abcdefghijklmnopqrstuvwxyz0123456789，。 " * 20
    text = [line(characters) for _ in range(LINES)]
    (DATA / "lines.txt").write_bytes("".join(row + "\r\n" for row in text).encode("gbk"))
    making = DATA / "making"
    making.mkdir(exist_ok=True)
    for i in range(FILES):
        part = text[i * LINES // FILES : (i + 1) * LINES // FILES]
        (making / f"{i}.txt").write_bytes("".join(row + "\r\n" for row in part).encode("gbk"))
    making.rename(DATA / "files")


def initial(syllable):
    return next(c for c in unicodedata.normalize("NFD", syllable) if c.isascii()).upper()


def count_right(path):
    rows = [row.split("\t") for row in path.read_text(encoding="utf-8").splitlines()]
    rows = [(phrase, syllables.split()) for phrase, syllables in rows]
    rows = [row for row in rows if len(row[0]) == len(row[1]) and all("\u4e00" <= c <= "\u9fff" for c in row[0])]
    made = subprocess.run([BATCH, "pinyin-initials", "--encoding", "utf-8", "--place", "only"], capture_output=True,
                          check=True, input="".join(phrase + "\n" for phrase, _ in rows).encode()).stdout.decode().split()
    right = sum(a == initial(b) for letters, (_, syllables) in zip(made, rows, strict=True)
                for a, b in zip(letters, syllables, strict=True))
    print(f"\n{len(rows)} phrases: {100 * right / sum(len(letters) for letters in made):.2f} % of the initials are right")


def main():
    DATA.mkdir(parents=True, exist_ok=True)
    phrases = pathlib.Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else None
    os.chdir(DATA)
    make_files()
    print(HEAD)
    compare("`pinyin-initials`, a plain copy", ours("pinyin-initials lines.txt"),
            f"{BATCH} del-empty-lines lines.txt -o peer.out", 6)
    compare("`sort --by pinyin`, `sort`", ours("sort --by pinyin lines.txt"), "sort lines.txt > peer.out", "")
    compare("`sort --by strokes`, `sort`", ours("sort --by strokes lines.txt"), "sort lines.txt > peer.out", "")
    ten_times = "for i in 1 2 3 4 5 6 7 8 9 10; do {}; done".format
    compare("`merge-files` of 1,000, `cat`, ten times", ten_times(ours("merge-files files")),
            ten_times("cat files/* > peer.out"), 2)
    if phrases:
        count_right(phrases)


main()
