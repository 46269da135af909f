#!/usr/bin/env python3
"""terminal.py ZVM: what the command shows on a terminal, and what an interrupt there leaves."""
import os
import pathlib
import pty
import random
import re
import select
import signal
import subprocess
import sys
import tempfile
import time
import unittest

ZVM = sys.argv.pop(1)
LONG = 120  # seconds of silence after which nothing more is waited for


class Terminal(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def points(self, count):
        chance = random.Random(1)
        rows = (f"{chance.random():.6f},{chance.random():.6f},{i % 7}\n" for i in range(count))
        (self.folder / "points.csv").write_text("x,y,v\n" + "".join(rows))

    def compute(self, *more):
        return [ZVM, "compute", "points.csv", "out.zvm", "--x", "x", "--y", "y", "--var", "v",
                "--lags", "10", "--threads", "1", *more]

    def semivariograms(self, variables):
        """A file of variables and all their cross variables in four directions."""
        names = [chr(ord("a") + i) for i in range(variables)]
        names += [f"{a}-{b}" for i, a in enumerate(names) for b in names[i + 1:]]
        chance = random.Random(2)
        lines = ["t", "zevlag", str(len(names)), *names, "4", "15", "0;0", "45;0", "90;0", "135;0"]
        for name in names:
            lines.append("1")
            for k in range(4 * 15):
                h = 1 + k % 15
                lines.append(f"{h} {(0.3 if '-' in name else 1) * h / (h + 3) * chance.uniform(0.8, 1.2)} 100")
        (self.folder / "many.zvm").write_text("\n".join(lines) + "\n")

    def start(self, arguments):
        """A run on a terminal of its own: its process number and the other end of the terminal."""
        process, terminal = pty.fork()
        if process == 0:
            os.chdir(self.folder)
            os.execv(ZVM, arguments)
        self.addCleanup(os.close, terminal)
        return process, terminal

    def shown(self, terminal, until=None):
        """All that is shown up to its end, or up to a text."""
        text = ""
        while until is None or until not in text:
            ready = select.select([terminal], [], [], LONG)[0]
            self.assertTrue(ready, f"nothing more behind {text!r}")
            try:
                got = os.read(terminal, 4096)
            except OSError:  # the run has closed its end
                got = b""
            if not got:
                self.assertIsNone(until, text)
                break
            text += got.decode()
        return text

    def code(self, process):
        return os.waitstatus_to_exitcode(os.waitpid(process, 0)[1])

    def left(self):
        return sorted(path.name for path in self.folder.iterdir())

    def test_long_work_shows_how_far_it_is_and_an_interrupt_leaves_nothing(self):
        self.points(60_000)
        process, terminal = self.start(self.compute("--lag", "0.15"))
        text = self.shown(terminal, " left")
        self.assertRegex(text.replace("\x1b[K", ""), r"^\rcomputing \[#*\.*\] \d+ %, \d+:\d\d left")
        os.write(terminal, b"\x03")
        self.assertEqual(self.code(process), 130)
        self.assertEqual(self.left(), ["points.csv"])

    def test_an_interrupt_keeps_the_old_file(self):
        self.points(60_000)
        (self.folder / "out.zvm").write_text("old")
        process, terminal = self.start(self.compute("--lag", "0.15", "--overwrite"))
        self.shown(terminal, " left")
        os.write(terminal, b"\x03")
        self.assertEqual(self.code(process), 130)
        self.assertEqual(self.left(), ["out.zvm", "points.csv"])
        self.assertEqual((self.folder / "out.zvm").read_text(), "old")

    def test_the_bar_is_taken_away_behind_the_work(self):
        self.points(20_000)
        process, terminal = self.start(self.compute("--lag", "0.1"))
        text = self.shown(terminal)
        self.assertEqual(self.code(process), 0)
        # Fast machines are done within the second in which nothing is shown.
        if " left" in text:
            self.assertIn("\r\x1b[Ktitle", text)
        self.assertIn("points read", text)

    def test_short_work_shows_none(self):
        self.points(100)
        process, terminal = self.start(self.compute("--lag", "0.01"))
        text = self.shown(terminal)
        self.assertEqual(self.code(process), 0)
        self.assertTrue(text.startswith("title"), text)
        self.assertNotIn("\x1b", text)

    def test_a_fit_of_variables_together_shows_how_far_it_is(self):
        self.semivariograms(8)
        process, terminal = self.start([ZVM, "fit", "many.zvm", "out.zvm", "--structures", "3",
                                        "--lmc", "a,b,c,d,e,f,g,h"])
        text = self.shown(terminal, " left")
        self.assertRegex(text.replace("\x1b[K", ""), r"^\rfitting \[#*\.*\] \d+ %, \d+:\d\d left")
        # It moves within the one fit.
        while len(set(re.findall(r"(\d+) %", text))) < 3:
            text += self.shown(terminal, " left")
        os.write(terminal, b"\x03")
        self.assertEqual(self.code(process), 130)
        self.assertEqual(self.left(), ["many.zvm"])

    def test_quiet_work_shows_none(self):
        self.points(60_000)
        process, terminal = self.start(self.compute("--lag", "0.15", "-q"))
        time.sleep(2)
        self.assertEqual(select.select([terminal], [], [], 0)[0], [])
        os.write(terminal, b"\x03")
        self.assertEqual(self.code(process), 130)

    def test_no_bar_where_there_is_no_terminal(self):
        self.points(60_000)
        run = subprocess.Popen(self.compute("--lag", "0.15"), cwd=self.folder, text=True,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        time.sleep(2)
        run.send_signal(signal.SIGINT)
        self.assertEqual(run.communicate(), ("", ""))
        self.assertEqual(run.returncode, 130)
        self.assertEqual(self.left(), ["points.csv"])

    def test_a_cutoff_near_the_diameter_says_how_long_it_takes(self):
        # 20 thousand million pairs, nearly: 80 s of 4 ns each.
        self.points(200_000)
        process, terminal = self.start(self.compute("--lag", "0.14"))
        text = self.shown(terminal, "\r\n")
        self.assertRegex(text, r"^zvm: warning: this takes about 1:\d\d; --sample N draws some of the points\r\n")
        os.write(terminal, b"\x03")
        self.assertEqual(self.code(process), 130)


if __name__ == "__main__":
    unittest.main()
