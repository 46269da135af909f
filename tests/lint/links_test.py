#!/usr/bin/env python3
"""That links.py finds links which lead nowhere, and only those."""

import pathlib
import tempfile
import unittest

import links


class Links(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name) / "house"
        self.put("other.md", "# The other page: `.zvp`\n\n## Twice\n\n## Twice\n")
        self.put("pictures/plot 1.png")
        (self.folder.parent / "outside.md").write_text("# Outside\n")

    def put(self, name, text=""):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def complaints(self, text, name="page.md"):
        self.put(name, text)
        return links.complaints_in(self.folder)

    def test_what_is_there(self):
        text = ("# A page\n[a\nlink](other.md) [its heading](other.md#the-other-page-zvp) [second](other.md#twice-1)\n"
                "[above](#a-page) [folder](pictures) <img\nsrc=\"pictures/plot%201.png\">\n"
                "![a](pictures/plot%201.png \"t\")\n")
        self.assertEqual(self.complaints(text), [])
        self.assertEqual(len(links.links_of(text)), 7)

    def test_what_is_not(self):
        self.assertEqual(
            self.complaints("[a](none.md) [b](other.md#none) [c](#none) <img src=\"none.png\"> ![d](Other.md)\n"
                            "[e](../outside.md) [f](pictures/plot%201.png#a) [g](other.md#twice-2)\n[h]: gone.md\n"),
            ["page.md: none.md leads to nothing", "page.md: other.md#none leads to no heading",
             "page.md: #none leads to no heading", "page.md: none.png leads to nothing",
             "page.md: Other.md leads to nothing", "page.md: ../outside.md leads out of the folder",
             "page.md: pictures/plot%201.png#a leads to no heading",
             "page.md: other.md#twice-2 leads to no heading", "page.md: gone.md leads to nothing"])

    def test_from_where_the_page_is(self):
        self.assertEqual(self.complaints("[a](../other.md) [b](other.md)\n", "in/side.md"),
                         ["in/side.md: other.md leads to nothing"])

    def test_code_and_other_machines_are_no_links(self):
        self.assertEqual(self.complaints("`[a](b)` [out](https://example.invalid/a.md)\n\n    x[1](y)\n\n"
                                         "```r f.R\nm[1](z)\n# no heading\n```\n[c](#no-heading)\n"),
                         ["page.md: #no-heading leads to no heading"])

    def test_build_folders_are_passed_over(self):
        self.put("build/page.md", "[a](none.md)")
        self.put(".git/page.md", "[a](none.md)")
        self.assertEqual(links.complaints_in(self.folder), [])


if __name__ == "__main__":
    unittest.main()
