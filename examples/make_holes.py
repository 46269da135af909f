#!/usr/bin/env python3
"""Writes points in space whose semivariogram is known: python3 make_holes.py holes.csv

Grades of a deposit in 400 vertical drill holes of 12 samples each. They are a random field with the
covariance of the model

    nugget 0.2, and an exponential structure of sill 0.8 with the practical ranges 90 m in the plane
    and 30 m down the holes: 0.8 exp(-3 |h'|), h' = (dx / 90, dy / 90, dz / 30).

The field is a sum of waves, of which each has that covariance by itself (spectral method: Shinozuka
and Jan, "Digital simulation of random processes and its applications", 1972). The covariance is the
characteristic function of a Cauchy distribution in space, so that the wave numbers are normal
numbers, three for the place and a fourth to divide them by. The seed is fixed, and a grade has four
decimals, so that the file is the same each time.
"""

import math
import random
import sys

HOLES, SAMPLES = 400, 12
SIDE, STEP, TOP = 2000, 5, 300  # metres
IN_PLANE, DOWN = 90, 30
NUGGET, SILL = 0.2, 0.8
WAVES = 1000


def waves(chance):
    for _ in range(WAVES):
        x, y, z, divisor = (chance.gauss(0, 1) for _ in range(4))
        yield (3 * x / divisor / IN_PLANE, 3 * y / divisor / IN_PLANE, 3 * z / divisor / DOWN,
               chance.uniform(0, 2 * math.pi))


def rows(chance):
    field = list(waves(chance))
    scale = math.sqrt(2 * SILL / WAVES)
    for hole in range(1, HOLES + 1):
        x, y = round(chance.uniform(0, SIDE), 1), round(chance.uniform(0, SIDE), 1)
        for sample in range(SAMPLES):
            z = TOP - STEP * sample
            wave = sum(math.cos(kx * x + ky * y + kz * z + phase) for kx, ky, kz, phase in field)
            grade = scale * wave + chance.gauss(0, math.sqrt(NUGGET))
            yield f"{hole},{x},{y},{z},{grade:.4f}"


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make_holes.py FILE")
    with open(sys.argv[1], "w", encoding="ascii", newline="") as out:
        out.writelines(line + "\n" for line in ("hole,x,y,z,grade", *rows(random.Random(1))))


main()
