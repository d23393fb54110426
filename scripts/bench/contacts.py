#!/usr/bin/env python3
"""A phone book of 100,000 cards to a table, beside python3-vobject reading 10,000 of them.

Each pair runs in turns, three times; of each the run with the fewest CPU seconds counts. Prints a Markdown table: CPU
seconds (user and system), the ratio, the limit, and the peak of memory. Needs the package python3-vobject.
"""

import pathlib
import random
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BATCH = ROOT / "build" / "native" / "bin" / "scrivanta-batch"
CARDS = 100_000
PEER_CARDS = 10_000
ROUNDS = 3
FAMILIES = "赵钱孙李周吴郑王冯陈"
GIVEN = "伟芳娜敏静丽强磊军洋勇艳杰娟涛明超秀霞平"
HEAD = ";CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:"
PEER = """import sys, vobject
with open(sys.argv[1], encoding="utf-8") as book:
    for card in vobject.readComponents(book):
        print(card.fn.value, *(tel.value for tel in card.contents.get("tel", [])), sep="\\t")
"""


def encoded(text):
    return "".join(f"={byte:02X}" for byte in text.encode())


def write_book(path, count, photo=""):
    """Values short enough to need no soft break, which the peer does not take inside a character."""
    choose = random.Random(1)
    with open(path, "w", encoding="ascii", newline="") as book:
        for number in range(count):
            family = choose.choice(FAMILIES)
            given = choose.choice(GIVEN) + choose.choice(GIVEN)
            lines = [
                "BEGIN:VCARD", "VERSION:2.1", f"N{HEAD}{encoded(family)};{encoded(given)};;;",
                f"FN{HEAD}{encoded(family + given)}", f"TEL;CELL:1{choose.randrange(10**10):010}",
            ]
            if number % 2:
                lines.append(f"TEL;WORK:010-{choose.randrange(10**8):08}")
            if number % 3 == 0:
                lines.append(f"EMAIL;HOME:user{number}@example.com")
            if photo and number % 10 == 0:
                lines += [photo, ""]
            book.write("\r\n".join([*lines, "END:VCARD", ""]))


def run(command, folder):
    """CPU seconds and the peak in MiB."""
    usage = folder / "usage.txt"
    subprocess.run(["/usr/bin/time", "-o", usage, "-f", "%U %S %M", *map(str, command)], check=True, stdout=subprocess.DEVNULL)
    user, system, peak = usage.read_text().split()
    return float(user) + float(system), int(peak) / 1024


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        book, peer_book, photos = (folder / file for file in ("book.vcf", "peer.vcf", "photos.vcf"))
        write_book(book, CARDS)
        write_book(peer_book, PEER_CARDS)
        write_book(photos, CARDS, "PHOTO;ENCODING=BASE64;JPEG:" + "\r\n ".join(["A" * 72] * 280))
        output = folder / "ours.out"
        ours = [BATCH, "vcard-to-table", "--encoding", "utf-8", book, "-o", output]
        pairs = [(run(ours, folder), run([sys.executable, "-c", PEER, peer_book], folder)) for _ in range(ROUNDS)]
        own, peer = (min(pair[i][0] for pair in pairs) for i in (0, 1))
        peak = max(pair[0][1] for pair in pairs)
        print("| work | ours | peer | ratio | at most | our peak |\n|---|---|---|---|---|---|")
        print(f"| {CARDS:,} cards to a table, vobject reading {PEER_CARDS:,} | {own:.2f} s | {peer:.2f} s | {own / peer:.2f} |"
              f" 0.5 | {peak:.0f} MiB |")
        for work, command in (
            ("with photos, a book of %.0f MB" % (photos.stat().st_size / 1e6),
             [BATCH, "vcard-to-table", "--encoding", "utf-8", photos, "-o", output]),
            ("to a sheet", [BATCH, "vcard-to-table", "--to", "xlsx", book, "-o", folder / "book.xlsx"]),
            ("from that sheet to cards", [BATCH, "table-to-vcard", "--from", "xlsx", folder / "book.xlsx", "-o", output]),
        ):
            cpu, peak = run(command, folder)
            print(f"| {work} | {cpu:.2f} s | | | | {peak:.0f} MiB |", flush=True)


main()
