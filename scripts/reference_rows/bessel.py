"""Bessel functions: J and Y (also of negative orders), I and K."""
import math

import mpmath
from mpmath import mp

from .bessel_large import large_j, large_points, large_y, seam, slope_of_large
from .frame import around, generator, linear, logarithmic, row

NEAR_WHOLE = (1e-3, 1e-5, 1e-7, 1e-10, 1e-13)


def order_of(order):
    """The order, or 0 if it is so small that the value has the same digits as that of order 0."""
    return mpmath.mpf(0) if abs(order) < 1e-60 else order


def bessel_j(order, x):
    return mpmath.besselj(order_of(order), x)


def bessel_y(order, x):
    return mpmath.bessely(order_of(order), x)


def bessel_i(order, x):
    """I by its power series. All terms are positive, so nothing cancels."""
    order = order_of(order)
    quarter = x * x / 4
    total = term = mpmath.mpf(1)
    k = 0
    while term > total * mp.eps:
        k += 1
        term *= quarter / (k * (order + k))
        total += term
    return total * (x / 2) ** order * mpmath.rgamma(order + 1)


def bessel_k(order, x):
    """K as the integral of exp(-x cosh t) cosh(order t) over t from 0 to infinity. For this integrand
    the error of the trapezoidal rule falls faster than any power of the step."""
    peak = mpmath.asinh(order / x)
    width = 1 / mpmath.sqrt(mpmath.hypot(order, x))
    step = min(mpmath.mpf(3) / mp.dps, width * 3 / mpmath.sqrt(2 * mp.dps))
    with mp.extradps(10):
        turn, grow = mpmath.exp(step), mpmath.exp(order * step)
        total = mpmath.exp(-x) / 2
        t, e, power = mpmath.mpf(0), mpmath.mpf(1), mpmath.mpf(1)
        while True:
            t += step
            e *= turn
            power *= grow
            term = mpmath.exp(-x * (e + 1 / e) / 2) * (power + 1 / power) / 2
            total += term
            if t > peak and term < total * mp.eps:
                return total * step


def slope(f):
    """A function that computes x f'/f from the values of the two neighbouring orders."""

    def condition(order, x):
        value = f(order, x)
        if value == 0:
            return mpmath.mpf(0)
        return x * (f(order - 1, x) - f(order + 1, x)) / (2 * value)

    return condition


def i_slope(order, x):
    with mp.workdps(20):
        return order + x * bessel_i(order + 1, x) / bessel_i(order, x)


def k_slope(order, x):
    with mp.workdps(20):
        return x * (bessel_k(abs(order - 1), x) + bessel_k(order + 1, x)) / (2 * bessel_k(order, x))


def orders(rng, count):
    """Whole, half-integral, generic, tiny, nearly whole and large orders."""
    found = [0, 1, 2, 5, 0.5, 1.5, 20.5, 1e-10, 1e-300, 1e-17, 0.25, 1 / 3, 50, 100.5, 1000, 999.5]
    for _ in range(count):
        found += [rng.randrange(60), rng.randrange(60) + 0.5, rng.uniform(0, 3),
                  rng.uniform(3, 60), rng.randrange(1, 40) + rng.choice((-1, 1)) * rng.choice(NEAR_WHOLE),
                  rng.uniform(0.4999, 0.5001), rng.uniform(60, 1000)]
    return found


def arguments(rng, order, far):
    """Arguments of every kind: small, moderate, near the order, near the end of the range of the power
    series, and large."""
    order = abs(order)
    end = 2 * math.sqrt(order + 1)
    return [rng.choice(logarithmic(rng, 1e-300, 1e-3, 1)), rng.choice(logarithmic(rng, 1e-3, 30, 1)),
            rng.uniform(0, 60), max(order, 0.1) * rng.uniform(0.9, 1.1),
            end * (1 + rng.choice((-1, 1)) * rng.choice((0, 1e-15, 1e-6, 0.05))),
            logarithmic(rng, 30, far, 1)[0]]


def points(rng, count, far, negative):
    found = []
    for order in orders(rng, count):
        chosen = rng.sample(arguments(rng, order, far), 4)
        for x in chosen:
            found.append((-order if negative and rng.random() < 0.25 else order, x))
    return found


