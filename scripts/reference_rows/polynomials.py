"""Chebyshev, Hermite, Laguerre and Legendre polynomials, by recurrence in high precision."""
import math

import mpmath

from .frame import around, generator, linear, logarithmic, rows

DEGREES = [1, 2, 3, 4, 5, 7, 10, 15, 20, 31, 50, 77, 100, 200, 333, 500, 999, 1000]


def recurrence(n, before, now, step):
    if n == 0:
        return before
    for k in range(1, n):
        before, now = now, step(k, before, now)
    return now


def chebyshev(kind, n, x):
    n = int(n)
    if kind == 2 and n < 0:
        return mpmath.mpf(0) if n == -1 else -chebyshev(2, -n - 2, x)
    return recurrence(abs(n), mpmath.mpf(1), x if kind == 1 else 2 * x, lambda k, a, b: 2 * x * b - a)


def hermite(n, x):
    return recurrence(int(n), mpmath.mpf(1), 2 * x, lambda k, a, b: 2 * (x * b - k * a))


def laguerre(n, x):
    return recurrence(int(n), mpmath.mpf(1), 1 - x,
                      lambda k, a, b: ((2 * k + 1 - x) * b - k * a) / (k + 1))


def legendre(n, x):
    return recurrence(int(n), mpmath.mpf(1), x,
                      lambda k, a, b: ((2 * k + 1) * x * b - k * a) / (k + 1))


def interval_points(rng, n):
    """Points of -1..1: both ends, the middle, and the neighbourhood of zeros and extrema."""
    points = [-1.0, 1.0, 0.0, 1e-310, -1e-200, 1e-20, 1e-5 / n, 1 - 1e-15, 1e-12 - 1, 1 - 0.1 / n**2]
    points += [math.cos((k - 0.5) * math.pi / n) for k in {1, n // 3 + 1, n // 2 + 1}]
    points += [math.cos((k - 0.25) * math.pi / (n + 0.5)) for k in {1, n // 3 + 1, n // 2 + 1}]
    return points + linear(rng, -1, 1, 3)


def rows_Cheb():
    rng = generator('Cheb')
    points = []
    for kind in (1, 2):
        for n in [0, -1, -2, -7, -50, -1000, 99999] + DEGREES:
            points += [(kind, n, x) for x in interval_points(rng, abs(n) or 1)]
    return rows(chebyshev, [p for p in points if p[0] == 1 or p[1] != -1])


def rows_Leg():
    rng = generator('Leg')
    points = [(n, x) for n in DEGREES for x in interval_points(rng, n) + linear(rng, -1, 1, 4)]
    return rows(legendre, points + [(20001, x) for x in (1e-9, 0.5, -0.999, 1 - 1e-9)])


def rows_Hi():
    rng = generator('Hi')
    points = [(0, -3.5), (100000, 1e-9)]
    for n in DEGREES:
        turn = math.sqrt(2 * n + 1)
        points += [(n, x) for x in [0.0, 1e-310, -1e-200, 1e-20, 1e-6, turn, -1.1 * turn]]
        points += [(n, x) for x in linear(rng, -turn, turn, 6) + logarithmic(rng, 0.01, 1e4, 3)]
        points += [(n, x) for x in [1e100, -1e200, 1.7e308]]
    return rows(hermite, points + [(268, x) for x in around(0.25)])


def rows_Lag():
    rng = generator('Lag')
    points = [(0, -3.5), (100000, 1e-9)]
    for n in DEGREES:
        points += [(n, x) for x in [0.0, 1e-310, -1e-200, 1e-20, 1e-6, 1.4457964907367 / (n + 0.5)]]
        points += [(n, x) for x in linear(rng, 0, min(4 * n, 1500), 5) + logarithmic(rng, 1e-4, 4 * n, 4)]
        points += [(n, x) for x in [-1.0, -37.5, -500.0, 4.0 * n, 1e5, -1e5, 1e100, -1e200, 1.7e308]]
    return rows(laguerre, points)
