#!/usr/bin/env python3
"""eight_processes.py ZVM EXAMPLES PAGE: shares that eight processes compute at once, and those of the
page's task of a queue, make the bytes of an undivided run."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PAGE = pathlib.Path(sys.argv.pop()).resolve()
EXAMPLES = pathlib.Path(sys.argv.pop()).resolve()
ZVM = pathlib.Path(sys.argv.pop()).resolve()
SHARES = range(1, 9)
OPTIONS = ["--x", "x", "--y", "y", "--var", "value", "--lag", "50", "--lags", "20", "--dir", "0;0",
           "--dir", "45;0", "--dir", "90;0", "--dir", "135;0"]


def script(name):
    """A file that the page shows."""
    begin = f"\n```bash {name}\n"
    return PAGE.read_text(encoding="utf-8").partition(begin)[2].partition("\n```\n")[0] + "\n"


class EightProcesses(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.run_to_end(sys.executable, EXAMPLES / "make_points.py", "5000", "points.csv")
        self.run_to_end(ZVM, "compute", "points.csv", "whole.zvm", *OPTIONS)

    def start(self, *command, **more):
        surroundings = dict(os.environ, PATH=f"{ZVM.parent}:{os.environ['PATH']}", **more)
        return subprocess.Popen(command, cwd=self.folder, env=surroundings, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def end(self, process):
        said = process.communicate()[0]
        self.assertEqual(process.returncode, 0, said)

    def run_to_end(self, *command):
        self.end(self.start(*command))

    def expect_whole(self):
        """All shares hold work, and merged they are the undivided file."""
        shares = [f"share-{number}" for number in SHARES]
        for share in shares:
            self.assertIn("\ntask ", (self.folder / share).read_text(encoding="ascii"), share)
        self.run_to_end(ZVM, "merge", *shares, "merged.zvm")
        self.assertEqual((self.folder / "merged.zvm").read_bytes(),
                         (self.folder / "whole.zvm").read_bytes())

    def test_take_points_that_are_the_same_each_time(self):
        self.run_to_end(sys.executable, EXAMPLES / "make_points.py", "5000", "again.csv")
        text = (self.folder / "points.csv").read_text(encoding="ascii")
        self.assertEqual((self.folder / "again.csv").read_text(encoding="ascii"), text)
        names, *rows = text.splitlines()
        self.assertEqual((names, len(rows)), ("x,y,value", 5000))
        # 5 square kilometres of a thousand points each.
        side = 5e6 ** 0.5
        for place in (float(number) for row in rows for number in row.split(",")[:2]):
            self.assertTrue(0 <= place <= side + 0.05, place)

    def test_make_the_bytes_of_one(self):
        started = [self.start(ZVM, "compute", "points.csv", f"share-{number}", "--part",
                              f"{number}/{len(SHARES)}", "--threads", str(1 + number % 2), *OPTIONS)
                   for number in SHARES]
        for process in started:
            self.end(process)
        self.expect_whole()

    def test_do_so_as_tasks_of_a_queue(self):
        for name in ("share", "share.sbatch"):
            (self.folder / name).write_text(script(name), encoding="utf-8")
        started = [self.start("bash", "share.sbatch", SLURM_ARRAY_TASK_ID=str(number))
                   for number in SHARES]
        for process in started:
            self.end(process)
        self.expect_whole()


if __name__ == "__main__":
    unittest.main()
