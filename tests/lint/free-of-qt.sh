#!/usr/bin/env bash
# free-of-qt.sh BUILD PROGRAM: no source of the core, of the command or of their tests is compiled with
# Qt in sight but the program that draws, and the program, which links the core, has no library of it.
set -euo pipefail
awk '
  /"command":/ { command = $0 }
  /"file":.*\/(session|model|files|coreg|fitting|plot|report|zvm|tests\/core|tests\/zvm|tests\/crash)\// {
    seen++
    if (command ~ /[Qq][Tt]6|libQt|-DQT_/) { print "with Qt: " $0; bad = 1 }
  }
  END { exit bad || !seen }' "$1/compile_commands.json"
libraries=$(readelf -d "$2")
! grep Qt <<<"$libraries"
