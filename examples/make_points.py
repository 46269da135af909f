#!/usr/bin/env python3
"""Writes many points in the plane: python3 make_points.py COUNT points.csv

A thousand points a square kilometre, so that each has as many neighbours whatever their number, at random
places of a square; coordinates in metres, one decimal. The value is a sum of eight waves of 2 to 20 km
with a variance of 0.8 together, and noise with one of 0.2; four decimals. The seed is fixed, so that the
file is the same each time.
"""

import math
import random
import sys

DENSITY = 1e-3  # points a square metre
WAVES = 8
SHORTEST, LONGEST = 2000, 20000
OF_WAVES, OF_NOISE = 0.8, 0.2


def waves(chance):
    for _ in range(WAVES):
        number = 2 * math.pi / chance.uniform(SHORTEST, LONGEST)
        azimuth = chance.uniform(0, 2 * math.pi)
        yield number * math.sin(azimuth), number * math.cos(azimuth), chance.uniform(0, 2 * math.pi)


def rows(count, chance):
    side = math.sqrt(count / DENSITY)
    height, noise = math.sqrt(2 * OF_WAVES / WAVES), math.sqrt(OF_NOISE)
    field = list(waves(chance))
    for _ in range(count):
        x, y = side * chance.random(), side * chance.random()
        wave = sum(math.cos(kx * x + ky * y + phase) for kx, ky, phase in field)
        yield f"{x:.1f},{y:.1f},{height * wave + chance.gauss(0, noise):.4f}\n"


def main():
    if len(sys.argv) != 3 or not sys.argv[1].isdigit():
        sys.exit("usage: make_points.py COUNT FILE")
    with open(sys.argv[2], "w", encoding="ascii", newline="") as out:
        out.write("x,y,value\n")
        out.writelines(rows(int(sys.argv[1]), random.Random(1)))


main()
