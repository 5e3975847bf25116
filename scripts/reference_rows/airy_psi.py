"""Airy's functions and the digamma function."""
import math

import mpmath
from mpmath import mp

from .frame import around, generator, linear, logarithmic, positive_edges, rows


def negative_airy(x, second):
    """Ai or Bi for x below -1e4, by the expansions for large arguments (DLMF 9.7.9, 9.7.11)."""
    with mp.extradps(40 + int(2 * mpmath.log10(-x))):
        zeta = 2 * mpmath.power(-x, mpmath.mpf(3) / 2) / 3
        sine, cosine = mpmath.sin(zeta - mp.pi / 4), mpmath.cos(zeta - mp.pi / 4)
        parts, term = [mpmath.mpf(0), mpmath.mpf(0)], mpmath.mpf(1)
        for k in range(20):
            parts[k % 2] += term if k % 4 < 2 else -term
            term *= mpmath.mpf((6 * k + 1) * (6 * k + 3) * (6 * k + 5)) / (216 * (k + 1) * (2 * k + 1) * zeta)
        even, odd = parts
        amplitude = mpmath.sqrt(mp.pi) * mpmath.power(-x, mpmath.mpf(1) / 4)
        both = (-sine * even + cosine * odd) if second else (cosine * even + sine * odd)
        return both / amplitude


def airy(x, second):
    if x < -1e4:
        return negative_airy(x, second)
    return mpmath.airybi(x) if second else mpmath.airyai(x)


def airy_condition(x, second):
    """The condition number |x f'/f|. Below -1e10 it is so large that a test would accept every value;
    0 stands in its place, so that the value must be that of exactly this double."""
    if x == 0 or x < -1e10:
        return mpmath.mpf(0)
    f = lambda x: airy(x, second)
    zeta = mpmath.power(abs(x), mpmath.mpf(3) / 2)
    with mp.extradps(60):
        step = abs(x) / (1 + zeta) * mpmath.mpf(10) ** -20
        return x * (f(x + step) - f(x - step)) / (2 * step) / f(x)


# The points with the largest errors that a search has found.
WORST = {
    'Ai': [2.1334783726550319, -1.0186674658785466, -3.247927601845972, -4.087949444130971, -3.2482431440704955,
           -0.00566677774017, -1.1254207470938729],
    'Bi': [-2.2944498813433034, 0.50371805290741667, 16.042312074555337, 3.4813671970143591, -2.2851779576864728],
}


def airy_points(name):
    rng = generator(name)
    points = linear(rng, -30, 10, 160) + linear(rng, 10, 110, 60) + [0.0, -1e-300, 1e-300]
    points += [-p for p in logarithmic(rng, 1e-3, 1e3, 60) + logarithmic(rng, 1e3, 1e12, 40)]
    points += [-1e20, -1e100, -1e200, -1e300, 200, 1e5]
    points += around(2.08, 2.09, -2.09, 8.3203353, 25, 25.77, -25.77, -10, 103.7, 104.2)
    # The borders between the methods (zeta is 5, 7 and 20 at 3.83, 4.79 and 9.65), and the arguments whose
    # phase has the most digits.
    points += around(-16, -8, -4, -1.875, -0.5, 0.5, 1.25, 3.8315471, 4.7949, 9.6548938, -1e10)
    points += [math.nextafter(1e3, math.inf), -1.7976931348623157e308, -math.ldexp(1, 1023), -1e308]
    points += [-p for p in logarithmic(rng, 1e9, 1e30, 20) + logarithmic(rng, 1e30, 1.79e308, 50)]
    return points + [-math.ldexp(9, 2 * k) for k in (20, 100, 300, 500)] + WORST[name]


def zeros(f, starts):
    return [float(mpmath.findroot(f, start)) for start in starts]


def rows_Ai():
    points = airy_points('Ai') + around(*zeros(mpmath.airyai, (-2.3, -4.1, -12.8, -60.5)))
    points += around(-1.125, 2.5) + [103.9, 104.5, 105, 106, 107, 107.4, 107.46, 107.47]
    return rows(lambda x: airy(x, False), points, condition=lambda x: airy_condition(x, False))


def rows_Bi():
    points = airy_points('Bi') + around(*zeros(mpmath.airybi, (-1.2, -3.3, -12.4, -60.2)))
    points += around(2.25, 3.375) + [104.4362038448095, 104.4362038448097]
    return rows(lambda x: airy(x, True), [p for p in points if p < 1000], condition=lambda x: airy_condition(x, True))


def rows_Psi():
    rng = generator('Psi')
    points = positive_edges()[1:] + linear(rng, 0, 12, 100) + linear(rng, -12, 0, 100)
    points += logarithmic(rng, 1e-6, 1e3, 50) + logarithmic(rng, 1e3, 1e308, 30)
    points += [-p for p in logarithmic(rng, 1e-12, 1e5, 80) + logarithmic(rng, 1e5, 1e15, 20)]
    points += [p + 0.5 for p in (-1e6, -1e12, -2.0 ** 51)] + [-1e-300]
    points += around(1.4616321449683623, -0.50408300826445541, -1.5734984731623905, -10.702711, 1, 2, 10, 20)
    points += [n * (1 + d) for n in (-1, -3, -50) for d in (1e-14, -1e-14, 1e-8, -1e-8, 1e-3)]
    points += around(-0.5, -0.6922202123161274, -2.5, 0.5, 1.5, 4, 16) + [1e-290, -1e-290, 2e-16, -2e-16]
    return rows(lambda x: mpmath.psi(0, x), [p for p in points if p > 0 or p != math.floor(p)])
