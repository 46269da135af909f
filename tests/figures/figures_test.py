#!/usr/bin/env python3
"""How figures of benchmarks are read, judged, kept and put on the page, with benchmarks that only pretend."""
import contextlib
import io
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "benchmarks"))

import check_goals  # noqa: E402
import figures  # noqa: E402
import results as reading  # noqa: E402
import trend  # noqa: E402
import write_page  # noqa: E402

GOOD = {"name": "BM_Redraw", "real_time": 50, "cpu_time": 50, "time_unit": "us"}
BAD = {"name": "BM_Bad/iterations:3", "error_occurred": True, "error_message": "the handle was lost"}
ROW = next(row for row in figures.WINDOWS if row.key == "redraw")


def written(runs, when="2026-11-22T08:00:00+00:00"):
    return json.dumps({"context": {"date": when}, "benchmarks": runs})


class Folder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def measured(self, redraw, replot=200, when="2026-11-22T08:00:00+00:00"):
        """The results of a redraw and its yardstick, in microseconds."""
        runs = [{**GOOD, "real_time": redraw}, {**GOOD, "name": "BM_QCustomPlotReplot", "real_time": replot}]
        (self.folder / "redraw_qt_bench.json").write_text(written(runs, when))
        return reading.results_in(self.folder)


class Runs(Folder):
    """run.sh with programs that only pretend to measure."""

    def run_of(self, script):
        program = self.folder / "pretended_bench"
        program.write_text("#!/bin/sh\nout=${1#--benchmark_out=}\n" + script)
        program.chmod(0o755)
        return subprocess.run([ROOT / "benchmarks/run.sh", program, self.folder / "results"],
                              capture_output=True, text=True)

    def writing(self, runs):
        (self.folder / "prepared.json").write_text(written(runs))
        return f'cp {self.folder}/prepared.json "$out"\n'

    def test_passes_what_was_measured(self):
        run = self.run_of(self.writing([GOOD]))
        self.assertEqual((run.returncode, run.stdout), (0, ""))
        self.assertTrue((self.folder / "results/pretended_bench.json").exists())

    def test_fails_by_the_name_of_a_benchmark_that_reports_an_error(self):
        run = self.run_of(self.writing([GOOD, BAD]))
        self.assertNotEqual(run.returncode, 0)
        self.assertEqual(run.stdout, "| failed: pretended_bench: BM_Bad/iterations:3: the handle was lost\n")

    def test_fails_where_nothing_was_measured(self):
        self.assertEqual(self.run_of(self.writing([])).stdout,
                         "| failed: pretended_bench: no benchmark was run\n")
        self.assertNotEqual(self.run_of(self.writing([])).returncode, 0)

    def test_fails_with_the_program_and_takes_no_figures_of_an_earlier_run(self):
        self.run_of(self.writing([GOOD]))
        run = self.run_of("echo no display; exit 3\n")
        self.assertNotEqual(run.returncode, 0)
        self.assertEqual(run.stdout, "| no display\n")
        self.assertFalse((self.folder / "results/pretended_bench.json").exists())

    def test_fails_where_no_figures_are_written(self):
        run = self.run_of("exit 0\n")
        self.assertNotEqual(run.returncode, 0)
        self.assertIn("| failed: pretended_bench: its figures can't be read", run.stdout)


class Reading(Folder):
    def test_takes_times_in_microseconds_and_names_without_the_manner_of_the_run(self):
        runs = [{**GOOD, "name": "a/2/process_time/real_time", "real_time": 1.5, "time_unit": "ms"},
                {**GOOD, "name": "b/min_time:2.000"}, {**GOOD, "name": "c/7/iterations:5000"}, BAD]
        path = self.folder / "some_bench.json"
        path.write_text(written(runs))
        read = reading.Results(path)
        self.assertEqual(read.time("a/2"), 1500)
        self.assertEqual((read.time("b"), read.time("c/7")), (50, 50))
        for absent in ("BM_Bad", "d"):
            with self.assertRaises(reading.NotMeasured):
                read.of(absent)


