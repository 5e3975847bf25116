"""The beta function."""
import mpmath

from .frame import around, generator, linear, logarithmic, rows


def beta(a, b):
    """Beta from logarithms of gamma functions. The digits that cancel do no harm, because the caller raises
    the precision until two values agree."""
    return mpmath.exp(mpmath.loggamma(a) + mpmath.loggamma(b) - mpmath.loggamma(a + b))


def slope(a, b):
    """The condition number b B'/B for the last argument."""
    return b * (mpmath.digamma(b) - mpmath.digamma(a + b))


def rows_Beta():
    rng = generator('Beta')
    edges = [1e-308, 1e-200, 1e-30, 1e-10, 0.5, 1.0, 2.0, 7.25, 10.0, 50.5, 170.0, 400.0, 1e10, 1e30]
    points = [(a, b) for a in edges for b in edges]
    points += list(zip(linear(rng, 0, 12, 60), linear(rng, 0, 12, 60)))
    points += list(zip(linear(rng, 0, 300, 60), linear(rng, 0, 300, 60)))
    points += list(zip(logarithmic(rng, 1e-6, 500, 60), logarithmic(rng, 1e-6, 1e6, 60)))
    points += list(zip(logarithmic(rng, 1e-22, 1e3, 40), logarithmic(rng, 1e-22, 1e22, 40)))
    points += [(2.0**-64, 5.0), (5e-324, 5e-324), (1e-320, 3.0), (3.0, 1e-320), (1e-308, 1e-308)]
    points += [(3.3, b) for b in around(6.7, 10.0, 13.2)] + [(b, 0.01) for b in around(10.0)]
    points += [(500.0, 520.0), (530.0, 530.0), (535.0, 536.5), (1e3, 1e3)]
    small = [2.0**-80, 2.0**-64, 1e-20, 7.7672172796738521e-09, 3.0930626180844119e-05, 0.0079348314459961669]
    large = [1e3, 280452919283547.06, 1e30, 2.0**100]
    points += [pair for a in small for b in large for pair in ((a, b), (b, a))]
    points += [(a, b) for a in small for b in (0.21, 0.45856975027716285, 1.083818673016457, 16.253414330377996)]
    points += [(1e15, 5.0), (1e15, 15.5), (3e20, 9.5), (1e-24, 1.5e-24), (3e-308, 7e-308)]
    points += [(a, a * (1 + 2.0**-52)) for a in (2.0**-79, 1e-9, 0.3, 3.7, 9.99, 10.0, 77.7, 511.3)]
    points += [(a, 0.7) for a in around(2.0**-80)] + [(0.7, b) for b in around(2.0**-80, 2.0**100)]
    far = [(2.0, 1e150), (1.0, 1e308)] + [(a, 1.6244566765113259e+263) for a in small + [0.00022079069232156843]]
    return rows(beta, points, condition=slope, digits=90) + rows(beta, far, condition=slope, digits=700)
