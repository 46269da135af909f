#!/usr/bin/env bash
# postgis.sh ZVM: starts a PostgreSQL server in a scratch folder, fills it with the example's points and
# expects of it what the table gives. A server does not run as root, who is another user then.
set -euo pipefail
zvm=$(readlink -f -- "$1") table=$PWD/examples/meuse.csv
bin=$(find /usr/lib/postgresql -maxdepth 2 -name bin | sort -V | tail -n 1)
as=()
if [ "$(id -u)" -eq 0 ]; then as=(setpriv --reuid=postgres --regid=postgres --clear-groups); fi
folder=$(mktemp -d)
if [ ${#as[@]} -gt 0 ]; then chown postgres "$folder"; fi
# shellcheck disable=SC2317 # called by the trap
end() {
  "${as[@]}" "$bin/pg_ctl" -D "$folder/data" -m immediate -w stop >/dev/null 2>&1 || true
  rm -rf -- "$folder"
}
trap end EXIT
cd "$folder"

# Reached by a socket in the folder alone. The password is asked for, so that it is used.
echo secret >password
"${as[@]}" "$bin/initdb" -D data -U geo -E UTF8 --locale=C --auth=scram-sha-256 --pwfile=password \
  >initdb.log 2>&1 || { cat initdb.log; exit 1; }
"${as[@]}" "$bin/pg_ctl" -D data -w -l "$folder/server.log" \
  -o "-c listen_addresses='' -c fsync=off -k '$folder'" start >start.log 2>&1 ||
  { cat start.log server.log; exit 1; }
export PGHOST=$folder PGUSER=geo PGPASSWORD=secret
psql -qX -v ON_ERROR_STOP=1 -d postgres -c 'create database geo'
psql -qX -v ON_ERROR_STOP=1 -d geo -c 'create extension postgis'
load() { # NAME OPTION...
  ogr2ogr -f PostgreSQL "PG:dbname=geo" "$table" -nln "$1" -oo X_POSSIBLE_NAMES=x \
    -oo Y_POSSIBLE_NAMES=y -oo AUTODETECT_TYPE=YES "${@:2}"
}
load meuse -a_srs EPSG:28992
load degrees -s_srs EPSG:28992 -t_srs EPSG:4326
psql -qX -v ON_ERROR_STOP=1 -d geo <<'END'
create function touch() returns int language sql volatile as 'update meuse set zinc = 1; select 1';
create function sneak() returns int language plpgsql volatile as $$ begin
  perform set_config('transaction_read_only', 'off', false); update meuse set zinc = 2; return 1;
end $$;
END
# All that is in the database, large objects included; a dump has marks that differ each time.
dump() { pg_dump -h "$folder" -U geo -b geo | grep -vE '^\\(un)?restrict '; }
dump >before.sql
unset PGHOST PGUSER PGPASSWORD

failed=0
fail() {
  echo "$1"
  failed=1
}
source="PG:dbname=geo host=$folder user=geo password=secret"
compute() { # OUT OPTION...
  "$zvm" compute "${@:2}" "$1" --var zinc --log zinc --lag 100 --lags 15 --dir "45;0" --overwrite \
    >report 2>err
}
compute table.zvm "$table" --x x --y y --title t
compute layer.zvm "$source" --layer meuse --title t || fail "a layer: $(<err)"
cmp table.zvm layer.zvm || fail "a layer gives other bytes"
compute query.zvm "$source" --sql "select * from meuse where zinc > 0 order by ogc_fid" --title t ||
  fail "a query: $(<err)"
cmp table.zvm query.zvm || fail "a query gives other bytes"
compute url.zvm "postgresql://geo:secret@/geo?host=$folder" --layer meuse --title t ||
  fail "a URL: $(<err)"
cmp table.zvm url.zvm || fail "a URL gives other bytes"

# Less than all.
compute some.zvm "$source" --layer meuse --where "zinc > 300" --title t || fail "where: $(<err)"
! cmp -s table.zvm some.zvm || fail "a condition changes nothing"
"$zvm" compute "$source" json.zvm --layer meuse --where "zinc > 300" --var zinc --lag 100 --lags 5 \
  --json >json
wanted=$(awk -F, 'NR > 1 && $6 > 300' "$table" | wc -l)
grep -q "\"used\": $wanted" json || fail "other points than those of the condition: $wanted"
! grep -q secret json json.zvm || fail "the password is told"
head -n 1 json.zvm | grep -qx $'Semivariograms of meuse\r*' || fail "title: $(head -n 1 json.zvm)"

# Degrees only in another system.
code=0
compute no.zvm "$source" --layer degrees || code=$?
[ "$code" -eq 3 ] || fail "degrees end with $code"
grep -q 'are geographic (WGS 84)' err || fail "$(<err)"
! grep -q secret err || fail "the password is told"
compute back.zvm "$source" --layer degrees --projected EPSG:28992 || fail "reprojected: $(<err)"

# What can't be: an error each, and no file.
refused() { # CODE WORDS OPTION...
  code=0
  compute no.zvm "${@:3}" || code=$?
  [ "$code" -eq "$1" ] || fail "$2: ends with $code"
  grep -qF -- "$2" err || fail "$2: $(<err)"
  [ ! -e no.zvm ] || fail "$2: leaves a file"
  ! grep -qE 'secret|wrong' err || fail "the password is told: $(<err)"
}
refused 3 "no layer \`meus\`" "$source" --layer meus
refused 4 'cannot open the source' "PG:dbname=none host=$folder user=geo password=secret"
refused 4 'cannot open the source' "PG:dbname=geo host=$folder user=geo password=wrong"
refused 2 'gives no table: column "nothing" does not exist' "$source" \
  --sql "select nothing from meuse"
refused 2 ': column "zin" does not exist' "$source" --layer meuse --where "zin > 3"
refused 2 ': syntax error at end of input' "$source" --layer meuse --where "zinc > 3 and"
refused 3 'holds for no feature of layer' "$source" --layer meuse --where "zinc > 30000"
refused 3 'the query has no geometry' "$source" --sql "select zinc from meuse"
refused 3 'are geographic (WGS 84)' "$source" --sql "select * from degrees"

# Nothing writes, although the connection says that it may.
open="$source options='-c default_transaction_read_only=off -c standard_conforming_strings=off'"
for sql in "drop table meuse" \
  "set transaction read write; update meuse set zinc = 1" \
  "set default_transaction_read_only = off; commit; update meuse set zinc = 1"; do
  refused 2 'it does not begin with SELECT or WITH' "$open" --sql "$sql"
done
for sql in "select * from meuse; update meuse set zinc = 1" \
  "select 1 from meuse) q; commit; update meuse set zinc = 1; select * from (select * from meuse"; do
  refused 2 'it is more than one statement' "$open" --sql "$sql"
done
refused 2 'must be at the top level' "$open" \
  --sql "with x as (update meuse set zinc = 1 returning *) select * from x"
refused 2 'INTO is not allowed' "$open" --sql "select * into other from meuse"
refused 2 'read-only transaction' "$open" --sql "select * from meuse for update"
refused 4 'cannot execute UPDATE in a read-only transaction' "$open" \
  --sql "select touch(), * from meuse"
refused 4 'must be set before any query' "$open" --sql "select sneak(), * from meuse"
refused 4 'must be set before any query' "$open" \
  --sql "select set_config('transaction_read_only', 'off', false), touch(), * from meuse"
refused 2 'cannot execute UPDATE in a read-only transaction' "$open" --layer meuse \
  --where "touch() = 1"
refused 2 'it is more than one statement' "$open" --layer meuse \
  --where "true); commit; update meuse set zinc = 1; --"
# What these say is good, and writes nothing: a later transaction there is not, a backslash is a
# letter, and what a transaction can write that only reads is not kept.
for sql in "select set_config('default_transaction_read_only', 'off', false), * from meuse" \
  "select case current_setting('transaction_read_only') when 'off' then touch() end, * from meuse" \
  "select 'a\\'' ; update meuse set zinc = 1; --' as t, * from meuse" \
  "select *, (select lo_from_bytea(0, 'a') where zinc > 0) from meuse"; do
  compute no.zvm "$open" --sql "$sql" --title t || fail "$sql: $(<err)"
done
export PGPASSWORD=secret
dump | diff before.sql - || fail "the database is another one"
exit "$failed"