class Goals(Folder):
    def judged(self, redraw):
        return check_goals.judged(ROW, ROW.figure(self.measured(redraw)))

    def test_a_figure_may_be_worse_than_its_goal_by_a_tenth(self):
        self.assertEqual(self.judged(50), ("", False))
        self.assertEqual(self.judged(54.8), (f"nearly: {ROW.what}: 55 µs to 200 µs: 0.27, to be at most 0.25",
                                             False))
        self.assertEqual(self.judged(55.2), (f"missed: {ROW.what}: 55 µs to 200 µs: 0.28, to be at most 0.25",
                                             True))

    def test_limits_count_on_their_own_side(self):
        table = [(figures.at_least(0.8), 0.9, 0.0), (figures.at_least(0.8), 0.6, 0.25),
                 (figures.at_most(0.5), 0.4, 0.0), (figures.at_most(0.5), 1.0, 1.0),
                 (figures.Goal(0.8, 1.2), 1.0, 0.0), (figures.Goal(0.8, 1.2), 0.4, 0.5),
                 (figures.Goal(0.8, 1.2), 1.8, 0.5), (figures.Goal(), 7, 0.0)]
        for goal, value, excess in table:
            self.assertAlmostEqual(max(goal.excess(value), 0), excess, msg=f"{goal} {value}")

    def test_what_was_not_measured_is_told(self):
        gstat = next(row for row in figures.POINTS if row.key == "gstat")
        self.assertEqual(check_goals.judged(gstat, gstat.figure({})),
                         (f"not measured: {gstat.what} (compute_gstat_bench)", False))
        self.assertEqual(check_goals.judged(ROW, ROW.figure({})),
                         (f"not measured: {ROW.what} (redraw_qt_bench)", True))

    def test_the_check_fails_with_one_goal(self):
        self.measured(60)
        run = subprocess.run([sys.executable, "-B", ROOT / "benchmarks/check_goals.py", self.folder],
                             capture_output=True, text=True)
        self.assertNotEqual(run.returncode, 0)
        self.assertIn(f"| missed: {ROW.what}: 60 µs to 200 µs: 0.30, to be at most 0.25\n", run.stdout)


class Table(unittest.TestCase):
    """What the table asks for is what the sources of the benchmarks measure."""

    class Asked(reading.Results):
        """Answers every question with ones, and notes it."""

        def __init__(self):
            self.names = []

        def of(self, name):
            self.names.append(name)
            return AnyCounter()

    def test_every_benchmark_of_a_row_is_in_the_source_of_its_program(self):
        for row in figures.WINDOWS + figures.POINTS:
            asked = self.Asked()
            row.measure(asked)
            source = (ROOT / "benchmarks" / f"{row.program}.cpp").read_text()
            for name in asked.names:
                self.assertRegex(source, rf"\b{name.split('/')[0]}\b", row.key)
            for counter in AnyCounter.asked - {"real_time", "time_unit"}:
                self.assertIn(f'"{counter}"', source, row.key)
            AnyCounter.asked.clear()

    def test_keys_and_texts_are_those_of_one_row(self):
        rows = figures.WINDOWS + figures.POINTS
        self.assertEqual(len({row.key for row in rows}), len(rows))
        self.assertEqual(len({row.what for row in rows}), len(rows))


class AnyCounter:
    asked: set = set()

    def __getitem__(self, counter):
        self.asked.add(counter)
        return "us" if counter == "time_unit" else 1.0


