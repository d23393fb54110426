#!/usr/bin/env bash
# Start of the program, and its memory with a document of 10 MB, beside a bare window with a rich edit control.
set -euo pipefail
cd "$(dirname "$0")/../.."
scripts/build.sh windows bench_startup
mkdir -p build/bench
document=build/bench/ten-megabytes.txt
python3 - "$document" <<'SCRIPT'
import random
import sys
random.seed(1)
characters = "的一是在不了有和人这中大为上个国我以要他时来用们生到作地于出就分对成会可主发年动同工也能下过子说产种面而方后多定行学法所民得经"
lines = ("".join(random.choices(characters, k=random.randrange(10, 60))) + " %d\r\n" % i for i in range(10**7))
with open(sys.argv[1], "wb") as file:
    for line in lines:
        file.write(line.encode("gbk"))
        if file.tell() >= 10 * 2**20:
            break
SCRIPT
scripts/wine-env.sh wine build/windows/bin/bench_startup.exe "${TURNS:-10}" "$document"
