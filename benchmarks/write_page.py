#!/usr/bin/env python3
"""Writes the figures of a run of benchmarks into docs/performance.md, and keeps them.

    write_page.py RESULTS PAGE TREND

RESULTS is a folder with the output of each benchmark, NAME.json; TREND the file with the figures of all
runs, to which those are added that it does not have. All between the two marks of a part of the page is
replaced: the date, the machine and the tables. A part whose benchmarks were not all run stays as it is.
"""
import pathlib
import sys

import trend
from figures import OPTIONAL, POINTS, WINDOWS, duration, quietest
from results import results_in


def growth(results):
    def cells(name, sizes):
        return [duration(results["growth_qt_bench"].time(f"{name}/{size}")) for size in sizes]
    classes = [duration(quietest(results["growth_qt_bench"], f"BM_RedrawByClasses/{size}"))
               for size in (10, 100, 1000)]
    rows = [("a redraw with 10, 100, 1,000 classes", classes),
            ("a redraw with 1, 5, 20 plots open", cells("BM_RedrawByOpenWindows", (1, 5, 20))),
            ("reading 1, 10, 40 variables of 4 directions and 20 classes",
             cells("BM_ReadByVariables", (1, 10, 40)))]
    return [(what, *times) for what, times in rows]


def parts(results):
    whole = results["redraw_qt_bench"].time("BM_Redraw")
    drawing = results["growth_qt_bench"].time("BM_PartDrawing")
    picture = results["growth_qt_bench"].time("BM_PartPicture")
    curve = results["model_bench"].of("sampled/0")["median_us"]
    return [("sampling a curve of three structures", duration(curve), f"{curve / whole:.0%}"),
            ("controls, lines, discs and texts", duration(drawing - curve),
             f"{(drawing - curve) / whole:.0%}"),
            ("bringing the picture to the window", duration(picture), f"{picture / whole:.0%}")]


def table(heads, rows):
    lines = [heads, ["---"] * len(heads), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)


def measured(rows, results):
    days = sorted({results[row.program].when.date() for row in rows if row.program in results})
    span = f"{days[0]}" if len(days) == 1 else f"{days[0]} to {days[-1]}"
    return f"Measured on {span} on {trend.machine()}."


def fresh_entry(row, results):
    """What the trend keeps of a row; nothing where it was not measured."""
    figure = row.figure(results)
    if figure is None:
        return None
    when = results[row.program].when.astimezone(trend.UTC).strftime(trend.WHEN)
    return trend.Entry(when, trend.commit(), trend.machine(), row.key, figure[0])


def cells_of(row, results, entries):
    figure = row.figure(results)
    goal = row.goal.told(row.unit)
    head = (row.what, f"`{row.program}`", row.yardstick)
    if figure is None:
        return *head, "not measured", goal, ""
    value, told = figure
    missed = " (missed)" if row.goal.excess(value) > 0 else ""
    return *head, told, goal + missed, trend.compared(row, fresh_entry(row, results), entries)


def figures_table(rows, results, entries):
    return table(["what", "benchmark", "yardstick", "figure", "to be", "since the run before"],
                 [cells_of(row, results, entries) for row in rows])


def windows_page(results, entries):
    return [figures_table(WINDOWS, results, entries),
            "How the cost grows (`growth_qt_bench`):",
            table(["what", "", "", ""], growth(results)),
            "Where the time of one redraw goes:",
            table(["part", "time", "of the whole"], parts(results))]


def points_page(results, entries):
    return [figures_table(POINTS, results, entries)]


# The parts of the page by the words of their marks.
PARTS = {"figures": (WINDOWS, windows_page), "points": (POINTS, points_page)}


def lacking(rows, results):
    return sorted({row.program for row in rows} - OPTIONAL - results.keys())


def replaced(text, name, content):
    begin, end = f"<!-- {name}: begin -->", f"<!-- {name}: end -->"
    before, rest = text.split(begin)
    return f"{before}{begin}\n\n{content}\n\n{end}{rest.split(end)[1]}"


def main():
    folder, page, kept = (pathlib.Path(argument) for argument in sys.argv[1:])
    results = {program: run for program, run in results_in(folder).items() if not run.faults}
    fresh = [entry for row in WINDOWS + POINTS if (entry := fresh_entry(row, results))]
    entries = trend.joined(trend.entries_of(kept), fresh)
    trend.write(kept, entries)
    text = page.read_text()
    for name, (rows, content) in PARTS.items():
        absent = lacking(rows, results)
        if absent:
            print(f"| the part {name} of the page stays as it is without {', '.join(absent)}")
            continue
        whole = [measured(rows, results), *content(results, entries)]
        text = replaced(text, name, "\n\n".join(whole))
    page.write_text(text)


if __name__ == "__main__":
    main()
