#!/usr/bin/env bash
# run.sh PROGRAM LIMIT...: a fuzz target on a copy of its corpus, so that the tree stays as it is, and
# with scratch files in memory where there is such a place. What breaks it is left in build/logs.
set -euo pipefail
name=$(basename "$1")
memory=/dev/shm
[ -d "$memory" ] || memory=${TMPDIR:-/tmp}
scratch=$(mktemp -d -p "$memory")
trap 'rm -rf -- "$scratch"' EXIT
mkdir -p build/logs "$scratch/files"
cp -r "fuzz/corpus/$name" "$scratch/corpus"
TMPDIR=$scratch/files "$1" "${@:2}" -timeout=10 -rss_limit_mb=2048 -dict="fuzz/$name.dict" \
  -artifact_prefix="$PWD/build/logs/$name-" "$scratch/corpus" 2>&1 |
  sed "s/^Done \([0-9]*\) runs.*/&\n| $name: \1 executions/"
