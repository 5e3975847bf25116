"""The Gauss hypergeometric function."""
import math

import mpmath

from .frame import generator, row


def hyper(a, b, c, x):
    """The power series term by term: the plainest definition, at the caller's precision."""
    term = total = mpmath.mpf(1)
    small = mpmath.mpf(2) ** (-mpmath.mp.prec - 20)
    settled = -min(a, b, c)
    for k in range(400000):
        if (a + k) * (b + k) == 0:
            return total
        ratio = (a + k) * (b + k) / ((c + k) * (k + 1)) * x
        term *= ratio
        total += term
        if k > settled and abs(ratio) < 1 and abs(term) < small * abs(total) * (1 - max(abs(x), abs(ratio))):
            return total
    raise ArithmeticError(f'no convergence at {a} {b} {c} {x}')


def transformed(a, b, c, x):
    """Beyond the reach of the series mpmath's transformations; the agreement of two precisions
    decides as everywhere."""
    terminates = any(p <= 0 and p == mpmath.floor(p) for p in (a, b))
    if terminates or abs(x) <= 0.8:
        return hyper(a, b, c, x)
    if x < 0:
        return (1 - x) ** -a * hyper(a, c - b, c, x / (x - 1))
    return mpmath.hyp2f1(a, b, c, x)


def slope(a, b, c, x):
    """x F'/F by the derivative's own series."""
    if a == 0 or b == 0:
        return mpmath.mpf(0)
    terminates = c <= 0 and c == mpmath.floor(c)
    if terminates:
        step = abs(x) * mpmath.mpf(10) ** (-mpmath.mp.dps // 3)
        rise = transformed(a, b, c, x + step) - transformed(a, b, c, x - step)
        return x * rise / (2 * step) / transformed(a, b, c, x)
    derivative = a * b / c * transformed(a + 1, b + 1, c + 1, x)
    return x * derivative / transformed(a, b, c, x)


PLACES = [1e-300, -1e-20, 1e-5, -0.03, 0.1, 0.3, 0.5, 0.62, 0.75, 0.8999, 0.9001, 0.97, 0.999, 1 - 1e-6,
          1 - 1e-10, math.nextafter(1, 0), -0.2, -0.31, -0.5, -0.77, -0.95, -0.99999,
          math.nextafter(-1, 0)]


def rows_Hyper():
    rng = generator('Hyper')
    parameters = [(1, 1, 2), (0.5, 1, 1.5), (0.5, 0.5, 1), (1 / 3, 2 / 3, 1), (0.1, 0.2, 0.3), (1, 2, 1.5),
                  (2, 3.5, 1.25), (0.5, 0.5, 2.5), (-0.5, 0.5, 1), (1.25, -2.75, 3.1), (-1.5, -2.5, 0.75),
                  (0.3, 0.7, -1.6), (5, 7, 3), (10.5, 3.25, 12), (-3, 2.5, 1.5), (-8, 9, 1), (-2, 4, -5),
                  (1.1, 2.2, 3.3), (1, 1, 2 + 1e-9), (0.25, 0.5, 0.75 + 1e-5), (3, 0.1, 9.6)]
    points = [(*p, x) for p in parameters for x in PLACES]
    points += [(1234.5, 1e-12, 2.5, -0.1), (2.5, 2.5, 1e-12, 0.999999), (0.5, -3, -3, 0.6),
               (-100, 10, -100, -0.7), (1, -5, 1e-12, 0.9999), (1e-12, -100, -1e-30, 0.999)]
    for _ in range(120):
        size = rng.choice([2, 2, 5, 10])
        points.append((*[rng.uniform(-size, size) for _ in range(3)], rng.uniform(-1, 1)))
    for _ in range(60):
        size = rng.choice([30, 100, 300])
        a, b, c = [rng.uniform(0, size) for _ in range(3)]
        points.append((a, b, c, rng.uniform(-0.9, 0.9)))
    for _ in range(60):
        size = rng.choice([20, 50, 100, 300])
        a, b, c = [rng.uniform(-size, size) for _ in range(3)]
        points.append((a, b, c, rng.uniform(-0.9, 0.9)))
    for n in (5, 20, 50, 100, 200, 500):
        points += [(-n, n + 1, 1, x) for x in (0.01, 0.3, 0.45, 0.77, 0.95, -0.4)]
        points += [(-n, 0.5, 2.25, x) for x in (0.3, 0.95, -0.9)]
    return [row(transformed, *p, condition=slope) for p in points]
