"""What the modules of all function families share: choosing points, and writing one row of a table."""
import math
import random

import mpmath
from mpmath import mp

with mp.workprec(60):  # a value from here on rounds to infinity as a double
    LARGEST = mpmath.ldexp(2**54 - 1, 970)


def generator(name):
    """The random generator of a table. The name is its seed, so every run makes the same points."""
    return random.Random(name)


def linear(rng, low, high, count):
    """Random points, evenly distributed between the bounds."""
    return [rng.uniform(low, high) for _ in range(count)]


def logarithmic(rng, low, high, count):
    """Random points between two positive bounds; their logarithms are distributed evenly."""
    draw = lambda: math.exp(rng.uniform(math.log(low), math.log(high))) * rng.uniform(0.9, 1)
    return [max(low, draw()) for _ in range(count)]


def around(*points):
    """Each point, the doubles next to it, and points on both sides at relative distances of 1e-12 to 0.02."""
    found = []
    for point in points:
        found += [point, math.nextafter(point, math.inf), math.nextafter(point, -math.inf)]
        for distance in (1e-12, 1e-8, 1e-5, 1e-3, 0.02):
            step = distance * (abs(point) or 1)
            found += [point - step, point + step]
    return found


def positive_edges():
    """Tiny positive numbers, from the least denormal double up."""
    return [5e-324, 2.2250738585072014e-308, 1e-300, 1e-160, 1e-100, 1e-30, 1e-20, 1e-10]


def both_signs(points):
    """All points, and every third of them a second time with the opposite sign."""
    return points + [-p for p in points[::3]]


def evaluate(f, arguments, digits=50):
    """The value of f, computed with more and more digits until two values agree, and the digits used."""
    before = None
    while digits < 3000:
        with mp.workdps(digits):
            value = mpmath.re(mpmath.mpmathify(f(*[mpmath.mpf(a) for a in arguments])))
            if before is not None:
                if value == before or abs(value - before) <= abs(value) * mpmath.mpf(10) ** -36:
                    return value, digits
        before = value
        digits = digits * 3 // 2
    raise ArithmeticError(f'no agreement at {arguments}')


def condition_number(f, arguments, value, digits):
    """The condition number |x f'/f| for the last argument x; f' is a central difference."""
    x = arguments[-1]
    if x == 0 or value == 0:
        return mpmath.mpf(0)
    with mp.workdps(digits + 25):
        centre = mpmath.mpf(x)
        step = abs(centre) * mpmath.mpf(10) ** -20
        fixed = [mpmath.mpf(a) for a in arguments[:-1]]
        rise = f(*fixed, centre + step) - f(*fixed, centre - step)
        return abs(centre * mpmath.re(rise) / (2 * step) / value)


def row(f, *arguments, condition=None, digits=50):
    """One line of a table. f takes mpmath numbers. condition, if given, is the condition number or a
    function of the same arguments that returns x f'/f."""
    arguments = [float(a) for a in arguments]
    value, used = evaluate(f, arguments, digits)
    if mpmath.isnan(value):
        raise ArithmeticError(f'not a number at {arguments}')
    written = ['%.17g' % a for a in arguments]
    if abs(value) >= LARGEST:
        return '\t'.join(written + ['-inf' if value < 0 else 'inf', '0', '0'])
    if condition is None:
        condition = condition_number(f, arguments, value, used)
    elif callable(condition):
        with mp.workdps(used):
            condition = abs(condition(*[mpmath.mpf(a) for a in arguments]))
    with mp.workdps(used):
        high = nearest(value)
        low = float(value - mpmath.mpf(high))
    return '\t'.join(written + [high.hex(), low.hex(), '%.3g' % float(condition)])


def nearest(value):
    """The double nearest to the value. A denormal result is rounded only once."""
    if value == 0:
        return 0.0
    exponent = max(int(mpmath.floor(mpmath.log(abs(value), 2))) - 60, -1074)
    scaled = mpmath.ldexp(value, -exponent)
    if exponent == -1074:
        return math.ldexp(float(mpmath.nint(scaled)), -1074)
    return float(value)


def rows(f, points, **options):
    """One row for each point; a point is a number or a tuple of arguments."""
    return [row(f, *(p if isinstance(p, tuple) else (p,)), **options) for p in points]
