"""pages.py ZVM EXAMPLES PAGE [KEEP]: runs the commands of a page in order in a copy of the examples, with
the files that the page has, and compares what they print with what the page shows; of R numbers may
differ by a millionth. The pictures of the page in pictures/pages/ have to be made by its commands; they
are copied into the folder KEEP."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import shown

TOLERANCE = 1e-6
PICTURE = re.compile(r'src="pictures/pages/([^"]+)"')


def tolerance_of(command):
    return TOLERANCE if command.line.startswith("Rscript ") else 0


def printed_by(command, folder, zvm):
    """The lines, and the exit code."""
    surroundings = dict(os.environ, LC_ALL="C.UTF-8", PATH=f"{zvm.parent}:{os.environ['PATH']}")
    run = subprocess.run(["bash", "-c", command.line], cwd=folder, env=surroundings, text=True,
                         stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    return shown.lines(run.stdout), run.returncode


def complaint_about(command, folder, zvm):
    printed, code = printed_by(command, folder, zvm)
    if code == 0 and shown.is_same(command.shown, printed, tolerance_of(command)):
        return []
    return [f"$ {command.line}", f"ends with {code} and prints", *printed]


def complaints_about(steps, folder, zvm):
    """About the first command that does not do as the page says; those behind it go on from there."""
    for step in steps:
        if isinstance(step, shown.File):
            (folder / step.name).write_text(step.text, encoding="utf-8")
        elif complaint := complaint_about(step, folder, zvm):
            return complaint
    return []


def keep(pictures, folder, kept):
    for name in pictures:
        shutil.copy(folder / name, kept)


def main():
    zvm, examples, page = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
    text = page.read_text(encoding="utf-8")
    steps = shown.steps(text)
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch) / "examples"
        shutil.copytree(examples, folder)
        complaints = complaints_about(steps, folder, zvm)
        pictures = PICTURE.findall(text)
        complaints += [f"{name} is not made" for name in pictures if not (folder / name).exists()]
        if len(sys.argv) > 4 and not complaints:
            keep(pictures, folder, sys.argv[4])
    for line in complaints:
        print(line)
    print(f"| {page.name}: {len(steps)} commands and files, {len(pictures)} pictures")
    sys.exit(1 if complaints or not steps else 0)


main()
