"""What the tables of the methods contain: the points, the methods tried on them, and the abscissas."""
import math

SMOOTH = [2, 3, 4, 5, 6, 7, 8, 11, 12]
ENDS = [(0, 0), (1, 1), (2, 2), (0, 2), (1, 0), (2, 1)]


def uneven(count):
    """Abscissas with spacings from 0.2 to 2.2, and values of a smooth function with a kink."""
    points = []
    x = -3.125
    for i in range(count):
        y = math.sin(1.3 * x) + 0.4 * abs(x - 0.75) + 2.5
        points.append((x, math.floor(y * 2**20) / 2**20))
        x += 0.2 + (i * i * 7 % 11) / 5
    return points


def well_placed(count):
    """The extrema of a Chebyshev polynomial; interpolation of high degree is well conditioned on them."""
    return [(-math.cos(math.pi * i / (count - 1)), 1 / (1 + 3 * math.cos(0.3 + i) ** 2))
            for i in range(count)]


def case(approx, val=1, val2=0, beta1=1.0, beta2=0.0):
    return approx, val, val2, beta1, beta2


def cases_of(count, high_degrees=True):
    cases = [case(code) for code in SMOOTH if high_degrees or code != 12]
    cases += [case(3, 1, 0, 2.5, 0.75), case(3, 1, 0, 1.0, 1000.0), case(3, 1, 0, 0.5, -1.0)]
    cases += [case(10, begin, end, 0.75, -1.25) for begin, end in ENDS]
    cases += [case(0, terms) for terms in (1, 2, 3, 4, 6, 9) if terms <= count]
    if high_degrees:
        cases.append(case(1))
    if count % 2 == 1:
        cases.append(case(9))
    if count < 3:
        cases = [c for c in cases if c[0] not in (4, 5, 6)]
    return sorted(set(cases))


ANY_ORDER = [2, 3, 4, 5, 7, 8]


def tables():
    known = {f'uneven{n:02}': (uneven(n), cases_of(n)) for n in (2, 3, 4, 5, 10, 11)}
    known['uneven50'] = uneven(50), cases_of(50, False)
    known['placed20'] = well_placed(20), [case(1), case(12), case(0, 20), case(0, 12)]
    known['placed50'] = well_placed(50), [case(12), case(0, 20)]
    down = uneven(7)[::-1]
    known['decreasing07'] = down, [case(c) for c in ANY_ORDER + [0, 1, 12]] + [case(0, 4)]
    repeated = [(0.0, 1.0), (1.0, 2.0), (1.0, 4.0), (2.5, 3.0), (3.0, 3.5), (3.0, 0.25), (4.0, 1.0)]
    known['repeated07'] = repeated, [case(c) for c in ANY_ORDER] + [case(0, 3), case(0, 5)]
    mixed = [(1.0, 2.0), (3.0, -1.0), (0.5, 4.0), (2.0, 0.5), (6.0, 3.0), (5.0, 1.0)]
    known['mixed06'] = mixed, [case(c) for c in ANY_ORDER + [1, 12]] + [case(0, 3)]
    # Least squares on very unevenly spaced points: abscissas over three decades, and one far outlier.
    decades = [(10 ** (1 + i * 3 / 19), 3 * math.sin(i)) for i in range(20)]
    known['decades20'] = decades, [case(0, terms) for terms in (8, 14, 16)]
    outlier = [(float(i), 3 * math.sin(i)) for i in range(14)] + [(1000.0, 1.0)]
    known['outlier15'] = outlier, [case(0, terms) for terms in (5, 8, 10)]
    thousand = [(i * 0.013 - 4.0, math.sin(0.9 * i * 0.013) + 0.1 * math.cos(i)) for i in range(1000)]
    known['thousand'] = thousand, [case(0, 20)]
    return known


def abscissas(points):
    xs = sorted({x for x, _ in points})
    wide = xs[-1] - xs[0]
    if len(points) > 100:
        return [xs[0] - wide / 100] + xs[::37] + [xs[-1], xs[-1] + wide / 100]
    found = {xs[0] - wide / 2, xs[0] - wide / 64, xs[-1] + wide / 64, xs[-1] + wide / 2}
    for left, right in zip(xs, xs[1:]):
        found |= {left, left + (right - left) * 0.3125, (left + right) / 2, right}
    return sorted(found)
