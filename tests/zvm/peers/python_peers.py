"""Readers of the texts that are Python: they run with stand-ins for the modules that they import,
which evaluate what they are given by the formulas that the real ones publish."""

import sys
import types
from math import cos, exp, radians, sin, sqrt

from geometry import exponential, gaussian, givens, length, product, spherical, times, transposed


def run(text, modules):
    """The names that a text defines where these modules stand for the real ones."""
    kept = {name: sys.modules.get(name) for name in modules}
    sys.modules.update(modules)
    try:
        names = {}
        exec(text, names)
        return names
    finally:
        for name, module in kept.items():
            if module is None:
                del sys.modules[name]
            else:
                sys.modules[name] = module


def module(name, **content):
    made = types.ModuleType(name)
    made.__dict__.update(content)
    return made


def deg2rad(value):
    return [radians(v) for v in value] if isinstance(value, list) else radians(value)


NUMPY = module(
    "numpy",
    deg2rad=deg2rad,
    sqrt=sqrt,
    exp=exp,
    where=lambda condition, yes, no: yes if condition else no,
)


def turned_planes(dim, angles):
    """matrix_rotate of GSTools: turns in the planes xy, xz and yz with alternating signs."""
    planes = [(i, j) for j in range(1, dim) for i in range(j)]
    result = givens(dim, 0, 1, 0)
    for i, (angle, plane) in enumerate(zip(angles, planes)):
        result = product(givens(dim, *plane, (-1) ** i * angle), result)
    return result


class GstoolsModel:
    """A covariance model of GSTools, whose cor() has the reduced distance rescale h / len_scale."""

    def __init__(self, dim, var=0, len_scale=1, rescale=1, nugget=0, angles=0, anis=1):
        self.dim, self.geometry = dim, (angles, anis)
        count = dim * (dim - 1) // 2
        angles = angles if isinstance(angles, list) else [angles] + [0] * (count - 1)
        anis = anis if isinstance(anis, list) else [anis] * (dim - 1)
        matrix = transposed(turned_planes(dim, angles))
        self.matrix = [[v / a for v in row] for row, a in zip(matrix, [1, *anis])]
        self.parts = [(nugget, var, rescale / len_scale, self.form)]

    @staticmethod
    def form(_):
        return 0

    def __add__(self, other):
        assert (self.dim, self.geometry) == (other.dim, other.geometry)
        self.parts = self.parts + other.parts
        return self

    def semivariance(self, vector):
        h = length(times(self.matrix, vector[: self.dim]))
        return sum(nugget + var * form(scale * h) for nugget, var, scale, form in self.parts)


def gstools_class(function):
    return type("Model", (GstoolsModel,), {"form": staticmethod(function)})


GSTOOLS = module(
    "gstools",
    Nugget=GstoolsModel,
    Spherical=gstools_class(spherical),
    Exponential=gstools_class(exponential),
    Gaussian=gstools_class(gaussian),
)


def gstools(text):
    return run(text, {"gstools": GSTOOLS, "numpy": NUMPY})["m"].semivariance


class Kriging2:
    """OrdinaryKriging of PyKrige, whose coordinates core.py turns and stretches."""

    def __init__(self, *data, variogram_model, variogram_function, variogram_parameters,
                 anisotropy_angle=0, anisotropy_scaling=1):
        assert variogram_model == "custom" and data == ("x", "y", "z")
        self.function, self.parameters = variogram_function, variogram_parameters
        turn = givens(2, 0, 1, -radians(anisotropy_angle))
        self.matrix = [turn[0], [anisotropy_scaling * v for v in turn[1]]]

    def semivariance(self, vector):
        separation = vector[: len(self.matrix)]
        return self.function(self.parameters, length(times(self.matrix, separation)))


