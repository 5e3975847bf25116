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
    """Laguerre polynomials: by the recurrence up to degree 3000; for higher degrees by the power series
    (DLMF 18.5.12) where (4n+2) x is negative or small, else by Tricomi's convergent series of Bessel
    functions (Abramowitz and Stegun 13.3.7), because the power series would lose too many digits."""
    n = int(n)
    if n <= 3000:
        return recurrence(n, mpmath.mpf(1), 1 - x,
                          lambda k, a, b: ((2 * k + 1 - x) * b - k * a) / (k + 1))
    if x < 0 or (4 * n + 2) * x < 10000:
        return laguerre_by_powers(n, x)
    return laguerre_by_bessel_functions(n, x)


def laguerre_by_powers(n, x):
    term = total = mpmath.mpf(1)
    k = 0
    while abs(term) > mpmath.eps * abs(total) / 1000:
        term *= -x * (n - k) / mpmath.mpf(k + 1)**2
        total += term
        k += 1
    return total


def laguerre_by_bessel_functions(n, x):
    v = mpmath.mpf(4 * n + 2)
    z = mpmath.sqrt(v * x)
    root = mpmath.sqrt(x / v)
    bessel = [mpmath.besselj(0, z), mpmath.besselj(1, z)]
    a = [mpmath.mpf(1), mpmath.mpf(0), mpmath.mpf(1) / 2]
    total = bessel[0]
    latest = [1]
    k = 2
    while max(latest[-6:]) > mpmath.eps / 1000 * latest[0]:
        bessel.append(2 * (k - 1) / z * bessel[k - 1] - bessel[k - 2])
        term = a[k] * root**k * bessel[k]
        total += term
        latest.append(abs(term))
        a.append((k * a[k - 1] - v / 2 * a[k - 2]) / (k + 1))
        k += 1
    return mpmath.exp(x / 2) * total


def legendre(n, x):
    return recurrence(int(n), mpmath.mpf(1), x,
                      lambda k, a, b: ((2 * k + 1) * x * b - k * a) / (k + 1))


def more_bits(n, x):
    """The bits that are lost when n times an angle is reduced to one turn, and when x is tiny."""
    return 64 + int(math.log2(n)) - min(0, int(mpmath.log(abs(x), 2)) if x else 0)


def chebyshev_by_angle(kind, n, x):
    """Chebyshev polynomials of both kinds by their closed forms, for |x| below 1."""
    with mpmath.workprec(mpmath.mp.prec + more_bits(n, x)):
        angle = mpmath.acos(x)
        return mpmath.cos(n * angle) if kind == 1 else mpmath.sin((n + 1) * angle) / mpmath.sin(angle)


def legendre_by_series(n, x):
    """Legendre polynomials by the power series about x = 1. Its terms are below exp(2 n sqrt(2 (1-x))), which
    tells how many digits may cancel."""
    if x < 0:
        return (-1) ** int(n % 2) * legendre_by_series(n, -x)
    bits = mpmath.mp.prec + 64
    with mpmath.workprec(bits + int(3 * n * mpmath.sqrt(2 * (1 - x)))):
        t = (1 - x) / 2
        total = term = mpmath.mpf(1)
        k = 0
        while abs(term) > mpmath.ldexp(abs(total), -bits) or k * k < n * n * t:
            term *= (k - n) * (n + k + 1) * t / (k + 1) ** 2
            total += term
            k += 1
        return total


def legendre_by_phase(n, x):
    """Legendre polynomials by Stieltjes' expansion (DLMF 18.15.12). Its error is below twice the first term
    left out."""
    bits = mpmath.mp.prec + 32
    with mpmath.workprec(bits + more_bits(n, x)):
        angle = mpmath.acos(x)
        sine = mpmath.sin(angle)
        total = mpmath.mpf(0)
        weight = mpmath.sqrt(4 / mpmath.pi) * mpmath.gammaprod([n + 1], [n + 1.5]) / mpmath.sqrt(2 * sine)
        first = weight
        m = 0
        while weight > mpmath.ldexp(first, -bits) * max(abs(x), mpmath.mpf(10) ** -40):
            total += weight * mpmath.cos((n + m + 0.5) * angle - (m + 0.5) * mpmath.pi / 2)
            m += 1
            factor = (m - 0.5) ** 2 / (m * (n + m + 0.5) * 2 * sine)
            if factor >= 1:
                raise ArithmeticError(f'the expansion ends too early at {n}, {x}')
            weight *= factor
        return total


def legendre_of_high_degree(n, x):
    near_end = n * mpmath.sqrt(2 * (1 - abs(x))) < 400
    return legendre_by_series(n, x) if near_end else legendre_by_phase(n, x)


HIGH_DEGREES = [16384, 16385, 100000, 100001, 1234567, 10**9, 10**12 + 1, 2**53 - 1, 2**53]


