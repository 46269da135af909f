#!/usr/bin/env python3
"""Writes the example in three dimensions: python3 make_ore.py ore.zvm

Copper and gold in an ore body and their cross semivariogram, in the three axes of the body (which
plunges 30 degrees towards azimuth 40) and in one direction more. A semivariance is a nested model at
the distance of its class, times 1 plus a fixed deviation in percent:

    nugget, and two spherical structures whose sills together make a linear model of
    coregionalization (for each line the cross sill squared is below the product of the other two);
    ranges of 60, 40 and 20 m for the first along the axes, 160, 80 and 40 m for the second.

Only sums and products are used, so that the bytes are the same on any machine.
"""

import sys

# Name, sample variance, nugget, sills of the two structures.
VARIABLES = [
    ("copper", 1.18, 0.2, 0.4, 0.6),
    ("gold", 2.15, 0.5, 0.8, 0.7),
    ("copper-gold", 0.88, 0.1, 0.3, 0.5),
]
# Azimuth (clockwise from north), dip (positive downward), distance from class to class, ranges of
# the two structures. The last direction has 0.375, 0.5 and 0.125 as squared cosines with the axes;
# its ranges, 1/sqrt(0.375/60^2 + 0.5/40^2 + 0.125/20^2) and the same of the second, are rounded.
DIRECTIONS = [
    ("40;30", 20, 60, 160),
    ("130;0", 10, 40, 80),
    ("40;-60", 5, 20, 40),
    ("85;0", 8, 37, 76.5),
]
CLASSES = 12
# In percent of the model, and in tenths of the distance from class to class.
DEVIATIONS = [-4, 3, 1, -2, 5, -3, 2, -1, 4, -5, 0, 6, -6]
SHIFTS = [1, -1, 0, 2, -2]
PAIRS = [18, 46, 80, 112, 128, 140, 136, 124, 110, 88, 60, 34]


def spherical(h, a):
    return 1 if h >= a else 1.5 * (h / a) - 0.5 * (h / a) * (h / a) * (h / a)


def number(value):
    """As the program writes one: no zeros at the end, no point without decimals."""
    text = f"{value:.4f}".rstrip("0").rstrip(".")
    return f" {text} "


def class_line(v, d, k):
    _, step, first, second = DIRECTIONS[d]
    _, _, nugget, sill1, sill2 = VARIABLES[v]
    h = step * k + step * SHIFTS[(k + d) % len(SHIFTS)] / 10
    model = nugget + sill1 * spherical(h, first) + sill2 * spherical(h, second)
    gamma = model * (100 + DEVIATIONS[(k + 3 * d + 5 * v) % len(DEVIATIONS)]) / 100
    pairs = PAIRS[k - 1] + 2 * d
    # Fields start in zones of 14 columns.
    return f"{number(h):14}{number(gamma):14}{number(pairs)}"


def lines():
    yield "Ore body: copper and gold in drill cores"
    yield "zevra"
    yield number(len(VARIABLES))
    yield from (variable[0] for variable in VARIABLES)
    yield number(len(DIRECTIONS))
    yield number(CLASSES)
    yield from (direction[0] for direction in DIRECTIONS)
    for v, variable in enumerate(VARIABLES):
        yield number(variable[1])
        for d in range(len(DIRECTIONS)):
            for k in range(1, CLASSES + 1):
                yield class_line(v, d, k)


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make_ore.py FILE")
    with open(sys.argv[1], "w", encoding="latin-1", newline="") as out:
        out.writelines(line + "\r\n" for line in lines())


main()
