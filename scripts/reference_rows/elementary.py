"""The elementary functions, Gamma and the error function."""
import math

import mpmath

from .frame import around, both_signs, generator, linear, logarithmic, positive_edges, rows

LARGEST_DOUBLE = 1.7976931348623157e308

# The largest arguments at which exp, and at which sinh and cosh, are finite.
LAST_OF_EXP = 709.782712893384
LAST_OF_SH = 710.4758600739439


def turning_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 20, 60) + logarithmic(rng, 1e-6, 1e6, 60)
    points += logarithmic(rng, 1e6, 1e308, 60) + around(math.pi / 2, math.pi, 2 * math.pi, 39 * math.pi)
    points += [k * math.pi / 2 for k in (101, 1000, 12345, 10 ** 7, 10 ** 10, 10 ** 15)]
    # The points with the largest errors that a search has found.
    worst = [1.5709566563669499, -1.5709737204514569, 0.0015560020297090693, -1.4314800748117215e308]
    return both_signs(points + [0.0, 15, 1e14, 1e22, LARGEST_DOUBLE, 5.319372648326541e255]) + worst


def rows_sin():
    return rows(mpmath.sin, turning_points('sin'), condition=lambda x: x * mpmath.cot(x) if x else 1)


def rows_cos():
    return rows(mpmath.cos, turning_points('cos'), condition=lambda x: x * mpmath.tan(x))


def rows_tg():
    return rows(mpmath.tan, turning_points('tg'),
                condition=lambda x: 2 * x / mpmath.sin(2 * x) if x else 1)


def logarithm_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 3, 60) + logarithmic(rng, 1e-300, 1e308, 120)
    return points + around(1, 2, 10, 0.5) + [10.0 ** k for k in (2, 3, 15, 22)] + [LARGEST_DOUBLE]


def rows_ln():
    return rows(mpmath.log, logarithm_points('ln'),
                condition=lambda x: 1 / mpmath.log(x) if x != 1 else 0)


def rows_lg():
    return rows(mpmath.log10, logarithm_points('lg'),
                condition=lambda x: 1 / mpmath.log(x) if x != 1 else 0)