class Kriging3(Kriging2):
    def __init__(self, *data, variogram_model, variogram_function, variogram_parameters,
                 anisotropy_angle_x=0, anisotropy_angle_y=0, anisotropy_angle_z=0,
                 anisotropy_scaling_y=1, anisotropy_scaling_z=1):
        assert variogram_model == "custom" and data == ("x", "y", "z", "value")
        self.function, self.parameters = variogram_function, variogram_parameters
        x, y, z = (-radians(a) for a in (anisotropy_angle_x, anisotropy_angle_y, anisotropy_angle_z))
        about_x = [[1, 0, 0], [0, cos(x), -sin(x)], [0, sin(x), cos(x)]]
        about_y = [[cos(y), 0, sin(y)], [0, 1, 0], [-sin(y), 0, cos(y)]]
        about_z = [[cos(z), -sin(z), 0], [sin(z), cos(z), 0], [0, 0, 1]]
        turn = product(about_z, product(about_y, about_x))
        stretch = (1, anisotropy_scaling_y, anisotropy_scaling_z)
        self.matrix = [[s * v for v in row] for s, row in zip(stretch, turn)]


def pykrige(text):
    modules = {
        "numpy": NUMPY,
        "pykrige": module("pykrige"),
        "pykrige.ok": module("pykrige.ok", OrdinaryKriging=Kriging2),
        "pykrige.ok3d": module("pykrige.ok3d", OrdinaryKriging3D=Kriging3),
    }
    kriging = run(text, modules)["kriging"]
    data = ("x", "y", "z") if "ok3d" not in text else ("x", "y", "z", "value")
    return kriging(*data).semivariance


class GstlearnModel:
    """A model of gstlearn whose ranges are the parameters of the forms (flagRange=False)."""

    FORMS = {
        "SPHERICAL": lambda param: spherical,
        "EXPONENTIAL": lambda param: exponential,
        "GAUSSIAN": lambda param: gaussian,
        "POWER": lambda param: lambda t: t**param,
    }

    def __init__(self, dim, nugget):
        self.dim, self.nugget, self.parts = dim, nugget, []

    @staticmethod
    def createFromParam(type, sill, space):
        assert type == "NUGGET"
        return GstlearnModel(space, sill)

    def addCovFromParam(self, type, sill, ranges=None, range=1, param=1, angles=None,
                        flagRange=True):
        assert not flagRange and 0 < param < 1.995
        ranges = ranges or [range] * self.dim
        angles = [radians(a) for a in angles or [0] * self.dim]
        assert len(ranges) == self.dim and len(angles) == self.dim
        columns = givens(2, 0, 1, angles[0]) if self.dim == 2 else self.turned(*angles)
        matrix = [[v / a for v in row] for row, a in zip(transposed(columns), ranges)]
        self.parts.append((sill, matrix, self.FORMS[type](param)))

    @staticmethod
    def turned(a, b, c):
        """GeometryHelper: about z, then the turned y, then the turned x."""
        about_z = [[cos(a), -sin(a), 0], [sin(a), cos(a), 0], [0, 0, 1]]
        about_y = [[cos(b), 0, sin(b)], [0, 1, 0], [-sin(b), 0, cos(b)]]
        about_x = [[1, 0, 0], [0, cos(c), -sin(c)], [0, sin(c), cos(c)]]
        return product(about_z, product(about_y, about_x))

    def semivariance(self, vector):
        vector = vector[: self.dim]
        return self.nugget + sum(c * form(length(times(m, vector))) for c, m, form in self.parts)


GSTLEARN = module(
    "gstlearn",
    Model=GstlearnModel,
    ECov=types.SimpleNamespace(
        **{name: name for name in ("NUGGET", "SPHERICAL", "EXPONENTIAL", "GAUSSIAN", "POWER")}
    ),
    SpaceRN=types.SimpleNamespace(create=lambda dim: dim),
)


def gstlearn(text):
    return run(text, {"gstlearn": GSTLEARN, "numpy": NUMPY})["m"].semivariance
