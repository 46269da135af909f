"""The figures of the page, each with what it is to be: the one table of goals.

A ratio is the time, speed or memory of the program beside its yardstick in the same run; a time or a
number of megabytes is one of the machine that it was measured on.
"""
import dataclasses
import typing

from results import NotMeasured, Results

# A figure that is worse than its goal by more than this share has missed it.
TOLERANCE = 0.1


def duration(microseconds):
    if microseconds < 10:
        return f"{microseconds:.2f} µs"
    if microseconds < 10_000:
        return f"{microseconds:,.0f} µs"
    if microseconds < 1e6:
        return f"{microseconds / 1e3:.1f} ms"
    return f"{microseconds / 1e6:.1f} s"


@dataclasses.dataclass(frozen=True)
class Goal:
    """The limits of a figure; one of them may be absent."""

    low: float | None = None
    high: float | None = None

    def excess(self, value):
        """The share by which a figure is worse than the goal; 0 and less within it."""
        over = [] if self.high is None else [value / self.high - 1]
        under = [] if self.low is None else [1 - value / self.low]
        return max(over + under, default=0)

    def told(self, unit):
        if self.low is not None and self.high is not None:
            return f"{unit(self.low)} to {unit(self.high)}"
        if self.low is not None:
            return f"at least {unit(self.low)}"
        return "" if self.high is None else f"at most {unit(self.high)}"


@dataclasses.dataclass(frozen=True)
class Row:
    """`measure` takes the results of the program: the figure, and what of it the page tells."""

    key: str
    what: str
    program: str
    yardstick: str
    measure: typing.Callable[[Results], tuple[float, str]]
    goal: Goal
    unit: typing.Callable[[float], str] = "{:g}".format

    @property
    def is_ratio(self):
        return self.unit is not duration

    def better(self, now, before):
        """By which share a figure is better than an earlier one; below 0 it is worse."""
        if self.goal.low is not None and self.goal.high is not None:
            return abs(before - 1) - abs(now - 1)
        return now / before - 1 if self.goal.low is not None else 1 - now / before

    def figure(self, results):
        """Nothing where it was not measured."""
        try:
            return self.measure(results[self.program]) if self.program in results else None
        except NotMeasured:
            return None


def at_most(limit):
    return Goal(high=limit)


def at_least(limit):
    return Goal(low=limit)


def time_of(name):
    def measure(results):
        return results.time(name), duration(results.time(name))
    return measure


def times(ours, theirs):
    def measure(results):
        mine, other = results.time(ours), results.time(theirs)
        return mine / other, f"{duration(mine)} to {duration(other)}: {mine / other:.2f}"
    return measure


def counted_time(name, counter):
    def measure(results):
        value = results.of(name)[counter]
        return value, duration(value)
    return measure


def file_speed(name):
    def measure(results):
        run = results.of(name)
        speed = run["speed_of_yardstick"]
        return speed, f"{run['best_ms']:.1f} ms to {run['yardstick_ms']:.1f} ms: {speed:.2f} of its speed"
    return measure


def file_memory(results):
    run = results.of("BM_ReadMemory")
    allowed, share = run["file_MB"] + 2 * run["tables_MB"], run["of_file_and_twice_tables"]
    return share, f"{run['taken_MB']:.1f} MB to {allowed:.1f} MB: {share:.2f}"


def model_ratio(results):
    runs = [results.of(f"sampled/{i}") for i in range(4)]
    ratios = [run["median_us"] / run["alone_us"] for run in runs]
    return max(ratios), f"{min(ratios):.2f} to {max(ratios):.2f} by letters"


def start_ratio(counter):
    def measure(results):
        run = results.of("BM_Start")
        ours, empty = run[counter], run["empty_ms"]
        return ours / empty, f"{ours:.1f} ms to {empty:.1f} ms: {ours / empty:.2f}"
    return measure


def quietest(results, name):
    """Of the rounds of a benchmark, the least of their medians in microseconds."""
    return results.of(name)["quietest_us"]


def each_class(results):
    few, many = (quietest(results, f"BM_RedrawByClasses/{classes}") for classes in (10, 1000))
    return (many - few) / 990, f"{(many - few) / 990:.3f} µs"


def gstat_speed(name):
    def measure(results):
        run = results.of(name)
        speed = run["speed_of_gstat"]
        return speed, f"{1000 * run['best_s']:.0f} ms to {run['gstat_s']:.1f} s: {speed:.0f} times its speed"
    return measure


def pair_ratio(name):
    def measure(results):
        run = results.of(name)
        ratio = run["times_yardstick"]
        return ratio, f"{run['ns_a_pair']:.2f} ns to {run['yardstick_ns_a_pair']:.2f} ns a pair: {ratio:.2f}"
    return measure


def two_threads(results):
    run = results.of("BM_TwoThreads")
    speed = run["times_one"]
    return speed, f"{run['two_s']:.2f} s to {run['one_s']:.2f} s: {speed:.2f} times its speed"


def ten_million(results):
    one, ten = (results.of(f"BM_Growth/{points}")["ns_a_pair"] for points in (1_000_000, 10_000_000))
    return ten / one, f"{ten:.2f} ns to {one:.2f} ns a pair: {ten / one:.2f}"


def point_memory(results):
    run = results.of("BM_ComputeMemory")
    share = run["taken_MB"] / run["allowed_MB"]
    return share, f"{run['taken_MB']:.1f} MB to {run['allowed_MB']:.1f} MB: {share:.2f}"