def rows_log():
    rng = generator('log')
    bases = [2, 10, 0.5, math.e, 1e-300, 1e300, 5e-324, LARGEST_DOUBLE, 0.1]
    bases += [1 + d for d in (2.3e-16, 1e-12, 1e-6, 1e-3, -1.2e-16, -1e-9, -1e-3)]
    bases += logarithmic(rng, 1e-3, 1e3, 12)
    arguments = positive_edges() + logarithmic(rng, 1e-3, 1e3, 5) + around(1)[1:5] + [8, 1000, 1e300]
    points = [(b, x) for b in bases for x in arguments]
    points += [(b, b) for b in bases] + [(b, b * b) for b in (2.0, 10.0, 3.0, 0.5)]
    for base in (2, 3, 5, 6, 7, 10, 12, 60, 243, 999, 1000):
        last = int(math.log(2 ** 53) / math.log(base))
        points += [(base, float(base ** k)) for k in {1, 2, 3, 5, last // 2, last - 1, last} if k > 0]
        points += [(base, math.nextafter(float(base ** last), side)) for side in (0, math.inf)]
    points += [(2, 2.0 ** k) for k in (-1074, -1073, -1022, -1021, -7, 52, 1023)]
    points += [(0.125, 2.0 ** k) for k in (-1074, -3, 3, 1023)]
    points += [(1 + s, 1 + t) for s in (1e-15, -1e-15, 1e-5, -0.3) for t in (2e-16, -1e-15, 3e-9, 0.41, -0.3)]
    points += [(170.9999999962445, 2.7710312460990032e271), (1e-310, 3e-320), (math.sqrt(2), math.sqrt(0.5))]
    f = lambda base, x: mpmath.log(x) / mpmath.log(base)
    return rows(f, points, condition=lambda base, x: 1 / mpmath.log(x))


def growing_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 2, 60) + linear(rng, 0, 40, 60) + linear(rng, 0, 708, 60)
    points += logarithmic(rng, 1e-20, 1, 50) + around(0.3465735902799727, 0.625, 1, 22, 709, 709.78, 710.4)
    return both_signs(points + [0.0, 720, 1e5, 1e300])


def last_points(last):
    """Arguments near 709, from which on sinh and cosh take the exponential of a smaller argument, and near
    `last`, the largest argument with a finite value."""
    points = [709.0, math.nextafter(709.0, 710), last, math.nextafter(last, 0), math.nextafter(last, 711)]
    points += [709.78271114955749, 709.7827128, last - 1e-6, last - 0.1, last - 0.4]
    return points + [-p for p in points]


def rows_sh():
    return rows(mpmath.sinh, growing_points('sh') + last_points(LAST_OF_SH), condition=lambda x: x * mpmath.coth(x) if x else 1)


def rows_ch():
    return rows(mpmath.cosh, growing_points('ch') + last_points(LAST_OF_SH), condition=lambda x: x * mpmath.tanh(x))


def rows_th():
    points = [p for p in growing_points('th') if abs(p) < 1e3]
    points += both_signs(around(18.52, 18.714973875, 19.061547465398497) + [18.714973875115287, 18.6, 18.9])
    return rows(mpmath.tanh, points, condition=lambda x: 2 * x / mpmath.sinh(2 * x) if x else 1)


def rows_exp():
    rng = generator('exp')
    points = growing_points('exp') + linear(rng, -708, 0, 30) + linear(rng, -746, -708, 30) + around(-708.39, -745.1)
    points += last_points(LAST_OF_EXP) + [0.35104226804822841, 0.34664487055669763]
    return rows(mpmath.exp, [p for p in points if p > -1e6], condition=lambda x: x)


def unit_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 1, 100) + logarithmic(rng, 1e-12, 1, 60)
    points += [1 - d for d in logarithmic(rng, 1.2e-16, 0.5, 60)] + around(0.5, 0.70710678118654752)
    return both_signs(points + [0.0, 1.0])


def rows_acos():
    return rows(mpmath.acos, unit_points('acos'),
                condition=lambda x: x / (mpmath.sqrt(1 - x * x) * mpmath.acos(x)) if abs(x) != 1 else 0)


def rows_asin():
    return rows(mpmath.asin, unit_points('asin'),
                condition=lambda x: x / (mpmath.sqrt(1 - x * x) * mpmath.asin(x)) if 0 < abs(x) < 1 else 0)


def rows_atg():
    rng = generator('atg')
    points = positive_edges() + linear(rng, 0, 5, 100) + logarithmic(rng, 1e-10, 1e10, 80)
    points += logarithmic(rng, 1e10, 1e308, 20) + around(0.4375, 0.6875, 1, 1.1875, 2.4375)
    return rows(mpmath.atan, both_signs(points + [0.0, LARGEST_DOUBLE]),
                condition=lambda x: x / ((1 + x * x) * mpmath.atan(x)) if x else 1)


def whole_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 100, 60) + logarithmic(rng, 1e-3, 1e20, 60)
    points += around(1, 2, 1000, 2.0 ** 31, 2.0 ** 51, 2.0 ** 52, 2.0 ** 53) + [0.5, 1e300]
    return both_signs(points + [0.0])


def rows_int():
    return rows(mpmath.floor, whole_points('int'), condition=0)


def rows_frac():
    # The program rounds x - int(x), so the reference is the double nearest to the exact difference.
    exact = lambda x: mpmath.mpf(float(x - mpmath.floor(x)))
    return rows(exact, whole_points('frac'), condition=0, digits=700)


def rows_abs():
    return rows(abs, whole_points('abs'), condition=0)


