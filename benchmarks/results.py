#!/usr/bin/env python3
"""What benchmark programs have measured, as their library writes it: one file for each, NAME.json.

    results.py FILE...    fails, with the reason, where a file holds a benchmark that failed, or none
"""
import datetime
import json
import pathlib
import re
import sys

MICROSECONDS = {"ns": 1e-3, "us": 1, "ms": 1e3, "s": 1e6}
# How a benchmark is run becomes a part of its name.
MANNER = re.compile(r"/(iterations:\d+|min_time:[\d.]+|process_time|real_time)")


class NotMeasured(Exception):
    """A benchmark that was not run."""


class Results:
    """What one program has measured."""

    def __init__(self, path):
        written = json.loads(pathlib.Path(path).read_text())
        self.program = pathlib.Path(path).stem
        self.when = datetime.datetime.fromisoformat(written["context"]["date"])
        runs = written["benchmarks"]
        self.faults = [f"{run['name']}: {run['error_message']}" for run in runs if run.get("error_occurred")]
        self.runs = {MANNER.sub("", run["name"]): run for run in runs if not run.get("error_occurred")}
        if not runs:
            self.faults = ["no benchmark was run"]

    def of(self, name):
        if name not in self.runs:
            raise NotMeasured(name)
        return self.runs[name]

    def time(self, name):
        """By the clock, in microseconds; the mean of the run."""
        run = self.of(name)
        return run["real_time"] * MICROSECONDS[run["time_unit"]]


def results_in(folder):
    """The results of a folder by program."""
    return {path.stem: Results(path) for path in sorted(pathlib.Path(folder).glob("*.json"))}


def faults_of(path):
    try:
        return Results(path).faults
    except (OSError, ValueError, KeyError) as fault:
        return [f"its figures can't be read: {fault}"]


def main():
    faults = [f"{pathlib.Path(path).stem}: {fault}" for path in sys.argv[1:] for fault in faults_of(path)]
    for fault in faults:
        print(f"| failed: {fault}")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
