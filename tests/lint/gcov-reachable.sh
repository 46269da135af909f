#!/usr/bin/env bash
# gcov-reachable.sh ARGUMENT...: gcov as gcovr runs it, without the branches by which the compiler
# decides in an exception what there is to destroy: those of blocks that nothing but an exception leads
# to and none has reached, on lines that run without one, too. What the source itself does about an
# exception stands on lines of its own, and keeps its branches.
set -euo pipefail
gcov --all-blocks "$@" | while IFS= read -r told; do
  printf '%s\n' "$told"
  [[ $told =~ ^Creating\ \'(.+)\'$ ]] || continue
  file=${BASH_REMATCH[1]}
  # Lines are "COUNT: LINE:SOURCE", then for each block "COUNT: LINE-block N" and its branches. Where an
  # exception alone leads to it and none has, the count is "=====", and "$$$$$" of a block.
  awk '
    /^ *[^ :]+: *[0-9]+-block / { isCleanUp = $1 ~ /^\$/; next }
    /^ *[^ :]+: *[0-9]+:/ { isCaught = $1 ~ /^=/; isCleanUp = 0 }
    isCleanUp && !isCaught && /^branch / { next }
    { print }' "$file" >"$file.reachable"
  mv -- "$file.reachable" "$file"
done
