#!/usr/bin/env bash
# run.sh PROGRAM FOLDER: a benchmark; its figures go to a file in the folder.
set -euo pipefail
name=$(basename "$1")
mkdir -p "$2"
display=(env QT_QPA_PLATFORM=offscreen)
[ "$name" != start_qt_bench ] || display=(xvfb-run -a env QT_QPA_PLATFORM=xcb) # it shows a window
"${display[@]}" "$1" --benchmark_out="$2/$name.json" --benchmark_out_format=json 2>&1 | sed 's/^/| /'
