#!/usr/bin/env bash
# gstat.sh PROGRAM FOLDER EXAMPLE: lets the program write its cases into the folder, and runs the
# exported R code in gstat itself.
set -euo pipefail
"$1" "$2" "$3"
# Names of variables are UTF-8 in the files, which R reads in no other locale.
exec env LC_ALL=C.UTF-8 Rscript --vanilla "$(dirname -- "${BASH_SOURCE[0]}")/gstat.R" "$2" "$(dirname -- "$3")/meuse.csv"
