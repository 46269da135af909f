#!/usr/bin/env python3
"""Writes the figures of a run of all benchmarks into docs/performance.md.

    write_page.py RESULTS PAGE

RESULTS is a folder with the output of each benchmark, NAME.json. All between the two marks of a part
of the page is replaced: the date, the machine and the tables. A part of whose benchmarks none was run
stays as it is.
"""
import datetime
import json
import pathlib
import re
import sys



class Results:
    """Times and counters by program and benchmark; times in microseconds."""

    UNITS = {"ns": 1e-3, "us": 1, "ms": 1e3, "s": 1e6}

    def __init__(self, folder):
        self.runs = {}
        for path in sorted(pathlib.Path(folder).glob("*.json")):
            for run in json.loads(path.read_text())["benchmarks"]:
                if run.get("error_occurred"):
                    sys.exit(f"{path.stem}: {run['name']}: {run['error_message']}")
                # Without how often it was run, which is part of the name where that is fixed.
                self.runs[path.stem, run["name"].split("/iterations:")[0]] = run

    def has(self, program):
        return any(run == program for run, _ in self.runs)

    def of(self, program, name):
        return self.runs[program, name]

    def time(self, program, name):
        run = self.of(program, name)
        return run["real_time"] * self.UNITS[run["time_unit"]]


def duration(microseconds):
    if microseconds < 10:
        return f"{microseconds:.2f} µs"
    if microseconds < 10_000:
        return f"{microseconds:.0f} µs"
    return f"{microseconds / 1000:.1f} ms"


def files_row(results, what, name):
    run = results.of("files_bench", name)
    figure = (f"{duration(1000 * run['best_ms'])} to {duration(1000 * run['yardstick_ms'])}: "
              f"{run['speed_of_yardstick']:.2f} of its speed")
    return what, "files_bench", "a bare loop over the same numbers", figure, "at least 0.6"


def ratio_row(results, what, program, ours, yardstick, told, goal):
    mine, other = results.time(program, ours), results.time(program, yardstick)
    return what, program, told, f"{duration(mine)} to {duration(other)}: {mine / other:.2f}", goal


def plain_row(results, what, program, name, goal):
    return what, program, "", duration(results.time(program, name)), goal


def model_row(results):
    ratios = [results.time("model_bench", f"sampled/{i}")
              / results.time("model_bench", f"transcendentalsAlone/{i}") for i in range(4)]
    return ("the model function over 100 distances, three structures", "model_bench",
            "its exponentials and powers alone", f"{min(ratios):.2f} to {max(ratios):.2f} by letters",
            "at most 1.5")


def memory_row(results):
    name = next(name for program, name in results.runs if program == "files_memory_bench")
    run = results.of("files_memory_bench", name)
    limit = run["file_MB"] + 2 * run["tables_MB"]
    return ("memory of reading it", "files_memory_bench", "the file and twice the tables",
            f"{run['taken_MB']:.1f} MB to {limit:.1f} MB: {run['of_file_and_twice_tables']:.2f}",
            "at most 1")


def drag_row(results):
    name = next(name for program, name in results.runs
                if program == "drag_qt_bench" and name.startswith("BM_DragMove"))
    run = results.of("drag_qt_bench", name)
    return ("a mouse move in a drag to the painted plot", "drag_qt_bench", "",
            f"median {duration(run['median_us'])}, 99 in 100 within {duration(run['p99_us'])}",
            "2,000 and 4,000 µs")


def start_row(results):
    def named(part):
        return next(name for program, name in results.runs
                    if program == "start_qt_bench" and part in name)
    return ratio_row(results, "start to the first window shown", "start_qt_bench",
                     named("StartZevfit"), named("StartMinimal"), "an empty main window",
                     "at most 1.5")


def figures(results):
    library = "an immediate replot of QCustomPlot"
    return [
        files_row(results, "reading 40 variables, 20 directions, 1,000 classes", "BM_Read/min_time:2.000"),
        files_row(results, "composing the same file", "BM_Compose/min_time:2.000"),
        files_row(results, "writing it, and flushing it to the disk",
                  "BM_WriteAndFlushToDisk/min_time:2.000"),
        memory_row(results),
        model_row(results),
        plain_row(results, "start models of 40 variables, 20 directions, 20 classes, two threads",
                  "fit_bench", "fitAll/2/process_time/real_time", "2 s with the command"),
        ratio_row(results, "one redraw, 20 classes, panel included", "redraw_qt_bench", "BM_Redraw",
                  "BM_QCustomPlotReplot", library, "at most 0.4"),
        plain_row(results, "one step of a slider with all that follows", "redraw_qt_bench",
                  "BM_SliderStep", "one frame at 120 Hz, 8,333 µs"),
        drag_row(results),
        ratio_row(results, "the drawing within it", "drag_qt_bench", "BM_DrawingWithin",
                  "BM_QCustomPlotReplot", library, "at most 0.6"),
        plain_row(results, "a report of 21 plots into a printer in memory", "report_qt_bench",
                  "BM_SheetIntoMemory", "50 ms"),
        ratio_row(results, "the same into a PDF file", "report_qt_bench", "BM_SheetIntoPdf",
                  "BM_QCustomPlotSaves21Pdfs", "21 PDF files of QCustomPlot", "at most 0.5"),
        start_row(results),
    ]


