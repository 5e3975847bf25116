"""The value of a method at an abscissa, as an exact fraction or with 120 digits.

Method(points, case).at(t) returns (value, size), or None where the method has no finite value.
make-interpolation-tables explains what size is.
"""
from fractions import Fraction

import mpmath

mpmath.mp.dps = 120


def weighted(weights, values):
    terms = [w * v for w, v in zip(weights, values)]
    return sum(terms), sum(abs(term) for term in terms)


def lagrange_weights(xs, t):
    weights = []
    for i, xi in enumerate(xs):
        weight = Fraction(1)
        for j, xj in enumerate(xs):
            if j != i:
                weight *= (t - xj) / (xi - xj)
        weights.append(weight)
    return weights


def solve(rows, right):
    """Solves a linear system by Gaussian elimination with fractions."""
    table = [list(row) + [value] for row, value in zip(rows, right)]
    n = len(table)
    for k in range(n):
        pivot = next(i for i in range(k, n) if table[i][k] != 0)
        table[k], table[pivot] = table[pivot], table[k]
        table[k] = [value / table[k][k] for value in table[k]]
        for i in range(n):
            if i != k and table[i][k] != 0:
                factor = table[i][k]
                table[i] = [a - factor * b for a, b in zip(table[i], table[k])]
    return [row[-1] for row in table]


def beta_basis(bias, tension):
    """The four cubics of a beta spline's basis function, as coefficients in the parameter of their piece.

    They solve the linear system that says: where two pieces meet, the values agree, the slopes are in the
    ratio `bias`, and f'' after the joint is bias^2 f'' + tension f' before it; value, slope and second
    derivative are 0 at both ends; the four cubics add up to 1 at the joints."""
    def row(entries):
        out = [Fraction(0)] * 16
        for cubic, power, factor in entries:
            out[4 * cubic + power] += factor
        return out

    def derivative(cubic, order, at_one):
        factors = {0: [1, 1, 1, 1], 1: [0, 1, 2, 3], 2: [0, 0, 2, 6]}[order]
        powers = range(4) if at_one else [order]
        return [(cubic, power, Fraction(factors[power])) for power in powers]

    def negative(entries, factor):
        return [(cubic, power, -factor * value) for cubic, power, value in entries]

    rows, right = [], []
    for order in range(3):
        rows.append(row(derivative(3, order, False)))
        rows.append(row(derivative(0, order, True)))
    for cubic in (3, 2, 1):
        zero, one, two = (derivative(cubic, order, True) for order in range(3))
        rows.append(row(derivative(cubic - 1, 0, False) + negative(zero, 1)))
        rows.append(row(derivative(cubic - 1, 1, False) + negative(one, bias)))
        rows.append(row(derivative(cubic - 1, 2, False) + negative(two, bias**2) +
                        negative(one, tension)))
    right = [Fraction(0)] * len(rows)
    rows.append(row([(cubic, 0, Fraction(1)) for cubic in range(4)]))
    right.append(Fraction(1))
    solution = solve(rows, right)
    return [solution[4 * cubic:4 * cubic + 4] for cubic in range(4)]


def b_basis(u):
    """The four cubic B splines over integer knots that do not vanish on 0..1, at u, by the recurrence of
    Cox and de Boor. Their polynomials on 0..1 are used for every u, also outside of that interval."""
    def spline(first, degree):
        if degree == 0:
            return Fraction(1 if first == 0 else 0)
        return ((u - first) * spline(first, degree - 1) +
                (first + degree + 1 - u) * spline(first + 1, degree - 1)) / degree

    return [spline(first, 3) for first in (-3, -2, -1, 0)]


def controls(ys, left):
    n = len(ys)
    before = ys[left - 1] if left > 0 else 2 * ys[0] - ys[1]
    behind = ys[left + 2] if left + 2 < n else 2 * ys[-1] - ys[-2]
    return [before, ys[left], ys[left + 1], behind]


