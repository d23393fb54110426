#!/usr/bin/env python3
"""Writes src/text/UpperCaseTable.cpp, the upper cases of the characters of the basic plane.

A character counts when Unicode gives it one upper-case character, in the basic plane too. What is no ASCII letter stays
none: the long s and the dotless i keep to themselves.

Usage: tools/make_upper_case_table.py > src/text/UpperCaseTable.cpp
"""

import run_table


def upper_case(code):
    """The code of the upper case, or the code itself."""
    if 0xD800 <= code < 0xE000:
        return code
    upper = chr(code).upper()
    if len(upper) != 1 or ord(upper) > 0xFFFF or (code >= 0x80 and ord(upper) < 0x80):
        return code
    return ord(upper)


def find_runs():
    """Characters at even steps whose upper case lies at the same distance: [first, last, step, distance]."""
    runs = []
    for code in range(0x10000):
        distance = upper_case(code) - code
        if distance == 0:
            continue
        if runs and runs[-1][3] == distance:
            first, last, step, _ = runs[-1]
            if (first == last and code - last <= 2) or code - last == step:
                runs[-1] = [first, code, code - last, distance]
                continue
        runs.append([code, code, 1, distance])
    return runs


def main():
    print(run_table.source("make_upper_case_table.py", "text/UpperCaseTable.h", "UpperCaseRun", find_runs()), end="")


if __name__ == "__main__":
    main()
