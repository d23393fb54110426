#!/usr/bin/env bash
# Extraction and replacement of ten patterns in 20 MB of mixed Chinese and ASCII text, against perl and rg in one run.
# Prints a table of processor seconds, the whole process each. perl reads the text in UTF-8, rg in GBK; the console program
# both. perl goes line by line: on the whole text at once it takes minutes.
set -euo pipefail
cd "$(dirname "$0")/../.."
program=build/native/bin/scrivanta-batch
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

python3 - "$work" <<'PYTHON'
import random
import sys
random.seed(1)
lines, size = [], 0
while size < 20_000_000:
    n = len(lines)
    line = random.choice((
        f"第 {n} 行 数据处理 the quick brown fox, Win{n % 977}.bas 结束",
        f"横向页 {n}：编号 GB/T {n % 9973}-2009，共 {n % 31} 页",
        f"'功能：计算第{n}项\r\nPublic Function Item{n}(x) As Long",
        f"联系人{n} <user{n}@site{n % 97}.com> 电话 138{n:08d}",
    ))
    lines.append(line)
    size += len(line.encode("gbk")) + 2
text = "\r\n".join(lines) + "\r\n"
open(sys.argv[1] + "/gbk.txt", "wb").write(text.encode("gbk"))
open(sys.argv[1] + "/utf8.txt", "wb").write(text.encode("utf-8"))
PYTHON

patterns=(
  '[a-su-zA-SU-Z]+|[\d]+'
  '^.*?$'
  'Win.*?.bas'
  '(\w+)@(\w+)\.com'
  '^((?!横向页|abc).)*?$'
  '\d+'
  '[\x{4e00}-\x{9fa5}]+'
  '(^Public Function |^Public Sub ).*?$'
  "'功能：.*?\$"
  '[A-Z]\w*\d'
)

# Processor seconds of a command whose output is thrown into a file.
seconds() {
  local TIMEFORMAT='%U %S'
  { time "$@" >"$work/out" 2>"$work/errors" || true; } 2>&1 | awk '{ printf "%.2f", $1 + $2 }'
}

echo '| pattern | extract, UTF-8 | perl | extract, GBK | rg | replace | perl |'
echo '|---|---|---|---|---|---|---|'
for pattern in "${patterns[@]}"; do
  ours=$(sed -E 's/\\x\{([0-9a-f]{4})\}/\\u\1/g' <<<"$pattern")
  rust=$(sed -E 's/\\d/[0-9]/g; s/\[\[0-9\]\]/[0-9]/g; s/\\w/[0-9A-Za-z_]/g' <<<"$pattern")
  engine=()
  [[ $pattern == *'(?!'* ]] && engine=(-P)
  extract=$(seconds "$program" regexp-extract --encoding utf-8 --pattern "$ours" "$work/utf8.txt")
  extract_perl=$(PATTERN=$pattern seconds perl -CSDA -MEncode -ne \
    'BEGIN { $p = decode("UTF-8", $ENV{PATTERN}); $r = qr/$p/ma } while (/$r/g) { print "$&\n" if length $&; }' "$work/utf8.txt")
  extract_gbk=$(seconds "$program" regexp-extract --pattern "$ours" "$work/gbk.txt")
  extract_rg=$(seconds rg -o -N --no-filename -E gbk "${engine[@]}" -- "$rust" "$work/gbk.txt")
  replace=$(seconds "$program" regexp-replace --encoding utf-8 --pattern "$ours" --replacement '<\1>' "$work/utf8.txt")
  replace_perl=$(PATTERN=$pattern seconds perl -CSDA -MEncode -pe \
    'BEGIN { $p = decode("UTF-8", $ENV{PATTERN}); $r = qr/$p/ma } s/$r/<$&>/g' "$work/utf8.txt")
  echo "| \`${pattern//|/\\|}\` | $extract | $extract_perl | $extract_gbk | $extract_rg | $replace | $replace_perl |"
done
echo
echo "40 letters a, (a+)+[bc]: $(printf 'a%.0s' {1..40} | seconds "$program" regexp-execute --pattern '(a+)+[bc]') s"
