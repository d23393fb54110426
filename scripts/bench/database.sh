#!/usr/bin/env bash
# Exchanges a table of ROWS rows (1,000,000) and six columns with an SQLite file, beside the sqlite3 program, and with a
# PostgreSQL server, beside COPY. Prints processor seconds, those of the server included, and the largest memory.
#
#   scripts/bench.sh database [ROWS]
set -euo pipefail
rows=${1:-1000000}
batch=$PWD/build/native/bin/scrivanta-batch
folder=$(mktemp -d)
server=
chmod 755 "$folder"
as=()
[ "$(id -u)" != 0 ] || as=(setpriv --reuid=postgres --regid=postgres --clear-groups)

finish() {
  [ -z "$server" ] || "${as[@]}" "$(pg_config --bindir)/pg_ctl" -w -m immediate -D "$folder/data" stop >/dev/null || true
  rm -rf "$folder"
}
trap finish EXIT
cd "$folder"

python3 - "$rows" >table.csv <<'PYTHON'
import random
import sys

random.seed(7)
print("编号,姓名,电话,价,日期,备注", end="\r\n")
for i in range(int(sys.argv[1])):
    note = random.choice(["", "来信", 'says "yes", twice', "两行\n的备注", "plain remark without anything in it"])
    quoted = '"' + note.replace('"', '""') + '"' if set(note) & set('",\n') else note
    print(f"{i},名字{i % 9973},0{random.randrange(10**10)},{i / 8},{1900 + i % 200}-01-{i % 28 + 1:02},{quoted}", end="\r\n")
PYTHON

# measure NAME COMMAND...: user and system seconds, and kilobytes.
measure() {
  local name=$1
  shift
  command time -o times -f '%U %S %M' "$@" >out
  awk -v name="$name" '{printf "%-34s %6.2f s  %7.1f MB\n", name, $1 + $2, $3 / 1024}' times
}

measure 'import, sqlite3' sqlite3 peer.db '.mode csv' '.import table.csv t'
measure 'import, types found' "$batch" db-import --database own.db --table t --delimiter comma --header --encoding utf-8 table.csv
measure 'import, texts' "$batch" db-import --database texts.db --table t --delimiter comma --header --encoding utf-8 \
  --types text,text,text,text,text,text table.csv
measure 'export, sqlite3' sqlite3 -header -csv peer.db 'SELECT * FROM t'
measure 'export of texts' "$batch" db-export --database texts.db --table t --delimiter comma --header --encoding utf-8
measure 'export of types' "$batch" db-export --database own.db --table t --delimiter comma --header --encoding utf-8

mkdir data
[ "$(id -u)" != 0 ] || chown postgres data
port=$(python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
"${as[@]}" "$(pg_config --bindir)/initdb" -N -A trust -U tester -E UTF8 --locale=C.UTF-8 -D "$folder/data" >/dev/null
"${as[@]}" "$(pg_config --bindir)/pg_ctl" -w -D "$folder/data" -l "$folder/data/log" \
  -o "-F -h 127.0.0.1 -p $port -k $folder/data" start >/dev/null
server=$(head -n 1 data/postmaster.pid)

# What the server's processes that have ended took, in hundredths of a second.
server_time() {
  awk '{print $16 + $17}' "/proc/$server/stat"
}
measure_both() {
  local name=$1 before
  shift
  before=$(server_time)
  command time -o times -f '%U %S %M' "$@" >out
  sleep 1 # the server's process ends a moment after its client
  awk -v name="$name" -v hundredths=$(($(server_time) - before)) \
    '{printf "%-34s %6.2f s  %7.1f MB\n", name, $1 + $2 + hundredths / 100, $3 / 1024}' times
}
psql=(psql -q -h 127.0.0.1 -p "$port" -U tester postgres)
"${psql[@]}" -c 'CREATE TABLE peer (a integer, b varchar(255), c varchar(255), d double precision, e date, f varchar(255))'
export CONNECTION="DRIVER=PostgreSQL Unicode;Server=127.0.0.1;Port=$port;Database=postgres;UID=tester"
measure_both 'PostgreSQL, COPY' "${psql[@]}" -c "\\copy peer from table.csv csv header"
measure_both 'PostgreSQL, import' "$batch" db-import --connection-from-env CONNECTION --table own --delimiter comma --header \
  --encoding utf-8 table.csv
measure_both 'PostgreSQL, export' "$batch" db-export --connection-from-env CONNECTION --table own --delimiter comma \
  --encoding utf-8
