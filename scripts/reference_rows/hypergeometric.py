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


# Parameters of opposite sign: as many swings as they are large.
SWINGING = [(-500, 501, 1, 0.95), (-500.25, 500.4, 1.125, 0.95), (413.3, -402.6, 1.7, 0.87),
            (-715, 717, 1, 1 - 2.0 ** -43), (-640.5, 420.375, 1.5, 1 - 2.0 ** -51), (271.5, -812.8, 757.875, 0.787),
            (587, -542, 42.5, 1 - 2.0 ** -47), (-597, 595, 551, 0.25), (-630, -815.375, 0.125, -1 + 2.0 ** -36),
            (402, 561.25, 0.5, -0.99), (-94, 94, -10.08, 1 - 2.0 ** -29), (222, -586.375, 1, 0.868),
            (576, -265, 0.375, 0.90625), (-309.5, 310.25, -7.5, 0.956), (-139.3, -7, -8, 0.834)]

# The terms of the series fall, underflow perhaps, and come back where c+k passes 0.
NEGATIVE_C = [(-0.125, -701.625, -703.7, -1 + 2.0 ** -40), (-670.625, -1.5, -672.3, -1 + 2.0 ** -51),
              (-902.5, 5, -895.1, -0.9988), (0.625, -0.25, -482.75, 0.8066), (-252.125, -647.875, -897.5, -0.9999),
              (-875.5, -894.4, -1767.7, 0.87), (17.5, -252.625, -923.76, 0.83), (-55.5, -3.5, -57.2, 1 - 2.0 ** -20),
              (7.25, -277.3, -107.5, 1 - 2.0 ** -38), (-188.5, -20, -38, 0.88), (-151, -49.1, -192, 0.997),
              (264.5, -49, -87, 0.999), (-345, -35, -42, 1 - 2.0 ** -35), (-437, -40, -244, 0.6),
              (-88.1, -131, -134, -0.00015), (-592.9, -53, -96, -6.8e-10), (-0.5, 11, -688.875, 0.25)]

# Large parameters where the series at 0 is long.
NEXT_TO_ONE = [(144, 5.125, 655.25, 1 - 2.0 ** -19), (72.125, 18, 363.875, 1 - 2.0 ** -36),
               (308.125, 267.3, 573.75, 0.978), (121.8, 157, 278.8, 0.9487), (405, 184.8, 590.2, 0.996),
               (-1.125, -1.125, 6.5, 1 - 2.0 ** -47), (-2.0625, 17.6875, -0.5, 1 - 2.0 ** -35),
               (248, 0.5, 23.75, 0.955), (-29.75, 4.625, 3, 1 - 2.0 ** -42), (8, 12, 20, 1 - 2.0 ** -30),
               (20, 7.5, 27.5 + 2.0 ** -30, 1 - 2.0 ** -25), (14.5, -6.25, 8.25, 1 - 2.0 ** -50)]


# Walks of some 200 steps, from which on they go in blocks, and of thousands; next to 1 they may go
# step by step again. The walk's start changes its series at z = 0.85.
LONG_WALKS = [(-66.5, 67.25, -66.3, 0.6), (-67.5, 67.25, -67.3, 0.6), (-49.75, -50.5, -99.9, 0.8499),
              (-49.75, -50.5, -100.9, 0.8501), (-911.6, -0.1, -911.69, 0.83), (-767.5, -3.625, -771.513, -0.19),
              (692.25, 367.75, -274.1, 0.25), (-996.7, 996.7, 4.25, 0.726), (-309.4, -980.2, -987.6, 0.555),
              (-613.62055, -2.8, -256.8, 1 - 2.0 ** -43), (-520.5, -48, -568.491, 1 - 2.0 ** -36),
              (-310.25, -75.5, -420.8, 1 - 2.0 ** -19), (-310.25, -75.5, -420.8, 1 - 2.0 ** -21),
              (-194, -385, -561, 0.96184), (-802, -571, -579, 0.748), (-524, -867, -582, 0.0785)]

# Other solutions outgrow the function on the way to these: positive parameters, polynomials next to
# either end, turning points that coincide (c-a or c-b next to 0) or are complex.
OUTGROWN = [(164, 177.5, 341.75, 0.9703), (33.5, 51.25, 85.125, 0.9), (30, 46.25, 76.5, 0.81), (30, 46.25, 76.5, 0.79),
            (471, 371.5, 843.5, 0.863), (397, 165, 562.262, 0.958), (418, 433, 850.95, 0.9545), (329.4, 226.5, 553.9, 0.9933),
            (96, 365.9, 461.94, 0.9955), (40.5, 121.8, 150.3, 0.885), (389.5, 411.3, 751, 0.968),
            (-74, 829, 2.5, 0.58), (-517, 517, -693.5, 0.856), (-604, 170, 2, 0.8277), (376, -73, 0.5, 0.7233),
            (-34.75, 648, 613.25, 0.686), (-269, 0.5, -163.5, 0.846), (0.5, -553.5, -217.5, 0.591),
            (-76, -213.25, -212.5, 1 - 2.0 ** -30), (-698, 700, 593, 0.8049), (-392, 837.25, 1335.125, -0.999),
            (662, 4, 666, 0.979), (-13, 80.5, 1.25, 0.97), (441.5, 746, 1192.5, 0.978)]

# c-b a negative integer but for the last bits, and next to 1 with c-a-b above 1.
BESIDE_POLES = [(-967, 1.370755287, 0.370755287, 0.999987), (1.396720385, -914, 0.396720385, 0.8745),
                (0.3, 1.1, 0.1, 0.95), (8.5, 0.5, 11, 1 - 2.0 ** -47), (37, 9.8, 48.5, math.nextafter(1, 0)),
                (295, 0.5, 299.5, 1 - 2.0 ** -46), (-385.26, 33.25, -3.875, 1 - 2.0 ** -46), (6.5, 4, 14.5, 1 - 2.0 ** -43)]

# Polynomials with c a negative integer.
POLES = [(-7, -4, -7, 1 - 2.0 ** -24), (-581, -5, -5, -0.3505), (-12, 486.6, -12, 0.2389), (-160, -88.5, -161, 0.7446),
         (1, -274, -274, -0.99999), (-65, -278, -331, 0.9985), (-925.5, -399, -570, 0.982), (-1, -725.001, -1, 0.99),
         (-213, -76, -212, 1 - 2.0 ** -49), (-651, 740.0625, -696, 0.494), (-129, 763, -129, 0.872), (-446, -594, -707, 0.999)]


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
    points += SWINGING + NEGATIVE_C + NEXT_TO_ONE + LONG_WALKS + OUTGROWN + BESIDE_POLES + POLES
    return [row(transformed, *p, condition=slope) for p in points]
