#!/usr/bin/env bash
# run.sh PROGRAM FOLDER: a benchmark; its figures go to a file in the folder. Fails where one of its
# benchmarks does.
set -euo pipefail
name=$(basename "$1")
figures=$2/$name.json
mkdir -p "$2"
rm -f "$figures" # of an earlier run
display=(env QT_QPA_PLATFORM=offscreen)
[ "$name" != start_qt_bench ] || display=(xvfb-run -a env QT_QPA_PLATFORM=xcb) # it shows a window
"${display[@]}" "$1" --benchmark_out="$figures" --benchmark_out_format=json 2>&1 | sed 's/^/| /'
python3 -B "$(dirname "$0")/results.py" "$figures"
