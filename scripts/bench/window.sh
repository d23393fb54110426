#!/usr/bin/env bash
# Times the window at work on a large GBK document beside the bare edit control: scripts/bench.sh window [MEGABYTES].
set -euo pipefail
cd "$(dirname "$0")/../.."
scripts/build.sh windows bench_timings
megabytes=${1:-10}
document=build/bench/window/$megabytes.txt
mkdir -p "$(dirname "$document")"
python3 - "$document" "$megabytes" <<'PYTHON'
import random, sys
path, size = sys.argv[1], int(float(sys.argv[2]) * 1e6)
random.seed(1)
characters = [bytes([high, low]) for high in range(0xB0, 0xD7) for low in range(0xA1, 0xFF)]
characters += [bytes([letter]) for letter in b'abcdefghij 0123456789' * 40]
with open(path, 'wb') as file:
    while file.tell() < size:
        file.write(b''.join(random.choices(characters, k=random.randrange(20, 76))) + b'\r\n')
        if random.randrange(5) == 0:
            file.write(b'\r\n')
PYTHON
exec scripts/wine-env.sh wine build/windows/bin/bench_timings.exe "Z:${PWD//\//\\}\\${document//\//\\}"