def seams(places):
    """Arguments on both sides of each border between two methods, for several orders."""
    return [(order, x) for place in places for order in (0, 1, 2.25, 7.5, 3 - 1e-10)
            for x in around(place)[:5]]


# Negative orders at the same borders.
REFLECTED = [(-n, x) for n in (0.3, 12.25, 30.5, 49 - 1e-10) for place in (1.5, 22)
             for x in around(place)[:5]]


def near_zeros(rng, zeros, count):
    """Zeros for whole, half-integral and other orders, points close to them, and extrema."""
    found = []
    for _ in range(count):
        order = rng.choice((0, 1, 2, 5, 20, 0.5, 3.5, 2.7))
        index = rng.randrange(1, 12)
        with mp.workdps(20):
            zero = float(zeros(order, index))
            extremum = float(zeros(order, index, 1))
        found += [(order, zero), (order, zero * (1 + rng.choice((-1, 1)) * 1e-6)), (order, extremum)]
    return found


TURNING = [(n, n * f) for n in (8, 31, 100, 256.5, 1000)
           for f in (0.9, 0.99, 1 - 1e-6, 1, 1 + 1e-6, 1.01, 1.1)]


def expansion_points(far):
    """Arguments near the borders of the ranges of the expansions for large orders, and inside them."""
    found = []
    for order in (math.nextafter(24, 0), 24, 31.25, 50, 99.5):
        x = seam(order, -1)
        found += [(order, x * (1 + step)) for step in (-1e-6, 1e-6, 0.3)] + [(order, far(order))]
    for order in (math.nextafter(100, 0), 100, 137.5, 316.25, 999):
        found += [(order, seam(order, sign) * (1 + step)) for sign in (-1, 1) for step in (-1e-6, 1e-6)]
        found += [(order, order * f) for f in (0.7, 0.97, 1.04, 1.3, 2, 30)] + [(order, far(order))]
    return found


# The points with the largest errors found so far.
WORST = [(0, 0.00054968347949789151), (0, 0.0078887364422563708), (0, 2.194106837201292),
         (0.49997915798764969, 2.9718825457632536), (106.129771055501, 295.90298500463297),
         (158, 172.29135548591873), (399, 423.24307856632356), (633, 310504.16248163575),
         (42.75, 105.3), (0.5, 5.0290010391969654e+210)]

# An angle is reduced in one of three ways, by its magnitude: arguments on both sides of the two borders,
# an argument next to a multiple of a quarter turn, and the largest double.
ANGLES = [(order, x) for order in (0, 0.5, 2.3) for place in (2.0 ** 19, 2.0 ** 30)
          for x in around(place)[:3]]
ANGLES += [(order, 6381956970095103 * 2.0 ** 797) for order in (0, 0.5, -0.5)]
ANGLES += [(order, 1.7976931348623157e308) for order in (0, 0.3, 30)]
# Orders on both sides of the one from which on the leading factor is computed by Stirling's series.
STIRLING = [(order, x) for order in (math.nextafter(16, 0), 16, 16.4, 23.7) for x in (1e-15, 0.3, 5, 8.2)]
# Arguments at which the number of steps in the Neumann series of Y changes.
NEUMANN = [(order, x) for order in (0, 0.25, 3.5) for place in (2.0 ** -60, 1e-3, 0.1)
           for x in around(place)[:3]]
# Orders next to k + 1/2 with tiny x: the recurrence for Y starts there with its smallest and its largest
# values, and in the formula for negative orders Y is multiplied by a cosine of about 1e-16.
HALVES = [(sign * order, x)
          for order in (0.5, math.nextafter(0.5, 1), 0.50000001, 0.51, 0.52, math.nextafter(1.5, 1),
                        math.nextafter(1.5, 2), math.nextafter(2.5, 3))
          for x in (5e-324, 1e-323, 3e-310, 1e-300, 1e-285, 2.0 ** -500, math.nextafter(2.0 ** -500, 0))
          for sign in (1, -1)]