REPLOT = "an immediate replot of QCustomPlot"
SAME_NUMBERS = "a bare loop over the same numbers"
SAME_PAIRS = "a bare loop over the same pairs"
FRAME = at_most(1e6 / 120)  # one picture of a screen of 120 Hz

WINDOWS = [
    Row("read", "reading 40 variables, 20 directions, 1,000 classes", "files_bench", SAME_NUMBERS,
        file_speed("BM_Read"), at_least(0.8)),
    Row("compose", "composing the same file", "files_bench", SAME_NUMBERS,
        file_speed("BM_Compose"), at_least(0.8)),
    Row("write", "writing it, and flushing it to the disk", "files_bench", SAME_NUMBERS,
        file_speed("BM_WriteAndFlushToDisk"), at_least(0.8)),
    Row("read memory", "memory of reading it", "files_memory_bench", "the file and twice the tables",
        file_memory, at_most(0.7)),
    Row("model", "the model function over 100 distances, three structures", "model_bench",
        "its exponentials and powers alone", model_ratio, at_most(1.5)),
    Row("fit", "start models of 40 variables, 20 directions, 20 classes, two threads", "fit_bench", "",
        time_of("fitAll/2"), at_most(2e6), duration),
    Row("redraw", "one redraw, 20 classes, panel included", "redraw_qt_bench", REPLOT,
        times("BM_Redraw", "BM_QCustomPlotReplot"), at_most(0.25)),
    Row("step", "one step of a slider with all that follows", "redraw_qt_bench", "",
        time_of("BM_SliderStep"), FRAME, duration),
    Row("drag median", "a mouse move in a drag to the painted plot, median",
        "drag_qt_bench", "", counted_time("BM_DragMove", "median_us"), at_most(250), duration),
    Row("drag p99", "the same, 99 in 100 within, in the quietest of ten rounds", "drag_qt_bench", "",
        counted_time("BM_DragMove", "p99_us"), at_most(350), duration),
    Row("drag drawing", "the drawing within it", "drag_qt_bench", REPLOT,
        times("BM_DrawingWithin", "BM_QCustomPlotReplot"), at_most(0.6)),
    Row("class", "each class more in a redraw, up to 1,000", "growth_qt_bench", "",
        each_class, at_most(0.1), duration),
    Row("20 plots", "one redraw with 20 plots open", "growth_qt_bench", "",
        time_of("BM_RedrawByOpenWindows/20"), FRAME, duration),
    Row("20 plots switch", "a switch of variable with 20 plots open, plotted", "many_plots_qt_bench", "",
        time_of("BM_SwitchOfVariable"), FRAME, duration),
    Row("20 plots active", "another of 20 plots made the active one", "many_plots_qt_bench", "",
        time_of("BM_AnotherPlot"), FRAME, duration),
    Row("20 plots tiled", "20 plots arranged anew", "many_plots_qt_bench", "",
        time_of("BM_Tiling"), FRAME, duration),
    Row("report", "a report of 21 plots into a printer in memory", "report_qt_bench", "",
        time_of("BM_SheetIntoMemory"), at_most(50e3), duration),
    Row("report pdf", "the same into a PDF file", "report_qt_bench", "21 PDF files of QCustomPlot",
        times("BM_SheetIntoPdf", "BM_QCustomPlotSaves21Pdfs"), at_most(0.5)),
    Row("start", "start to the first window shown", "start_qt_bench", "an empty main window",
        start_ratio("zevfit_ms"), at_most(1.2)),
    Row("start whole", "start to the window with all that is in it", "start_qt_bench", "an empty main window",
        start_ratio("whole_ms"), at_most(1.9)),
]

POINTS = [
    Row("gstat", "50,000 random points, cutoff 0.1, 15 classes, one thread", "compute_gstat_bench", "gstat",
        gstat_speed("BM_OmnidirectionalBesideGstat"), at_least(60)),
    Row("gstat 4", "the same in four directions", "compute_gstat_bench", "gstat",
        gstat_speed("BM_FourDirectionsBesideGstat"), at_least(150)),
    Row("pairs 10000", "its pairs, 10,000 points", "compute_bench", SAME_PAIRS,
        pair_ratio("BM_Omnidirectional/10000"), at_most(1.5)),
    Row("pairs 50000", "its pairs, 50,000 points", "compute_bench", SAME_PAIRS,
        pair_ratio("BM_Omnidirectional/50000"), at_most(1.5)),
    Row("pairs 500000", "its pairs, 500,000 points", "compute_bench", SAME_PAIRS,
        pair_ratio("BM_Omnidirectional/500000"), at_most(1.5)),
    Row("pairs 4", "the pairs in four directions", "compute_bench", SAME_PAIRS,
        pair_ratio("BM_FourDirections/50000"), Goal()),
    Row("threads", "two threads, 200,000 points", "compute_bench", "one thread",
        two_threads, at_least(1.85)),
    Row("ten million", "ten million points, with as many partners each", "compute_bench", "one million",
        ten_million, Goal(0.85, 1.15)),
    Row("compute memory", "memory of `zvm compute`, a million points", "compute_memory_bench",
        "64 bytes a point and 16 MB", point_memory, at_most(1)),
    Row("csv", "reading a CSV file of a million points", "points_bench", "a bare loop of `from_chars`",
        file_speed("BM_ReadPoints"), at_least(0.5)),
]

# Built only where their yardstick is.
OPTIONAL = {"compute_gstat_bench"}
