#!/usr/bin/env python3
"""Writes a large variogram file: python3 make_large.py large.zvm [CLASSES]

40 variables and 20 directions, as many as there may be, of 250 classes or as told; about 7 MB. The
semivariances are a nugget and a spherical structure with chance on top. The chance comes from a
generator with a fixed seed, so that each run makes the same bytes:

    x becomes 16807 x modulo 2147483647, beginning with 1; a draw is the new x / 2147483647.

A class k of variable v in direction d takes three draws u:

    distance            100 k + 40 (u - 0.5), two decimals
    semivariance        v (0.1 + 0.9 spherical(distance / (5000 + 500 d))) (0.9 + 0.2 u), four decimals
    number of pairs     30 + 970 u, rounded down
"""

import sys

VARIABLES = 40
DIRECTIONS = 20
MODULUS = 2147483647


class Draws:
    def __init__(self):
        self.x = 1

    def next(self):
        self.x = 16807 * self.x % MODULUS
        return self.x / MODULUS


def spherical(ratio):
    return 1 if ratio >= 1 else 1.5 * ratio - 0.5 * ratio * ratio * ratio


def class_line(draws, v, d, k):
    h = round(100 * k + 40 * (draws.next() - 0.5), 2)
    model = v * (0.1 + 0.9 * spherical(h / (5000 + 500 * d)))
    gamma = model * (0.9 + 0.2 * draws.next())
    pairs = 30 + int(970 * draws.next())
    return f" {h:<12.2f}  {gamma:<12.4f}  {pairs} "


def lines(classes):
    yield "Large file of chance"
    yield "zevra"
    yield f" {VARIABLES} "
    yield from (f"variable {v}" for v in range(1, VARIABLES + 1))
    yield f" {DIRECTIONS} "
    yield f" {classes} "
    yield from (f"{9 * d};0" for d in range(DIRECTIONS))
    draws = Draws()
    for v in range(1, VARIABLES + 1):
        yield f" {v} "
        for d in range(1, DIRECTIONS + 1):
            for k in range(1, classes + 1):
                yield class_line(draws, v, d, k)


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit("usage: make_large.py FILE [CLASSES]")
    classes = int(sys.argv[2]) if len(sys.argv) == 3 else 250
    with open(sys.argv[1], "w", encoding="latin-1", newline="") as out:
        out.writelines(line + "\r\n" for line in lines(classes))


main()
