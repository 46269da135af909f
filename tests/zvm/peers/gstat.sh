#!/usr/bin/env bash
# gstat.sh PROGRAM FOLDER EXAMPLE: lets the program write its cases into the folder, and runs the
# exported R code in gstat itself.
set -euo pipefail
"$1" "$2" "$3"
exec Rscript --vanilla "$(dirname -- "${BASH_SOURCE[0]}")/gstat.R" "$2" "$(dirname -- "$3")/meuse.csv"