def rows_Gamma():
    rng = generator('Gamma')
    points = positive_edges() + linear(rng, 0, 5, 80) + linear(rng, 0, 171.6, 100) + linear(rng, -20, 0, 80)
    points += linear(rng, -184, -20, 100) + [n + 0.5 for n in (-170, -171, -172, -175, -178, -180, -183)]
    points += [-p for p in positive_edges()[2:]] + logarithmic(rng, 1e-300, 1, 30)
    points += around(1.4616321449683623, 1, 2, 2.3, 33, 171.6, 171.624) + [172, 200, 1e300]
    points += [n * (1 + d) for n in (-1, -3, -50, -150, -170) for d in (1e-14, -1e-14, 1e-8, -1e-8, 1e-3)]
    # Points next to the extrema between two poles, where the condition number is about 0.
    points += [-0.50404675028165435, -5.6671625514740622, -17.737477713101942, -168.82514399757096]
    points += around(-169.825, -170.8254686744207, -175.826)
    return rows(mpmath.gamma, [p for p in points if p > 0 or p != math.floor(p)],
                condition=lambda x: x * mpmath.psi(0, x) if abs(x) < 1e4 else 0)


def rows_erf():
    rng = generator('erf')
    points = positive_edges() + linear(rng, 0, 6, 150) + logarithmic(rng, 1e-20, 1, 60)
    points += around(0.5, 0.84375, 1, 1.25, 2.857, 5.9) + [7, 30, 1e10, 1e300]
    points += [1.2089989179188212, 1.2195983789474625, 1.2330457602120095]
    f = lambda x: mpmath.erf(x)
    return rows(f, both_signs(points + [0.0]),
                condition=lambda x: 2 * x * mpmath.exp(-x * x) / (mpmath.sqrt(mpmath.pi) * f(x)) if x else 1)


def largest_powers():
    """Powers near the largest double and among the denormal numbers, with whole, fractional and negative
    exponents."""
    points = [(2, 1023.999998), (2, math.nextafter(1024, 0)), (2, math.nextafter(1024, 1025)), (10, 308.254715)]
    for base in (1.0000000000000002, 0.9999, 0.3, 1.5, 3, 10, 1e10, 1e-200, 1e300, LARGEST_DOUBLE):
        end = math.log(LARGEST_DOUBLE) / math.log(base)
        points += [(base, end * (1 - d)) for d in (3e-16, 1e-15, 1e-12, 1e-9, 1e-7, 1e-5)]
        points += [(base, -end * (1 + d)) for d in (-0.002, -1e-4, 0.01, 0.04)]
    for n in (3, 4, 5, 7, 13, 20, 21, 100, 975, 1024):
        end = math.exp(math.log(LARGEST_DOUBLE) / n) * (1 - 2e-15)
        points += [(end, n), (-end * (1 - 1e-10), n), (1 / end, -n), (1 / end, n), (end, -n)]
    return points + [(5.1511144210596706e23, 13), (0.50000000000000044, -1024)]


def rows_power():
    rng = generator('power')
    points = [(b, x) for b in logarithmic(rng, 1e-3, 1e3, 12) for x in linear(rng, -50, 50, 12)]
    for base in logarithmic(rng, 1e-300, 1e300, 40):
        limit = 745 / abs(math.log(base))
        points += [(base, x) for x in linear(rng, -limit, limit, 4)]
    points += [(1 + d, x) for d in (2.3e-16, 1e-10, -1e-10, 1e-5, -1e-4) for x in (0.5, 3, 1e4, -1e6, 1e9)]
    points += [(-b, n) for b in (0.5, 2, 1.1, 7.3, 123.4) for n in (-7, -2, 2, 3, 25, 100)]
    points += [(2, n) for n in (-1074, -1073.5, -1030.25, -1022, 1023, 1023.999, 1024)]
    points += [(b, x) for b in (2, 3, 10, 0.1) for x in (0.5, 1 / 3, 2, 3, 15, 22, -1, 100.5)]
    points += [(5e-324, 0.5), (5e-324, 0.01), (LARGEST_DOUBLE, 0.5), (LARGEST_DOUBLE, -1), (1e300, 2)]
    return rows(lambda base, x: mpmath.power(base, x), points + largest_powers(),
                condition=lambda base, x: x * mpmath.log(abs(base)))