def growth(results):
    def times(name, sizes):
        return [duration(results.time("growth_qt_bench", f"{name}/{size}")) for size in sizes]
    rows = [("a redraw with 10, 100, 1,000 classes", times("BM_RedrawByClasses", (10, 100, 1000))),
            ("a redraw with 1, 5, 20 plots open", times("BM_RedrawByOpenWindows", (1, 5, 20))),
            ("reading 1, 10, 40 variables of 4 directions and 20 classes",
             times("BM_ReadByVariables", (1, 10, 40)))]
    return [(what, *cells) for what, cells in rows]


def parts(results):
    whole = results.time("redraw_qt_bench", "BM_Redraw")
    drawing = results.time("growth_qt_bench", "BM_PartDrawing")
    picture = results.time("growth_qt_bench", "BM_PartPicture")
    curve = results.time("model_bench", "sampled/0")
    return [("sampling a curve of three structures", duration(curve), f"{curve / whole:.0%}"),
            ("controls, lines, discs and texts", duration(drawing - curve),
             f"{(drawing - curve) / whole:.0%}"),
            ("bringing the picture to the window", duration(picture), f"{picture / whole:.0%}")]


def table(heads, rows):
    lines = [heads, ["---"] * len(heads), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)


def machine():
    cpu = re.search(r"model name\s*: (.*)", pathlib.Path("/proc/cpuinfo").read_text())
    cores = pathlib.Path("/proc/cpuinfo").read_text().count("processor\t:")
    return f"{cores} cores of {cpu.group(1) if cpu else 'an unknown processor'}"


def windows_page(results):
    return "\n\n".join([
        measured(),
        figures_table(figures(results)),
        "How the cost grows (`growth_qt_bench`):",
        table(["what", "", "", ""], growth(results)),
        "Where the time of one redraw goes:",
        table(["part", "time", "of the whole"], parts(results))])


def gstat_row(results, what, name, goal):
    run = results.of("compute_gstat_bench", name)
    return (what, "compute_gstat_bench", "gstat",
            f"{1000 * run['best_s']:.0f} ms to {run['gstat_s']:.1f} s: {run['speed_of_gstat']:.0f} times its speed",
            f"at least {goal}")


def bare_row(results, what, name):
    run = results.of("compute_bench", name)
    return (what, "compute_bench", "a bare loop over the same pairs",
            f"{run['ns_a_pair']:.2f} ns to {run['yardstick_ns_a_pair']:.2f} ns a pair: "
            f"{run['times_yardstick']:.2f}")


def two_threads_row(results):
    run = results.of("compute_bench", "BM_TwoThreads")
    return ("two threads, 200,000 points", "compute_bench", "one thread",
            f"{run['two_s']:.2f} s to {run['one_s']:.2f} s: {run['times_one']:.2f} times its speed", "at least 1.85")


def point_growth_row(results):
    one, ten = (results.of("compute_bench", f"BM_Growth/{size}")["ns_a_pair"] for size in (1_000_000, 10_000_000))
    return ("ten million points, with as many partners each", "compute_bench", "one million",
            f"{ten:.2f} ns to {one:.2f} ns a pair: {ten / one:.2f}", "0.85 to 1.15")


def point_memory_row(results):
    run = results.of("compute_memory_bench", "BM_ComputeMemory")
    return ("memory of `zvm compute`, a million points", "compute_memory_bench", "64 bytes a point and 16 MB",
            f"{run['taken_MB']:.1f} MB to {run['allowed_MB']:.1f} MB: {run['taken_MB'] / run['allowed_MB']:.2f}",
            "at most 1")


def reading_row(results):
    run = results.of("points_bench", "BM_ReadPoints")
    return ("reading a CSV file of a million points", "points_bench", "a bare loop of `from_chars`",
            f"{run['best_ms']:.0f} ms to {run['yardstick_ms']:.0f} ms: {run['speed_of_yardstick']:.2f} of its speed",
            "at least 0.5")


def points_figures(results):
    rows = []
    if results.has("compute_gstat_bench"):
        rows = [gstat_row(results, "50,000 random points, cutoff 0.1, 15 classes, one thread",
                          "BM_OmnidirectionalBesideGstat", 60),
                gstat_row(results, "the same in four directions", "BM_FourDirectionsBesideGstat", 150)]
    return rows + [
        *((*bare_row(results, f"its pairs, {size:,} points", f"BM_Omnidirectional/{size}"), "at most 1.5")
          for size in (10_000, 50_000, 500_000)),
        (*bare_row(results, "the pairs in four directions", "BM_FourDirections/50000"), ""),
        two_threads_row(results),
        point_growth_row(results),
        point_memory_row(results),
        reading_row(results),
    ]


def points_page(results):
    return "\n\n".join([measured(), figures_table(points_figures(results))])


def measured():
    return f"Measured on {datetime.date.today()} on {machine()}."


def figures_table(rows):
    return table(["what", "benchmark", "yardstick", "figure", "to be"],
                 [[what, f"`{program}`", told, figure, goal] for what, program, told, figure, goal in rows])


# The parts of the page by the words of their marks, and a benchmark that each takes.
PARTS = {"figures": ("redraw_qt_bench", windows_page), "points": ("compute_bench", points_page)}


def main():
    folder, target = sys.argv[1:]
    results = Results(folder)
    path = pathlib.Path(target)
    text = path.read_text()
    for name, (program, page) in PARTS.items():
        if not results.has(program):
            continue
        begin, end = f"<!-- {name}: begin -->", f"<!-- {name}: end -->"
        before, rest = text.split(begin)
        text = f"{before}{begin}\n\n{page(results)}\n\n{end}{rest.split(end)[1]}"
    path.write_text(text)


if __name__ == "__main__":
    main()
