#!/usr/bin/env python3
"""Writes the input files of the line benchmarks into a folder: GBK, 1,000,000 lines of about 40 bytes."""
import pathlib
import random
import sys

LINES = 1_000_000
folder = pathlib.Path(sys.argv[1])
folder.mkdir(parents=True, exist_ok=True)
random.seed(7)


def make_word():
    if random.random() < 0.5:
        return "".join(chr(random.randrange(0x4E00, 0x5000)) for _ in range(random.randint(2, 4)))
    return "".join(random.choice("abcdefghijklmnopqrstuvwxyz") for _ in range(random.randint(3, 8)))


def write(name, lines):
    (folder / name).write_bytes(("\n".join(lines) + "\n").encode("gb18030"))


words = [make_word() for _ in range(60_000)]
lines = []
for i in range(LINES):
    if lines and random.random() < 0.2:
        lines.append(random.choice(lines))
    else:
        chosen = [random.choice(words) for _ in range(random.randint(3, 7))]
        lines.append(" ".join(chosen + [str(random.randint(0, 999_999))]))
write("random.txt", lines)
write("sorted.txt", sorted(lines, key=lambda line: line.encode("utf-16-be")))
write("equal.txt", [lines[0]] * LINES)
for count in (2, 5, 10, 20):
    few = "abcdefghijklmnopqrst"[:count]
    write(f"few{count}.txt", [" ".join(random.choice(few) for _ in range(random.randint(15, 25))) for _ in range(LINES)])
