#!/usr/bin/env bash
# zvm.sh ZVM FOLDER: makes the pictures of the command's page there.
set -euo pipefail
zvm=$1 folder=$2
draw() {
  "$zvm" plot --overwrite "$@"
}
draw examples/meuse-fitted.zvm "$folder/zvm-direction.svg" --var "ln zinc" --dir "45;0"
draw examples/meuse-fitted.zvm "$folder/zvm-overlay.svg" --var "ln zinc" --overlay
draw examples/meuse.csv "$folder/zvm-map.svg" --map --x x --y y --var zinc --log zinc --lag 120 --lags 8
