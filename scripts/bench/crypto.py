#!/usr/bin/env python3
"""Codecs and ciphers beside openssl and base64 on a file of 100 MB, in memory where there is /dev/shm.

Each pair of commands runs in turns, five times; the best times and the largest peak of memory are printed.
"""

import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BIN = ROOT / "build" / "native" / "bin"
BATCH = str(BIN / "scrivanta-batch")
SIZE = 100_000_000
ROUNDS = 5
KEY = "00" * 31 + "2a"


def run(command, output=None, environment=None):
    """Seconds and peak of memory in MB."""
    start = time.monotonic()
    with open(output or os.devnull, "wb") as stream:
        process = subprocess.Popen(command, stdout=stream, env={**os.environ, **(environment or {})})
        _, status, usage = os.wait4(process.pid, 0)
    if status != 0:
        sys.exit(f"failed: {' '.join(command)}")
    return time.monotonic() - start, usage.ru_maxrss / 1024


def make_text(path):
    """Printable text: a NUL would end what base64-decode gives."""
    generator = random.Random(1)
    block = "".join(chr(generator.randrange(33, 127)) for _ in range(1_000_000)).encode()
    with open(path, "wb") as file:
        for _ in range(SIZE // len(block)):
            file.write(block)


def compare(name, ours, peer, most):
    measured = [(run(*ours), run(*peer)) for _ in range(ROUNDS)]
    our_time = min(pair[0][0] for pair in measured)
    peer_time = min(pair[1][0] for pair in measured)
    peak = max(pair[0][1] for pair in measured)
    print(f"| {name} | {our_time:.3f} s | {peer_time:.3f} s | {our_time / peer_time:.2f} | {most} | {peak:.0f} MB |")


def main():
    folder = pathlib.Path(tempfile.mkdtemp(dir="/dev/shm" if os.path.isdir("/dev/shm") else None))
    try:
        plain, ours, theirs, encoded = (str(folder / name) for name in ("plain", "ours", "theirs", "encoded"))
        make_text(plain)
        openssl = ["openssl", "enc", "-aes-256-ecb", "-K", KEY, "-nosalt", "-in", plain, "-out", theirs]
        without = {"OPENSSL_ia32cap": "~0x200000200000000"}
        run(["base64", "-w0", plain], encoded)
        print("| work | ours | peer | ratio | at most | our peak |\n|---|---|---|---|---|---|")
        compare("`rijndael-encrypt`, AES instructions", ([BATCH, "rijndael-encrypt", "--password", "42", plain, "-o", ours],),
                (openssl,), 1.2)
        compare("the table form", ([str(BIN / "bench_RijndaelTables"), plain, ours],), (openssl, None, without), 1.0)
        compare("`base64-encode`", ([BATCH, "base64-encode", plain, "-o", ours],), (["base64", "-w0", plain], theirs), 1.0)
        compare("`base64-decode`", ([BATCH, "base64-decode", encoded, "-o", ours],), (["base64", "-d", encoded], theirs), 1.0)
    finally:
        shutil.rmtree(folder)


main()