def seams(n):
    """Points on both sides of two borders: where the power series of a Legendre polynomial ends, and where
    the angle is measured from the other end of the interval."""
    seam = 25 / (n + 0.5)
    ends = [1 - seam**2 / 2 * scale for scale in (0.5, 0.99, 1.01, 2)] if n > 50 else []
    return ends + [0.7, 0.7000000000000001, -0.69999, 0.70001]


def high_degree_points(rng, n):
    """Points between -1 and 1, also close to 0, where polynomials of odd degree are small."""
    points = [x for x in seams(n) + interval_points(rng, n) if 0 < abs(x) < 1]
    return points + [0.3 / n, -2.5 / n, 1e-8, 1 - 2.0**-53, 1 - 100 / n**2 if n < 1e8 else 0.99]


def interval_points(rng, n):
    """Points from -1 to 1: both ends, the middle, and the neighbourhood of zeros and extrema."""
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
    high = [(kind, n, x) for kind in (1, 2) for n in HIGH_DEGREES for x in high_degree_points(rng, n)]
    return (rows(chebyshev, [p for p in points if p[0] == 1 or p[1] != -1]) +
            rows(chebyshev_by_angle, high))


def rows_Leg():
    rng = generator('Leg')
    points = [(n, x) for n in DEGREES for x in interval_points(rng, n) + linear(rng, -1, 1, 4)]
    points += [(n, x) for n in (59, 60, 61, 100, 1000) for x in seams(n)]
    high = [(n, x) for n in HIGH_DEGREES for x in high_degree_points(rng, n)]
    return (rows(legendre, points + [(20001, x) for x in (1e-9, 0.5, -0.999, 1 - 1e-9)]) +
            rows(legendre_of_high_degree, high))


def rows_Hi():
    rng = generator('Hi')
    points = [(0, -3.5), (100000, 1e-9)]
    for n in DEGREES:
        turn = math.sqrt(2 * n + 1)
        points += [(n, x) for x in [0.0, 1e-310, -1e-200, 1e-20, 1e-6, turn, -1.1 * turn]]
        points += [(n, x) for x in linear(rng, -turn, turn, 6) + logarithmic(rng, 0.01, 1e4, 3)]
        points += [(n, x) for x in [1e100, -1e200, 1.7e308]]
    points += [(268, x) for x in around(0.25)]
    points += [(1, x) for x in [0.0, 8.98846567431158e307, 8.988465674311579e307]]
    points += [(2, x) for x in [6.703903964971298e153, -6.703903964971298e153, 6.7039039649712985e153]]
    points += [(n, x) for n in [275, 333, 401, 489, 491, 493, 601] for x in [5e-324, -1e-320, 1e-300, 1e-250]]
    points += [(n, x) for n in [261, 262, 267, 269] for x in [1e-3, 0.05] + linear(rng, -3, 3, 4)]
    return rows(hermite, points)


def rows_Lag():
    rng = generator('Lag')
    points = [(0, -3.5), (100000, 1e-9)]
    for n in DEGREES:
        points += [(n, x) for x in [0.0, 1e-310, -1e-200, 1e-20, 1e-6, 1.4457964907367 / (n + 0.5)]]
        points += [(n, x) for x in linear(rng, 0, min(4 * n, 1500), 5) + logarithmic(rng, 1e-4, 4 * n, 4)]
        points += [(n, x) for x in [-1.0, -37.5, -500.0, 4.0 * n, 1e5, -1e5, 1e100, -1e200, 1.7e308]]
    points += [(2, x) for x in [1.34e154, -1.5e154, 1.896150381621835e154, 1.8961503816218355e154]]
    points += [(3, x) for x in [-4.7e102, 4.76e102, -4.76e102]]
    for n in [599, 600, 601, 2000, 54321, 1000003, 1e9, 2.0**40 + 1, 2.0**53]:
        by_square = lambda z: z * z / (4 * n + 2)
        points += [(n, by_square(z)) for z in [1e-9, 0.1, 2.404825557695773, 3.8317059702075125]]
        points += [(n, by_square(z)) for z in linear(rng, 3, 33, 5) + linear(rng, 33.9, 34.1, 4) + linear(rng, 34.1, 60, 3)]
        points += [(n, x) for x in logarithmic(rng, by_square(60), 1400, 6) + linear(rng, 1, 1400, 3)]
        points += [(n, x) for x in linear(rng, 1405, 1425, 3) + ([2500.0, 1e5] if n == 600 else [])]
        points += [(n, -by_square(z)) for z in [1e-9, 0.1] + linear(rng, 1, 700, 6)]
        points += [(n, -by_square(z)) for z in linear(rng, 705, 725, 4) + [1e4]]
    return rows(laguerre, points)
