#!/usr/bin/env python3
"""Writes src/tables/CellWidthTable.cpp: which characters take no cell of the screen, and which take two.

Two cells: East Asian Width W, F and A (ambiguous characters are wide in Chinese fonts), but the soft hyphen. No cell:
what is set over or into the character before it (general categories Mn, Me and Cf) and the vowels and final consonants
of Hangul syllables. The data is Unicode's, from Debian's package unicode-data.

Usage: tools/make_cell_width_table.py > src/tables/CellWidthTable.cpp
"""

import pathlib

import run_table

DATA = pathlib.Path("/usr/share/unicode")


def read_ranges(name):
    """(first, last, value) of each line of a file of properties."""
    for line in (DATA / name).read_text(encoding="utf-8").splitlines():
        line = line.split("#")[0].strip()
        if line:
            codes, value = (part.strip() for part in line.split(";")[:2])
            first, _, last = codes.partition("..")
            yield int(first, 16), int(last or first, 16), value


def find_widths():
    widths = {}
    for first, last, value in read_ranges("EastAsianWidth.txt"):
        if value in ("W", "F", "A"):
            widths.update(dict.fromkeys(range(first, last + 1), 2))
    for first, last, value in read_ranges("extracted/DerivedGeneralCategory.txt"):
        if value in ("Mn", "Me", "Cf"):
            widths.update(dict.fromkeys(range(first, last + 1), 0))
    widths.update(dict.fromkeys(range(0x1160, 0x1200), 0))
    widths.pop(0xAD, None)
    return widths


def find_runs(widths):
    runs = []
    for code, width in sorted(widths.items()):
        if 0xD800 <= code < 0xE000:
            continue
        if runs and runs[-1][1] == code - 1 and runs[-1][2] == width:
            runs[-1][1] = code
        else:
            runs.append([code, code, width])
    return runs


def main():
    print(run_table.source("make_cell_width_table.py", "tables/CellWidthTable.h", "CellWidthRun", find_runs(find_widths())), end="")


if __name__ == "__main__":
    main()