class Trend(Folder):
    def entry(self, when, figure, machine="2 cores", row="redraw"):
        return trend.Entry(when, "abc", machine, row, figure)

    def test_keeps_what_it_has_and_adds_what_is_new_in_order(self):
        path = self.folder / "trend.csv"
        first = [self.entry("2026-11-22T08:00:00Z", 0.3)]
        trend.write(path, trend.joined([], first))
        again = self.entry("2026-11-22T08:00:00Z", 0.7)
        earlier = self.entry("2026-11-21T08:00:00Z", 0.4, "8 cores of A, B \"C\"")
        trend.write(path, trend.joined(trend.entries_of(path), [again, earlier]))
        self.assertEqual(trend.entries_of(path), [earlier, first[0]])

    def test_compares_with_the_last_figure_from_before(self):
        kept = [self.entry("2026-11-20T08:00:00Z", 0.9), self.entry("2026-11-21T08:00:00Z", 0.4),
                self.entry("2026-11-22T08:00:00Z", 0.1)]
        for figure, told in ((0.2, "50% better"), (0.6, "50% worse"), (0.41, "as before")):
            fresh = self.entry("2026-11-22T08:00:00Z", figure)
            self.assertEqual(trend.compared(ROW, fresh, kept), told)
        self.assertEqual(trend.compared(ROW, kept[0], kept), "")

    def test_a_speed_is_better_when_it_is_more(self):
        read = next(row for row in figures.WINDOWS if row.key == "read")
        kept = [self.entry("2026-11-21T08:00:00Z", 0.5, row="read")]
        fresh = self.entry("2026-11-22T08:00:00Z", 0.8, row="read")
        self.assertEqual(trend.compared(read, fresh, kept), "60% better")

    def test_a_time_is_compared_on_the_same_machine_alone(self):
        step = next(row for row in figures.WINDOWS if row.key == "step")
        kept = [self.entry("2026-11-20T08:00:00Z", 300, "mine", "step"),
                self.entry("2026-11-21T08:00:00Z", 100, "another", "step")]
        fresh = self.entry("2026-11-22T08:00:00Z", 150, "mine", "step")
        self.assertEqual(trend.compared(step, fresh, kept), "50% better")

    def test_the_kept_file_can_be_read(self):
        keys = {row.key for row in figures.WINDOWS + figures.POINTS}
        for entry in trend.entries_of(ROOT / "benchmarks/trend.csv"):
            self.assertIn(entry.row, keys)
            self.assertRegex(entry.when, re.compile(r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$"))


class Page(Folder):
    def test_a_row_tells_figure_goal_and_what_has_become_of_it(self):
        results = self.measured(60)
        kept = [trend.Entry("2026-11-21T08:00:00Z", "abc", "another", "redraw", 0.6)]
        self.assertEqual(write_page.cells_of(ROW, results, kept),
                         (ROW.what, "`redraw_qt_bench`", "an immediate replot of QCustomPlot",
                          "60 µs to 200 µs: 0.30", "at most 0.25 (missed)", "50% better"))
        self.assertEqual(write_page.cells_of(ROW, {}, kept)[3:], ("not measured", "at most 0.25", ""))

    def test_a_part_without_all_its_benchmarks_stays_and_its_figures_are_kept(self):
        self.measured(60)
        text = ("a\n<!-- figures: begin -->\nb\n<!-- figures: end -->\n"
                "c\n<!-- points: begin -->\nd\n<!-- points: end -->\n")
        page, kept = self.folder / "page.md", self.folder / "trend.csv"
        page.write_text(text)
        for _ in range(2):
            run = subprocess.run([sys.executable, "-B", ROOT / "benchmarks/write_page.py", self.folder, page,
                                  kept], capture_output=True, text=True, cwd=ROOT)
            self.assertEqual(run.returncode, 0, run.stderr)
        self.assertIn("| the part figures of the page stays as it is without drag_qt_bench, ", run.stdout)
        self.assertEqual(page.read_text(), text)
        self.assertEqual([(entry.when, entry.row, entry.figure) for entry in trend.entries_of(kept)],
                         [("2026-11-22T08:00:00Z", "redraw", 0.3)])

    def test_no_figure_is_taken_of_a_program_with_a_failed_benchmark(self):
        (self.folder / "redraw_qt_bench.json").write_text(written([GOOD, BAD]))
        page, kept = self.folder / "page.md", self.folder / "trend.csv"
        page.write_text("")
        self.run_main(page, kept)
        self.assertEqual(trend.entries_of(kept), [])

    def run_main(self, *paths):
        arguments, sys.argv = sys.argv, ["write_page.py", str(self.folder), *map(str, paths)]
        try:
            with contextlib.redirect_stdout(io.StringIO()):
                write_page.main()
        finally:
            sys.argv = arguments


if __name__ == "__main__":
    unittest.main()
