"""J and Y of large orders by numerical integration, independently of the program's expansions.

The integrand is exp(x sinh t - order t) (DLMF 10.9.17, 10.9.18). J is 1/(2 pi i) times its integral
from infinity - pi i to infinity + pi i; J + i Y is 1/(pi i) times its integral from -infinity to
infinity + pi i. The paths of integration go through the saddle points, where the trapezoidal rule
converges geometrically. A path may stop before its end: the part left out is below exp(-2 s) or
exp(-2 xi) of the value, where s = sqrt|order^2 - x^2| and xi is the exponent or the phase at the
saddle point."""
import functools
import math

import mpmath
from mpmath import mp

from .frame import around, generator

# From this phase or exponent on the two saddle points are so far apart that each has its own path.
APART = 110


def spread(f, step):
    """The trapezoidal rule: step times the sum of f at all multiples of step. The sum ends on either side
    when the terms are negligible."""
    total = f(mpmath.mpf(0))
    for sign in (1, -1):
        t = mpmath.mpf(0)
        largest = abs(total)
        while True:
            t += sign * step
            term = f(t)
            total += term
            largest = max(largest, abs(term))
            if abs(term) < mp.eps * largest / 1000:
                break
    return total * step


def gaussian_step(s):
    """The step at which the trapezoidal rule for exp(-s t^2 / 2) has an error below mp.eps."""
    return mpmath.sqrt(2 * mpmath.pi ** 2 / (mp.prec * mpmath.log(2) * s)) * 0.7


def below(order, x):
    """J and Y for x below the order. The path for J goes through the saddle point alpha, parallel to the
    imaginary axis; the one for Y goes through -alpha along the real axis."""
    s = mpmath.sqrt((order - x) * (order + x))
    alpha = mpmath.log((order + s) / x)
    step = gaussian_step(s)

    def upright(u):
        return mpmath.exp(s * (mpmath.cos(u) - 1)) * mpmath.cos(order * (mpmath.sin(u) - u))

    def level(r):
        if r > 2 * alpha:
            return mpmath.mpf(0)
        return mpmath.exp(order * (mpmath.sinh(r) - r) - s * (mpmath.cosh(r) - 1))

    exponent = order * alpha - s
    j = mpmath.exp(-exponent) * spread(upright, step) / (2 * mpmath.pi)
    y = -mpmath.exp(exponent) * spread(level, step) / mpmath.pi
    return j, y


def above(order, x):
    """J and Y for x above the order, from J + i Y. The path goes through the saddle point i beta at 45
    degrees."""
    s = mpmath.sqrt((x - order) * (x + order))
    beta = mpmath.atan2(s, order)
    turn = mpmath.exp(mpmath.mpc(0, mpmath.pi / 4))

    def along(r):
        t = turn * r
        return mpmath.exp(order * (mpmath.sinh(t) - t) + mpmath.mpc(0, s) * (mpmath.cosh(t) - 1))

    # The whole line through the saddle point leads from one valley of the integrand to the other.
    phase = mpmath.exp(mpmath.mpc(0, s - order * beta))
    hankel = phase * turn * spread(along, gaussian_step(s)) / mpmath.mpc(0, mpmath.pi)
    return mpmath.re(hankel), mpmath.im(hankel)


def turning(order, x, phase):
    """J and Y for x near the order, where the phase or exponent is about `phase`. The paths are hyperbolas of
    the size of the turning region. Their asymptotes have the directions -60 and 60 degrees for J, 180 and 60
    degrees for J + i Y."""
    size = mpmath.cbrt(2 / order)
    step = 3 / (mp.dps + 2 * phase)

    def path(factor):
        def along(u):
            t = size * factor * (mpmath.cosh(u) + mpmath.mpc(0, mpmath.sqrt(3)) * mpmath.sinh(u)) / 2
            slope = size * factor * (mpmath.sinh(u) + mpmath.mpc(0, mpmath.sqrt(3)) * mpmath.cosh(u)) / 2
            return mpmath.exp(x * mpmath.sinh(t) - order * t) * slope
        return spread(along, step)

    j = mpmath.re(path(1) / mpmath.mpc(0, 2 * mpmath.pi))
    hankel = -path(mpmath.exp(mpmath.mpc(0, 2 * mpmath.pi / 3))) / mpmath.mpc(0, mpmath.pi)
    return j, mpmath.im(hankel)


@functools.cache
def pair_to(order, x, digits):
    digits += 15 + max(0, int(mpmath.log10(order)), int(mpmath.log10(x)))
    with mp.workdps(digits):
        s = mpmath.sqrt(abs((order - x) * (order + x)))
        near = s ** 3 / (3 * order ** 2)
        if near > APART:
            return (below if x < order else above)(order, x)
        with mp.extradps(10 + int(near / 2)):
            return turning(order, x, near)


def pair(order, x):
    """J and Y for an order of at least 1000 and x > 0."""
    return pair_to(mpmath.mpf(order), mpmath.mpf(x), mp.dps)


def reflected(order, x):
    """J and Y for orders of either sign; negative ones by reflection (DLMF 10.2.3, 10.4.7)."""
    j, y = pair(abs(order), x)
    if order > 0:
        return j, y
    turns = -order % 2
    cosine, sine = mpmath.cospi(turns), mpmath.sinpi(turns)
    return cosine * j - sine * y, sine * j + cosine * y


