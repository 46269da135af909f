#!/usr/bin/env bash
# The form of all C++ sources is that of .clang-format.
set -euo pipefail
find . -path ./build -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
  xargs -0 clang-format --dry-run --Werror