class Method:
    def __init__(self, points, case):
        self.x = [Fraction(x) for x, _ in points]
        self.y = [Fraction(y) for _, y in points]
        self.approx, self.val, self.val2 = case[:3]
        self.beta1, self.beta2 = Fraction(case[3]), Fraction(case[4])
        self.n = len(points)
        names = ['least', 'polynomial', 'b', 'beta', 'parabolas', 'uniform', 'parabolas',
                 'constant', 'linear', 'quadratic', 'cubic', 'hermite', 'polynomial']
        self.name = names[self.approx]
        prepare = getattr(self, 'prepare_' + self.name, None)
        if prepare:
            prepare()

    def at(self, t):
        try:
            return getattr(self, self.name)(Fraction(t))
        except ZeroDivisionError:
            return None

    def left(self, t):
        """The index of the piece that holds t: by the first inner point whose abscissa is greater than t."""
        for i in range(1, self.n - 1):
            if t < self.x[i]:
                return i - 1
        return self.n - 2

    def parameter(self, t, left):
        return (t - self.x[left]) / (self.x[left + 1] - self.x[left])

    def constant(self, t):
        for i in range(self.n - 1):
            if t <= self.x[i]:
                return self.y[i], abs(self.y[i])
        return self.y[-1], abs(self.y[-1])

    def piece(self, t, first, count):
        return weighted(lagrange_weights(self.x[first:first + count], t),
                        self.y[first:first + count])

    def linear(self, t):
        return self.piece(t, self.left(t), 2)

    def quadratic(self, t):
        return self.piece(t, self.left(t) // 2 * 2, 3)

    def polynomial(self, t):
        return self.piece(t, 0, self.n)

    def b(self, t):
        left = self.left(t)
        return weighted(b_basis(self.parameter(t, left)), controls(self.y, left))

    def prepare_beta(self):
        self.basis = beta_basis(self.beta1, self.beta2)

    def beta(self, t):
        left = self.left(t)
        u = self.parameter(t, left)
        weights = [sum(c * u**k for k, c in enumerate(cubic)) for cubic in self.basis]
        return weighted(weights, controls(self.y, left))

    def blend(self, t, xs):
        """An inner piece blends two parabolas through three points each, over the abscissas xs. The first
        and the last piece follow a single parabola."""
        left = self.left(t)
        u = self.parameter(t, left)
        at = xs[left] + u * (xs[left + 1] - xs[left])
        def parabola(first):
            return weighted(lagrange_weights(xs[first:first + 3], at), self.y[first:first + 3])
        if left == 0:
            return parabola(0)
        if left == self.n - 2:
            return parabola(self.n - 3)
        (a, a_size), (b, b_size) = parabola(left - 1), parabola(left)
        return (1 - u) * a + u * b, abs(1 - u) * a_size + abs(u) * b_size

    def parabolas(self, t):
        return self.blend(t, self.x)

    def uniform(self, t):
        return self.blend(t, [Fraction(i) for i in range(self.n)])

    def power_piece(self, t, pieces):
        left = self.left(t)
        h = t - self.x[left]
        return weighted([h**k for k in range(4)], pieces[left])

    def prepare_cubic(self):
        """Solves one linear system for the coefficients of all pieces: the values at the points, continuous
        first and second derivatives, and the two end conditions."""
        n, x, y = self.n, self.x, self.y
        size = 4 * (n - 1)
        rows = mpmath.matrix(size, size)
        right = mpmath.matrix(size, 1)
        line = 0

        def exact(value):
            return mpmath.mpf(value.numerator) / value.denominator

        def equation(entries, value):
            nonlocal line
            for column, factor in entries:
                rows[line, column] = rows[line, column] + exact(Fraction(factor))
            right[line] = exact(Fraction(value))
            line += 1

        def derivative(i, order, h):
            factors = {0: [1, 1, 1, 1], 1: [0, 1, 2, 3], 2: [0, 0, 2, 6], 3: [0, 0, 0, 6]}[order]
            return [(4 * i + k, factors[k] * h**(k - order)) for k in range(order, 4)]

        def end(flag, value, i, h):
            order = {0: 3, 1: 1, 2: 2}[flag]
            # A single piece with both ends free is a straight line. Both conditions say that the third
            # derivative is 0, so the one at its right end asks for a second derivative of 0 instead.
            if n == 2 and flag == 0 and self.val == self.val2 == 0:
                order = 3 if h == 0 else 2
            equation(derivative(i, order, h), 0 if flag == 0 else value)

        end(self.val, self.beta1, 0, Fraction(0))
        for i in range(n - 1):
            h = x[i + 1] - x[i]
            equation(derivative(i, 0, Fraction(0))[:1], y[i])
            equation(derivative(i, 0, h), y[i + 1])
            if i + 2 < n:
                for order in (1, 2):
                    equation(derivative(i, order, h) +
                             [(c, -f) for c, f in derivative(i + 1, order, Fraction(0))[:1]], 0)
        end(self.val2, self.beta2, n - 2, x[-1] - x[-2])
        solution = mpmath.lu_solve(rows, right)
        self.pieces = [[solution[4 * i + k] for k in range(4)] for i in range(n - 1)]

    def cubic(self, t):
        left = self.left(t)
        h = t - self.x[left]
        h = mpmath.mpf(h.numerator) / h.denominator
        return weighted([h**k for k in range(4)], self.pieces[left])

    def prepare_hermite(self):
        n, x, y = self.n, self.x, self.y
        h = [b - a for a, b in zip(x, x[1:])]
        slope = [(b - a) / c for a, b, c in zip(y, y[1:], h)]

        def end(h1, s1, h2, s2):
            estimate = ((2 * h1 + h2) * s1 - h1 * s2) / (h1 + h2)
            if estimate * s1 <= 0:
                return Fraction(0)
            if s1 * s2 <= 0 and abs(estimate) > 3 * abs(s1):
                return 3 * s1
            return estimate

        def inner(i):
            if slope[i - 1] * slope[i] <= 0:
                return Fraction(0)
            w1, w2 = h[i - 1] + 2 * h[i], 2 * h[i - 1] + h[i]
            return (w1 + w2) / (w1 / slope[i - 1] + w2 / slope[i])

        if n == 2:
            d = [slope[0]] * 2
        else:
            d = [end(h[0], slope[0], h[1], slope[1])] + [inner(i) for i in range(1, n - 1)]
            d.append(end(h[-1], slope[-1], h[-2], slope[-2]))
        self.slopes = d
        self.pieces = []
        for i in range(n - 1):
            c2 = (3 * slope[i] - 2 * d[i] - d[i + 1]) / h[i]
            c3 = (d[i] + d[i + 1] - 2 * slope[i]) / h[i]**2
            self.pieces.append([y[i], d[i], c2, c3])

    def hermite(self, t):
        return self.power_piece(t, self.pieces)

    def prepare_least(self):
        """Inverts the matrix of the normal equations for powers of x, scaled to -1..1. The 120 digits are
        far more than the bad condition of that matrix costs."""
        low, high = min(self.x), max(self.x)
        self.centre, self.half = (low + high) / 2, (high - low) / 2
        u = [self.unit(x) for x in self.x]
        y = [mpmath.mpf(v.numerator) / v.denominator for v in self.y]
        moments = [mpmath.fsum(v**k for v in u) for k in range(2 * self.val - 1)]
        rows = mpmath.matrix(self.val, self.val)
        for i in range(self.val):
            for j in range(self.val):
                rows[i, j] = moments[i + j]
        right = mpmath.matrix([mpmath.fsum(v**k * w for v, w in zip(u, y))
                               for k in range(self.val)])
        self.inverse = mpmath.inverse(rows)
        self.powers = [[v**k for k in range(self.val)] for v in u]
        self.y_high = y
        self.solution = self.inverse * right

    def unit(self, x):
        u = (x - self.centre) / self.half
        return mpmath.mpf(u.numerator) / u.denominator

    def least(self, t):
        u = self.unit(t)
        at = mpmath.matrix([u**k for k in range(self.val)])
        row = (at.T * self.inverse)
        weights = [mpmath.fsum(row[k] * p[k] for k in range(self.val)) for p in self.powers]
        return weighted(weights, self.y_high)
