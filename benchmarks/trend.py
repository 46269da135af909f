"""The figures of all runs, trend.csv: what was measured when, on which commit and machine."""
import csv
import dataclasses
import datetime
import functools
import pathlib
import re
import subprocess

UTC = datetime.timezone.utc
WHEN = "%Y-%m-%dT%H:%M:%SZ"
HEAD = ["when", "commit", "machine", "row", "figure"]
# Below this share two figures are taken for the same.
NOISE = 0.05


@dataclasses.dataclass(frozen=True)
class Entry:
    when: str  # date and time at which the benchmark was run, UTC
    commit: str
    machine: str
    row: str
    figure: float


@functools.cache
def machine():
    """Its cores and processor, never its name."""
    told = pathlib.Path("/proc/cpuinfo").read_text()
    cpu = re.search(r"model name\s*: (.*)", told)
    cores = told.count("processor\t:")
    return f"{cores} cores of {cpu.group(1) if cpu else 'an unknown processor'}"


@functools.cache
def commit():
    """The commit of the tree, with a `+` where more has changed; empty where there is no history."""
    asked = subprocess.run(["git", "describe", "--always", "--abbrev=8", "--exclude=*", "--dirty=+"],
                           capture_output=True, text=True)
    return asked.stdout.strip() if asked.returncode == 0 else ""


def entries_of(path):
    if not path.exists():
        return []
    with path.open(newline="") as file:
        return [Entry(line["when"], line["commit"], line["machine"], line["row"], float(line["figure"]))
                for line in csv.DictReader(file)]


def joined(entries, fresh):
    """In order of time; a figure that is known already stays as it was kept."""
    known = {(entry.when, entry.row) for entry in entries}
    return sorted(entries + [entry for entry in fresh if (entry.when, entry.row) not in known],
                  key=lambda entry: entry.when)


def write(path, entries):
    with path.open("w", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(HEAD)
        writer.writerows([entry.when, entry.commit, entry.machine, entry.row, f"{entry.figure:.5g}"]
                         for entry in entries)


def before(row, fresh, entries):
    """The last figure from before of a row; of a time, on the same machine."""
    earlier = [entry for entry in entries if entry.row == row.key and entry.when < fresh.when
               and (row.is_ratio or entry.machine == fresh.machine)]
    return earlier[-1] if earlier else None


def compared(row, fresh, entries):
    """How a figure is beside the last one, in words."""
    earlier = before(row, fresh, entries)
    if not earlier:
        return ""
    share = row.better(fresh.figure, earlier.figure)
    if abs(share) < NOISE:
        return "as before"
    return f"{abs(share):.0%} {'better' if share > 0 else 'worse'}"
