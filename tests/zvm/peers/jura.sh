#!/usr/bin/env bash
# jura.sh: the numbers that the tests have of the Jura set are those that gstat computes, blanks apart.
set -euo pipefail
folder=$(dirname -- "${BASH_SOURCE[0]}")
diff <(Rscript --vanilla "$folder/jura.R" | tr -d '[:space:]') \
  <(tr -d '[:space:]' <"$folder/../../support/jura_classes.h")
