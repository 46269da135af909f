"""What a page of the documentation shows: files to make, commands and what they print. The standard
library only.

A file is a fenced block whose first line has a language and a name. A command stands behind "$ " in an
indented block and goes on in the next line behind a backslash; up to the next command or the end of the
block follows what it prints, where a line "..." stands for any lines, also for none. Other blocks count
as text."""

import dataclasses
import re

NUMBER = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?")
ANY = "..."
INDENTATION = 4


@dataclasses.dataclass
class File:
    name: str
    text: str = ""


@dataclasses.dataclass
class Command:
    line: str
    shown: list = dataclasses.field(default_factory=list)


def lines(text):
    """Without the blanks at their ends, which nobody sees."""
    return [line.rstrip() for line in text.splitlines()]


def steps(page):
    """The files and commands of a page in their order."""
    found, fence, command = [], None, None
    for line in lines(page):
        if fence is not None:
            if line == "```":
                fence = None
            else:
                fence.text += line + "\n"
        elif line.startswith("```"):
            fence = File(line.partition(" ")[2])
            if fence.name:
                found.append(fence)
        elif line and not line.startswith(" " * INDENTATION):
            command = None
        elif line.startswith(" " * INDENTATION + "$ "):
            command = Command(line[INDENTATION + 2:])
            found.append(command)
        elif command is not None and command.line.endswith("\\"):
            command.line += "\n" + line[INDENTATION:]
        elif command is not None:
            command.shown.append(line[INDENTATION:])
    for step in found:
        while isinstance(step, Command) and step.shown and not step.shown[-1]:
            step.shown.pop()
    return found


def is_same_number(shown, printed, tolerance):
    if shown == printed:
        return True
    a, b = float(shown), float(printed)
    return abs(a - b) <= tolerance * max(abs(a), abs(b))


def is_same_line(shown, printed, tolerance):
    """With a tolerance numbers are compared as such, and all between them as it stands."""
    if tolerance == 0:
        return shown == printed
    numbers = [NUMBER.findall(line) for line in (shown, printed)]
    return NUMBER.split(shown) == NUMBER.split(printed) and all(
        is_same_number(a, b, tolerance) for a, b in zip(*numbers))


def is_same(shown, printed, tolerance):
    """Whether the lines of a page stand for these."""
    if not shown:
        return not printed
    if shown[0] == ANY:
        return any(is_same(shown[1:], printed[skipped:], tolerance)
                   for skipped in range(len(printed) + 1))
    return bool(printed) and is_same_line(shown[0], printed[0], tolerance) and is_same(
        shown[1:], printed[1:], tolerance)
