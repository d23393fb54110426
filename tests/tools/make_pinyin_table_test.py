"""The table of Chinese characters is what its script makes of the packages' data; passed over where they are missing."""

import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
SKIPPED = 77
sys.path.insert(0, str(ROOT / "tools"))
import make_pinyin_table  # noqa: E402

if not all(path.exists() for path in make_pinyin_table.SOURCES):
    print("the packages unicode-data and rime-data-pinyin-simp are not installed")
    sys.exit(SKIPPED)
made = subprocess.run([sys.executable, ROOT / "tools" / "make_pinyin_table.py"], capture_output=True, check=True).stdout
if made != (ROOT / "src" / "hanzi" / "HanziTable.cpp").read_bytes():
    sys.exit("src/hanzi/HanziTable.cpp is not what tools/make_pinyin_table.py makes")
