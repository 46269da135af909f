#!/usr/bin/env bash
# What shellcheck says of all scripts.
set -euo pipefail
find . -path ./build -prune -o \( -name '*.sh' -o -path './.ci/*' -type f \) -print0 |
  xargs -0 shellcheck -x
