"""Rotations as the systems publish them, and the forms of a structure in reduced distance."""

from math import cos, exp, radians, sin, sqrt


def length(vector):
    return sqrt(sum(v * v for v in vector))


def times(matrix, vector):
    return [sum(m * v for m, v in zip(row, vector)) for row in matrix]


def product(a, b):
    columns = list(zip(*b))
    return [[sum(x * y for x, y in zip(row, column)) for column in columns] for row in a]


def transposed(matrix):
    return [list(row) for row in zip(*matrix)]


def gslib_matrix(ang1, ang2, ang3, anis1, anis2):
    """setrot of GSLIB: rows that make of a separation its anisotropic coordinates."""
    alpha = radians(90 - ang1) if 0 <= ang1 < 270 else radians(450 - ang1)
    beta, theta = radians(-ang2), radians(ang3)
    sina, sinb, sint = sin(alpha), sin(beta), sin(theta)
    cosa, cosb, cost = cos(alpha), cos(beta), cos(theta)
    afac1, afac2 = 1 / anis1, 1 / anis2
    return [
        [cosb * cosa, cosb * sina, -sinb],
        [
            afac1 * (-cost * sina + sint * sinb * cosa),
            afac1 * (cost * cosa + sint * sinb * sina),
            afac1 * (sint * cosb),
        ],
        [
            afac2 * (sint * sina + cost * sinb * cosa),
            afac2 * (-sint * cosa + cost * sinb * sina),
            afac2 * (cost * cosb),
        ],
    ]


def givens(size, first, second, angle):
    """The turn from the first coordinate to the second."""
    matrix = [[float(i == j) for j in range(size)] for i in range(size)]
    matrix[first][first] = matrix[second][second] = cos(angle)
    matrix[first][second] = -sin(angle)
    matrix[second][first] = sin(angle)
    return matrix


def spherical(t):
    return 1.5 * t - 0.5 * t**3 if t < 1 else 1.0


def exponential(t):
    return 1 - exp(-t)


def gaussian(t):
    return 1 - exp(-t * t)
