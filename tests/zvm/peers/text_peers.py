"""Readers of the texts that are no Python: each gives a function of a separation (east, north, up)."""

import csv
import io
import json
import re
from math import exp, sqrt
from xml.etree import ElementTree

from geometry import exponential, gaussian, gslib_matrix, length, spherical, times


def summed(nugget, structures):
    """structures: sill, matrix, form of the length of what the matrix makes of a separation."""

    def gamma(vector):
        return nugget + sum(c * form(length(times(m, vector))) for c, m, form in structures)

    return gamma


def scaled(matrix, factor):
    return [[factor * m for m in row] for row in matrix]


def gslib(text, gaussian=3):
    """kt3d: list-directed reads take so many numbers of a line; cova3 evaluates them."""
    lines = text.splitlines()

    def numbers(line, count):
        return [float(word) for word in lines[line].split()[:count]]

    nst, nugget = numbers(0, 2)
    assert len(lines) == 1 + 2 * nst
    structures = []
    for i in range(int(nst)):
        it, cc, ang1, ang2, ang3 = numbers(1 + 2 * i, 5)
        aa, aa1, aa2 = numbers(2 + 2 * i, 3)
        matrix = gslib_matrix(ang1, ang2, ang3, aa1 / aa, aa2 / aa)
        form = {
            1: lambda h, aa=aa: spherical(h / aa),
            2: lambda h, aa=aa: 1 - exp(-3 * h / aa),
            3: lambda h, aa=aa: 1 - exp(-gaussian * (h / aa) ** 2),
            4: lambda h, aa=aa: h**aa,
        }[int(it)]
        structures.append((cc, matrix, form))
    return summed(nugget, structures)


def sgems(text):
    """Reduced distances of covariance.cc; its angles are those of GSLIB."""
    root = ElementTree.fromstring(text)
    assert root.tag == "Variogram"
    structures = []
    for i in range(int(root.get("structures_count"))):
        node = root.find(f"structure_{i + 1}")
        ranges, angles = node.find("ranges"), node.find("angles")
        largest, medium, least = (float(ranges.get(k)) for k in ("max", "medium", "min"))
        assert largest >= medium >= least > 0
        x, y, z = (float(angles.get(k)) for k in "xyz")
        matrix = gslib_matrix(x, y, z, medium / largest, least / largest)
        form = {
            "Spherical": spherical,
            "Exponential": lambda t: 1 - exp(-3 * t),
            "Gaussian": lambda t: 1 - exp(-3 * t * t),
        }[node.get("type")]
        structures.append((float(node.get("contribution")), scaled(matrix, 1 / largest), form))
    return summed(float(root.get("nugget")), structures)


class Vgm:
    """The models that vgm() of gstat gives."""

    def __init__(self, psill, model, range, nugget=0, anis=(0, 1), add_to=None):
        self.nugget = nugget + (psill if model == "Nug" else 0)
        self.structures = []
        if add_to is not None:
            self.nugget += add_to.nugget
            self.structures += add_to.structures
        if model != "Nug":
            self.structures.append((psill, self.matrix(anis), self.form(model, range)))

    @staticmethod
    def matrix(anis):
        if len(anis) == 2:
            anis = (anis[0], 0, 0, anis[1], 1)
        assert all(0 <= angle < 360 for angle in anis[:3]) and all(0 < r <= 1 for r in anis[3:])
        return gslib_matrix(*anis)

    @staticmethod
    def form(model, a):
        return {
            "Sph": lambda h: spherical(h / a),
            "Exp": lambda h: exponential(h / a),
            "Gau": lambda h: gaussian(h / a),
            "Pow": lambda h: h**a,
        }[model]


def gstat(text):
    """The calls of vgm() are Python but for the assignment and a point in a name."""
    names = {"vgm": Vgm, "c": lambda *values: values, "sqrt": sqrt, "library": lambda name: None}
    names["gstat"] = "gstat"
    exec(re.sub(r"<-", "=", text.replace("add.to", "add_to")), names)
    return summed(names["m"].nugget, names["m"].structures)


FORMS = {
    "S": lambda h, a: spherical(h / a),
    "E": lambda h, a: 1 - exp(-3 * h / a),
    "G": lambda h, a: 1 - exp(-3 * (h / a) ** 2),
    "P": lambda h, a: h**a,
}


def kriging_file(text):
    """Along Main."""
    assert text.endswith("\r\n")
    lines = text.split("\r\n")
    assert lines[0] == "ZGRD"
    count, nugget = int(lines[5]), float(lines[6])
    structures = []
    for line in lines[8 : 8 + count - 1]:
        code, sill, a, _, _ = line.split()
        letter = "SEGP"[int(code) - 1]
        structures.append((1 if letter == "P" else float(sill), FORMS[letter], float(a)))
    return lambda v: nugget + sum(c * form(length(v), a) for c, form, a in structures)


def model_json(text):
    """The distance of a structure by the convention that the text states."""
    whole = json.loads(text)
    axes = [whole["axes"][key]["vector"] for key in ("main", "minor1", "minor2")]
    (model,) = whole["models"]
    assert model["variable"] == 'ln zinc \u00e9, "top" -- soil'

    def reduced(vector, range):
        parts = times(axes, vector)
        return length([p / range[key] for p, key in zip(parts, ("main", "minor1", "minor2"))])

    def value(one, vector):
        if one["letter"] == "P":
            return length(vector) ** one["exponent"]
        return one["sill"] * FORMS[one["letter"]](reduced(vector, one["range"]), 1)

    return lambda v: model["nugget"] + sum(value(one, v) for one in model["structures"])


def csv_rows(text, model_text):
    """Of each row the model's value and what the model as JSON has at that distance."""
    axes = [json.loads(model_text)["axes"][key] for key in ("main", "minor1", "minor2")]
    vectors = {axis["direction"]: axis["vector"] for axis in reversed(axes)}
    gamma = model_json(model_text)
    rows = list(csv.DictReader(io.StringIO(text)))
    assert {row["variable"] for row in rows} == {'ln zinc \u00e9, "top" -- soil'}
    assert {row["direction"] for row in rows} == set(vectors)
    for row in rows:
        assert row["direction"] == "%.9f;%.9f" % (float(row["azimuth"]), float(row["dip"]))
        h = float(row["distance"])
        yield float(row["model"]), gamma([h * v for v in vectors[row["direction"]]])
