#!/usr/bin/env bash
# coverage.sh BUILD: the shares of lines and branches that the tests have reached, by folder. Below its
# least shares a folder fails: 97 % of lines and 90 % of branches, of what knows the toolkit 90 % of
# lines.
set -euo pipefail
# gcovr's columns: name, lines, covered lines, their share, branches, covered branches.
gcovr --root . --exclude tests/ --exclude build/ --exclude-throw-branches \
  --exclude-unreachable-branches --gcov-executable "'$PWD/tests/lint/gcov-reachable.sh'" "$1" --csv |
  awk -F, '
    function share(part, whole) { return whole ? 100 * part / whole : 100 }
    NR > 1 {
      split($1, path, "/")
      l[path[1]] += $2; lc[path[1]] += $3; b[path[1]] += $5; bc[path[1]] += $6
    }
    END {
      for (f in l) {
        lines = share(lc[f], l[f]); branches = share(bc[f], b[f])
        printf "| %-12s %6d lines %6.1f %%  %6d branches %6.1f %%\n", f, l[f], lines, b[f], branches
        core = f !~ /^(windows|platform)$/
        if (lines < (core ? 97 : 90) || (core && branches < 90)) short = 1
      }
      exit short || NR < 2
    }' |
  sort