def large_j(order, x):
    value = reflected(order, abs(x))[0]
    return -value if x < 0 and order % 2 == 1 else value


def large_y(order, x):
    return reflected(order, x)[1]


def slope_of_large(f):
    """A function that computes x f'/f from the values of the two neighbouring orders, with enough digits
    to tell those orders apart."""

    def condition(order, x):
        with mp.workdps(15 + 2 * int(mpmath.log10(abs(order)))):
            value = f(order, x)
            if value == 0:
                return mpmath.mpf(0)
            return x * (f(order - 1, x) - f(order + 1, x)) / (2 * value)

    return condition


# Whole, half-integral and other orders up to the largest odd double; and (HUGE) larger ones, which have no
# fraction.
ORDERS = [1000, 1778.25, 5623.5, 10000 + 1 / 3, 31622, 57392, 99999.5, 100000, math.nextafter(100000, math.inf), 100000.5, 100001, 123456.25, 1e6, 1e6 + 0.5,
          33333333 + 1 / 3, 1e9, 1e9 + 1, 1e12, 1e12 + 1, 1e12 - 0.125, 2.0 ** 53 - 1]
HUGE = [1e16, 1e100, 1e300]


def seam(order, sign):
    """The x at which the program changes from one expansion to the other: below the order for a positive
    sign, above it for a negative one. There the bound for the exponent or phase, t^3/(3 - 1.8 t^2) times
    the order with t = sqrt(1 - (x/order)^2), is 28."""
    low, high = (0, 1) if sign > 0 else (-(30 + 100 / order) ** 2, 0)
    for _ in range(200):
        w = (low + high) / 2
        beyond = order * abs(w) ** 1.5 > 28 * (3 - 1.8 * w)
        low, high = (low, w) if beyond == (sign > 0) else (w, high)
    return order * math.sqrt(1 - low)


def table_end(order, y):
    """The x at which order^(2/3) zeta is about y."""
    w = y / (order / 2) ** (2 / 3)
    return order * math.sqrt(1 - w * (1 - 0.4 * w))


def extremum(order, x):
    """A point of the phase 0 or pi near x, where J is about extremal, and one a quarter turn further,
    near a zero of J."""
    with mp.workdps(40):
        s = mpmath.sqrt((mpmath.mpf(x) - order) * (mpmath.mpf(x) + order))
        for _ in range(5):
            j, y = pair(order, x)
            angle = mpmath.atan2(y, j)
            x -= (angle - mpmath.pi * mpmath.nint(angle / mpmath.pi)) * x / s
        return [(order, float(x)), (order, float(x + mpmath.pi / 2 * x / s))]


def places(rng, order):
    """Arguments in the range of every method and next to every border, for an order up to 2^53."""
    width = order ** (1 / 3)
    found = [order, math.nextafter(order, 0), math.nextafter(order, math.inf)]
    found += [order + sign * factor * width for sign in (-1, 1) for factor in (0.3, 1, 5, 25)]
    found += [order - 60 * width, order - 70 * width, order * 0.9, order * 0.5, order * 1e-3, 1e-300]
    for sign in (-1, 1):
        edge = seam(order, sign)
        found += [edge * (1 + step) for step in (-1e-5, 1e-5)]
        found.append(table_end(order, 12.5 * sign))
    found += [order * rng.uniform(1.01, 1.9), 2 * order, math.nextafter(2 * order, 0),
              order * rng.uniform(2.1, 9), order * 1e4, order * order * 1.1, 1e300]
    return found


def large_points():
    rng = generator('large orders')
    found = []
    for order in ORDERS:
        for x in rng.sample(places(rng, order), 16):
            sign = -1 if order % 1 != 0 and rng.random() < 0.3 else 1
            found.append((sign * order, x))
    for order in HUGE:
        found += [(order, order * f) for f in (1e-10, 0.999, 1, 1 + 2e-16, 1.5, 3)]
    found += [(-n, x) for n in (100001.0, 1e9 + 1) for x in (n - 30 * n ** (1 / 3), n, 1.5 * n, 1e15)]
    found += [(n, x) for n in (100001.0, 234567.75) for f in (seam(n, 1), seam(n, -1), 2 * n)
              for x in around(f)[:7]]
    found += [(100001.0, table_end(100001.0, y)) for y in (-12.52, -12.48, -0.5, 0.5, 12.48, 12.52)]
    # Arguments at which J is denormal or underflows and Y overflows or is just finite; also for a negative order.
    found += [(n, n + width * (n / 2) ** (1 / 3)) for n in (100001.0, 1e9 + 0.5, 1e12)
              for width in (-107, -105.5, -104.6, -104, -103)]
    found += [(-100000.25, 100000.25 + width * 5e4 ** (1 / 3)) for width in (-103.5, -104.5)]
    for order, factor in ((1000.0, 1.02), (3162.25, 2), (10000.0, 1.01), (42958.25, 15), (99999.5, 1.2),
                          (100000.5, 1.001), (100003.0, 1.3), (200000.25, 2.5), (1e6 + 1, 1.05)):
        found += extremum(order, order * factor)
    return found
