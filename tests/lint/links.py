#!/usr/bin/env python3
"""links.py FOLDER...: the relative links, pictures and anchors of all pages (*.md) in each folder, which have
to lead to something in that folder; it prints those that do not, and fails. Build folders and hidden
ones are passed over."""

import pathlib
import re
import sys
import urllib.parse

CODE = re.compile(r"^(```|~~~).*?^\1[^\n]*$|^ {4}[^\n]*$|`[^`]*`", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(\s*([^)\s]+)[^)]*\)|\b(?:src|href)=\"([^\"]*)\"|^\[[^\]]+\]:\s*(\S+)", re.MULTILINE)
FENCED = re.compile(r"^(```|~~~).*?^\1[^\n]*$", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^#{1,6} +(.*?) *#*$", re.MULTILINE)
ELSEWHERE = re.compile(r"[a-z][a-z0-9+.-]+:", re.IGNORECASE)
PASSED_OVER = ("build",)


def pages_in(folder):
    return [page for page in sorted(folder.rglob("*.md"))
            if not any(part in PASSED_OVER or part.startswith(".")
                       for part in page.relative_to(folder).parts)]


def links_of(text):
    """Without those that lead out of the machine."""
    found = ("".join(groups) for groups in LINK.findall(CODE.sub("", text)))
    return [link for link in found if not ELSEWHERE.match(link)]


def anchors_of(text):
    """Of the headings, as a browser of Markdown names them: the second of a name has "-1" behind it."""
    anchors = set()
    for heading in HEADING.findall(FENCED.sub("", text)):
        shown = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower()
        anchor = unique = re.sub(r"[^\w\- ]", "", shown).replace(" ", "-")
        number = 0
        while unique in anchors:
            number += 1
            unique = f"{anchor}-{number}"
        anchors.add(unique)
    return anchors


def complaint_about(link, page, folder):
    """What is wrong with a link of a page; nothing where it leads to something."""
    place, _, anchor = link.partition("#")
    target = (page.parent / urllib.parse.unquote(place)).resolve() if place else page.resolve()
    if not target.is_relative_to(folder.resolve()):
        return "leads out of the folder"
    if not target.exists():
        return "leads to nothing"
    if anchor and (target.suffix != ".md" or anchor not in anchors_of(target.read_text(encoding="utf-8"))):
        return "leads to no heading"
    return ""


def complaints_in(folder):
    complaints = []
    for page in pages_in(folder):
        for link in links_of(page.read_text(encoding="utf-8")):
            if complaint := complaint_about(link, page, folder):
                complaints.append(f"{page.relative_to(folder)}: {link} {complaint}")
    return complaints


def main():
    folders = [pathlib.Path(argument) for argument in sys.argv[1:]]
    if not folders or not all(pages_in(folder) for folder in folders):
        sys.exit("There is no page to look at.")
    complaints = [f"{folder}: {line}" for folder in folders for line in complaints_in(folder)]
    for line in complaints:
        print(line)
    sys.exit(1 if complaints else 0)


if __name__ == "__main__":
    main()
