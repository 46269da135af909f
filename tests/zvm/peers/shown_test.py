"""What is taken from a page, and that a line which is not as printed is found."""

import pathlib
import re
import unittest

import shown

DOCS = pathlib.Path(__file__).resolve().parents[3] / "docs"

PAGE = """# A page

```r one.R
cat(1)

cat(2)
```

    $ first --option \\
      more
    1 apple
    ...
    3 pears

    last
    $ second

Text, and a command that is told, not run:

    third

```text
$ fourth
```
"""


class Steps(unittest.TestCase):
    def test_are_files_and_commands_in_order(self):
        self.assertEqual(shown.steps(PAGE), [
            shown.File("one.R", "cat(1)\n\ncat(2)\n"),
            shown.Command("first --option \\\n  more", ["1 apple", "...", "3 pears", "", "last"]),
            shown.Command("second", []),
        ])


class Comparison(unittest.TestCase):
    def same(self, page, printed, tolerance=0):
        return shown.is_same(shown.lines(page), shown.lines(printed), tolerance)

    def test_takes_what_is_shown(self):
        self.assertTrue(self.same("a 1\nb 2", "a 1\nb 2"))
        self.assertTrue(self.same("", ""))
        self.assertTrue(self.same("a 1\nb 2", "a 1 \nb 2\n"))

    def test_finds_any_line_that_is_not(self):
        for changed in ("a 1\nb 3", "a 1", "a 1\nb 2\nc", "b 2\na 1", "a  1\nb 2", ""):
            self.assertFalse(self.same(changed, "a 1\nb 2"), changed)

    def test_points_stand_for_any_lines(self):
        for page in ("...", "a\n...", "...\nd", "a\n...\nd", "a\nb\n...\nc\nd", "...\nb\n...\nd"):
            self.assertTrue(self.same(page, "a\nb\nc\nd"), page)

    def test_lines_around_points_count(self):
        for page in ("b\n...", "...\nc", "a\n...\nb", "...\nc\n...\nb\n...", "a ..."):
            self.assertFalse(self.same(page, "a\nb\nc\nd"), page)

    def test_numbers_differ_by_the_tolerance_and_no_more(self):
        self.assertTrue(self.same("error 0.3912345 -1.5e-3", "error 0.3912348 -0.0015", 1e-6))
        self.assertFalse(self.same("error 0.391234", "error 0.391235", 1e-6))
        self.assertFalse(self.same("error 0.3912345", "error -0.3912345", 1e-6))
        self.assertFalse(self.same("error 0.3912345", "error 0.3912348"))

    def test_the_text_around_numbers_counts(self):
        self.assertFalse(self.same("error 1", "errors 1", 1e-6))
        self.assertFalse(self.same("error 1 m", "error 1", 1e-6))
        self.assertFalse(self.same("error 1 2", "error 1", 1e-6))


WRITTEN = re.compile(r"^zvm (?:compute|fit|plot) \S+ (\S+)|^zvm .* -o (\S+)")


def made_by(step):
    """The file that a step makes, where it would be refused if it existed."""
    if isinstance(step, shown.File):
        return step.name
    found = None if "--overwrite" in step.line else WRITTEN.match(step.line)
    return found and (found[1] or found[2])


class Pages(unittest.TestCase):
    def test_a_reader_of_all_pages_meets_each_file_once(self):
        made = []
        for page in ("zvm", "tutorial", "drill-holes", "large"):
            made += filter(None, map(made_by, shown.steps((DOCS / f"{page}.md").read_text(encoding="utf-8"))))
        self.assertIn("metals.zvm", made)
        self.assertEqual(sorted(made), sorted(set(made)))
        examples = {path.name for path in (DOCS.parent / "examples").iterdir()}
        self.assertFalse(examples & set(made))


if __name__ == "__main__":
    unittest.main()
