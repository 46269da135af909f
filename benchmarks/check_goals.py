#!/usr/bin/env python3
"""Fails where a figure of a run of all benchmarks is worse than its goal by more than a tenth.

    check_goals.py RESULTS

What was not measured is told, and fails unless its yardstick is one that a machine may lack.
"""
import sys

from figures import OPTIONAL, POINTS, TOLERANCE, WINDOWS
from results import results_in


def judged(row, figure):
    """What is to be said of a row, and whether it has failed."""
    if figure is None:
        return f"not measured: {row.what} ({row.program})", row.program not in OPTIONAL
    value, told = figure
    if row.goal.excess(value) <= 0:
        return "", False
    failed = row.goal.excess(value) > TOLERANCE
    return f"{'missed' if failed else 'nearly'}: {row.what}: {told}, to be {row.goal.told(row.unit)}", failed


def main():
    results = results_in(sys.argv[1])
    judgements = [judged(row, row.figure(results)) for row in WINDOWS + POINTS]
    for told, _ in judgements:
        if told:
            print(f"| {told}")
    sys.exit(1 if any(failed for _, failed in judgements) else 0)


if __name__ == "__main__":
    main()
