"""Sine, cosine, hyperbolic, exponential, logarithmic, Dawson's and Fresnel's integrals."""
import mpmath
from mpmath import mp

from .frame import around, both_signs, generator, linear, logarithmic, positive_edges, rows


def trigonometric_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 20, 80) + linear(rng, 3, 8, 30)
    points += logarithmic(rng, 1e-8, 1e3, 60) + logarithmic(rng, 1e3, 1e300, 30)
    points += around(0.5, 1.25, 6.2831853071795862, 12.566370614359172, 64, 1e20)
    return points + around(2, 4, 8, 20, 40, 1e6) + [1e15, 1e16, 1.7976931348623157e308]


def rows_Si():
    f = mpmath.si
    return rows(f, both_signs(trigonometric_points('Si')), condition=lambda x: mpmath.sin(x) / f(x))


def rows_Ci():
    points = trigonometric_points('Ci')
    points += around(0.625, 1.5707963267948966, 3, 4.7123889803846897, 7.8539816339744828)
    zeros = [float(mpmath.findroot(mpmath.ci, start)) for start in (0.6, 3.4, 6.4, 9.5, 31.4, 100.5)]
    points += around(*zeros) + [-p for p in points[::5]]
    f = lambda x: mpmath.re(mpmath.ci(abs(x)))
    return rows(f, points, condition=lambda x: mpmath.cos(x) / f(x))


def hyperbolic_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 40, 100) + linear(rng, 40, 720, 50)
    points += logarithmic(rng, 1e-8, 1, 40) + around(0.5, 1.75, 3.607957897373121, 7, 16, 32) + around(2, 4, 8, 18, 40, 80, 88, 700, 710, 716, 717.4)
    return points + [720, 1e3, 1e300]


def rows_Shi():
    f = mpmath.shi
    return rows(f, both_signs(hyperbolic_points('Shi')), condition=lambda x: mpmath.sinh(x) / f(x))


def rows_Chi():
    points = hyperbolic_points('Chi') + around(0.52382257138986439, 0.625)
    f = lambda x: mpmath.re(mpmath.chi(abs(x)))
    return rows(f, points + [-p for p in points[::5]], condition=lambda x: mpmath.cosh(x) / f(x))


def rows_Ei():
    rng = generator('Ei')
    points = hyperbolic_points('Ei') + linear(rng, 0, 2, 40) + linear(rng, 2, 80, 60)
    points += around(0.25, 0.375, 5, 256, 512) + [716.3, 716.35]
    points += around(0.37250741078136663, 0.5, 1, 6, 10, 20, 50, 64)
    f = mpmath.ei
    return rows(f, points, condition=lambda x: mpmath.exp(x) / f(x))


def rows_Li():
    rng = generator('Li')
    zero = 1.4513692348833810
    points = [1 + d for d in logarithmic(rng, 2.3e-16, 1, 50)] + linear(rng, 1, 20, 60)
    points += logarithmic(rng, 1.1, 1e4, 80) + logarithmic(rng, 1e3, 1.7e308, 150)
    points += around(1.2840254166877414, 54.598150033144236, 2980.9579870417283, 16119739.607896773)
    points += around(zero, 2, 7.38905609893065) + [1.7976931348623157e308, 1.0000000000000002]
    f = mpmath.li
    return rows(f, [p for p in points if p > 1], condition=lambda x: x / (mpmath.log(x) * f(x)))


def dawson(x):
    if abs(x) > 1e10:
        square = 1 / (2 * x * x)
        return (1 + square * (1 + 3 * square * (1 + 5 * square * (1 + 7 * square)))) / (2 * x)
    with mp.extradps(20):
        return mpmath.sqrt(mp.pi) / 2 * mpmath.exp(-x * x) * mpmath.erfi(x)


def rows_DawsonF():
    rng = generator('DawsonF')
    points = positive_edges() + linear(rng, 0, 12, 150) + logarithmic(rng, 1e-8, 1e4, 60)
    points += logarithmic(rng, 1e4, 1e307, 30)
    points += around(0.5, 1, 1.75, 3.5, 5, 10, 16) + around(0.92413887300459177, 3.25, 6.25, 1e9) + [1.7976931348623157e308]
    return rows(dawson, both_signs(points), condition=lambda x: x * (1 - 2 * x * dawson(x)) / dawson(x))


def quarter_turns(x):
    """Sine and cosine of pi/2 x^2. The square is computed exactly before it is reduced."""
    with mp.workprec(5000):
        rest = mpmath.fmod(x * x, 4)
    return mpmath.sinpi(rest / 2), mpmath.cospi(rest / 2)


def fresnel(x, sine_integral):
    if abs(x) < 1e4:
        return mpmath.fresnels(x) if sine_integral else mpmath.fresnelc(x)
    sine, cosine = quarter_turns(x)
    parts = [mpmath.mpf(0), mpmath.mpf(0)]
    term = 1 / (mp.pi * abs(x))
    for k in range(30):
        parts[k % 2] += term if k % 4 < 2 else -term
        term *= (2 * k + 1) / (mp.pi * x * x)
    f, g = parts
    value = 0.5 - f * cosine - g * sine if sine_integral else 0.5 + f * sine - g * cosine
    return value if x > 0 else -value


def fresnel_points(name):
    rng = generator(name)
    points = positive_edges() + linear(rng, 0, 10, 120) + logarithmic(rng, 1e-8, 1e3, 80)
    points += logarithmic(rng, 1e3, 1e20, 60) + [1e100, 1.7976931348623157e308]
    points += around(0.5, 1.4142135623730951, 1.5, 1.7320508075688772, 2, 2.4494897427831779, 6, 8, 1e17)
    return points + around(1, 1.6, 3, 1000, 36974, 67108864)


def rows_Sf():
    f = lambda x: fresnel(x, True)
    return rows(f, both_signs(fresnel_points('Sf')), condition=lambda x: x * quarter_turns(x)[0] / f(x))


def rows_Cf():
    f = lambda x: fresnel(x, False)
    return rows(f, both_signs(fresnel_points('Cf')), condition=lambda x: x * quarter_turns(x)[1] / f(x))
