"""Compares the reference values with those of scipy and numpy."""
import numpy
from scipy import interpolate

worst = {}
kept = {}


def boundary(flag, value):
    return {1: (1, value), 2: (2, value)}.get(flag)


def well_conditioned(x, terms):
    """Whether a fit by powers of x, scaled to -1..1, is well conditioned enough for doubles."""
    scaled = numpy.interp(x, (min(x), max(x)), (-1.0, 1.0)) if len(set(x)) > 1 else x
    return numpy.linalg.cond(numpy.polynomial.polynomial.polyvander(scaled, terms - 1)) < 1e8


def peer(points, case):
    """The name of a library's form of the method and its function of t; None where no library has it."""
    approx, val, val2, beta1, beta2 = case
    x = numpy.array([p[0] for p in points])
    y = numpy.array([p[1] for p in points])
    ascending = numpy.all(numpy.diff(x) > 0)
    if approx == 10 and val and val2:
        ends = boundary(val, beta1), boundary(val2, beta2)
        return 'CubicSpline', interpolate.CubicSpline(x, y, bc_type=ends)
    if approx == 11:
        return 'PchipInterpolator', interpolate.PchipInterpolator(x, y, extrapolate=True)
    if approx in (1, 12):
        return 'BarycentricInterpolator', interpolate.BarycentricInterpolator(x, y)
    if approx == 8 and ascending:
        return 'PPoly linear', interpolate.PPoly(
            numpy.array([numpy.diff(y) / numpy.diff(x), y[:-1]]), x)
    if approx == 0 and well_conditioned(x, val):
        return 'Polynomial.fit', numpy.polynomial.Polynomial.fit(x, y, val - 1)
    return None


def check(points, case, t, value, size):
    key = id(points), case
    if key not in kept:
        kept[key] = peer(points, case)
    if kept[key] is None:
        return
    name, function = kept[key]
    xs = [x for x, _ in points]
    # The barycentric formula, a quotient of two sums, is only accurate between the outermost points.
    if name == 'BarycentricInterpolator' and not min(xs) <= t <= max(xs):
        return
    error = abs(float(function(t)) - value) / max(abs(value), size, 1e-300)
    if not error < 1e-9:
        raise SystemExit(f'{name} disagrees at {t!r} of {case}: {float(function(t))!r}, {value!r}')
    worst[name] = max(worst.get(name, 0.0), error)


def report():
    for name, error in sorted(worst.items()):
        print(f'{name}: agrees to {error:.2g} of the size')
