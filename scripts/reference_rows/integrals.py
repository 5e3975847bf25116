"""Sine, cosine, hyperbolic, exponential, logarithmic, Dawson's and Fresnel's integrals."""
import mpmath

from .frame import around, generator, linear, logarithmic, positive_edges, rows


def both_signs(points):
    return points + [-p for p in points]


def rows_Si():
    rng = generator('Si')
    points = positive_edges() + linear(rng, 0, 20, 60) + linear(rng, 3.5, 4.5, 20)
    points += logarithmic(rng, 1e-8, 1e3, 60) + logarithmic(rng, 1e3, 1e300, 30) + around(4, 48)
    return rows(mpmath.si, both_signs(points))
