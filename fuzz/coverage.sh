#!/usr/bin/env bash
# coverage.sh FOLDER PROGRAM...: what the corpora reach, counted in the folder: lines, lines left out
# and share, for each file of files/ and session/ and together. Fails below 95 % of the lines.
set -euo pipefail
rm -rf -- "$1"
mkdir -p "$1"
objects=()
for program in "${@:2}"; do
  LLVM_PROFILE_FILE=$1/$(basename "$program").profraw fuzz/run.sh "$program" -runs=0 >/dev/null
  objects+=(-object "$program")
done
llvm-profdata-14 merge -o "$1/all" "$1"/*.profraw
llvm-cov-14 report "${objects[@]:1}" -instr-profile="$1/all" |
  awk '
    function row(name, lines, missed) {
      share = lines ? 100 * (lines - missed) / lines : 0
      printf "| %-32s %5d lines %5d left out %6.1f %%\n", name, lines, missed, share
    }
    $1 ~ /^(files|session)\// { row($1, $8, $9); lines += $8; missed += $9 }
    END { row("all", lines, missed); exit share < 95 }'