def rows_J():
    rng = generator('J')
    chosen = points(rng, 12, 1500, True) + seams((1.5, 22)) + REFLECTED + TURNING
    chosen += near_zeros(rng, mpmath.besseljzero, 12)
    chosen += [(n, x) for n in (0, 3, 2.3, 1000, -0.7) for x in logarithmic(rng, 1500, 1e300, 6)]
    chosen += [(n, -x) for n in (0, 1, 2, 7, -3) for x in (1e-10, 0.7, 8.5, 30, 1e5)]
    chosen += [(n, 0) for n in (0, 1, 0.5, 2.25, -3)]
    chosen += [(5, 200), (2, 1e-10), (5, 5e-324), (-0.5, 5e-324), (-1.5, 1e-300), (-2.5, 1e-200),
               (1, 5e-324), (0.25, 5e-324), (150.5, 0.5), (1000, 500), (1000, 330)]
    # Orders above the argument, on both sides of the argument at which Steed's method for J ends.
    chosen += [(n, x) for n in (64.5, 70, 150.25) for x in around(64)[:5]]
    chosen += HALVES + ANGLES + STIRLING + WORST + expansion_points(lambda order: order * order * 3)
    condition = slope(bessel_j)
    found = [row(bessel_j, n, x, condition=condition if x != 0 else 0) for n, x in chosen]
    huge = large_points() + [(n, -x) for n, x in large_points() if n % 1 == 0][::5]
    return found + [row(large_j, n, x, condition=slope_of_large(large_j)) for n, x in huge]


def rows_Y():
    rng = generator('Y')
    chosen = points(rng, 12, 1500, True) + seams((1.5, 22)) + REFLECTED + TURNING
    chosen += near_zeros(rng, mpmath.besselyzero, 12)
    chosen += [(n, x) for n in (0, 3, 2.3, 1000, -0.7) for x in logarithmic(rng, 1500, 1e300, 6)]
    chosen += [(n, x) for n in (0, 1, 5) for x in linear(rng, 7.5, 8.5, 5)]
    chosen += [(1, 5e-324), (0, 5e-324), (0.5, 5e-324), (-0.5, 5e-324), (150.5, 0.5), (1000, 500)]
    chosen += HALVES + ANGLES + NEUMANN + WORST + expansion_points(lambda order: order * order * 3)
    condition = slope(bessel_y)
    found = [row(bessel_y, n, x, condition=condition) for n, x in chosen]
    return found + [row(large_y, n, x, condition=slope_of_large(large_y))
                    for n, x in large_points()]


# Orders up to which K and I are computed by recurrence, and larger ones, which use uniform expansions.
UNIFORM = [(order, x) for order in (50, math.nextafter(50, 51), 52.5, 100, 300.25)
           for x in (order / 3, order * 0.66, order, order * 2, 690)]
UNIFORM += [(order, order * f) for order in (1066, 3000.5, 57392, 1e5) for f in (0.64, 0.655, 0.664)]


def rows_I():
    rng = generator('I')
    chosen = points(rng, 12, 700, False) + seams((20, 25)) + TURNING
    chosen += [(n, x) for n in (0, 1, 10, 20.5, 50) for x in around(max(25, n * n / 4))[:9]]
    chosen += [(n, x) for n in (0, 2.3, 100, 1000) for x in (700, 712, 713.5, 714, 720, 1200)]
    chosen += [(100.5, 720), (1, 5e-324), (0.25, 5e-324), (0, 1e-300), (1, 1e-310), (1000, 300)]
    chosen += STIRLING + UNIFORM + [(0, 1.5295116850931289e-10), (0, 0.0067010912758608951)]
    return [row(bessel_i, n, x, condition=i_slope) for n, x in chosen]


def rows_K():
    rng = generator('K')
    chosen = points(rng, 10, 700, False) + seams((2,)) + TURNING
    chosen += [(n, x) for n in (0, 2.3, 100, 1000) for x in (650, 700, 705, 740, 745, 750, 1200)]
    chosen += [(n, x) for n in (0, 1, 31, 32) for x in linear(rng, 8, 10, 3)]
    chosen += [(0, 5e-324), (0.5, 5e-324), (0.9, 5e-324), (1, 1e-300), (1, 5e-324), (2, 1e-200)]
    chosen += UNIFORM + [(0, 2.8306191019475784e-06), (0, 0.0014925942633352307)]
    return [row(bessel_k, n, x, condition=k_slope, digits=40) for n, x in chosen]
