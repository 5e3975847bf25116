// With l, m and n, the differences of the exponents at 0, 1 and infinity, the solutions for large
// parameters go as exp(+-1/2 integral of sqrt(D)/(z(1-z))), D = l^2 (1-z) + m^2 z - n^2 z (1-z)
// (Liouville and Green; DLMF 2.7). Where the recurrence along a straight line of parameters has two
// solutions that grow alike, at the turning points D = 0, it has no minimal one. Between 0 and the
// turning points, real or not, the function is for c above 1, being small at 0 beside z^(1-c), and
// is not for c below. So the integral from z to there, three logarithms, tells what the two grow
// apart.
#include "specfun/hypergeometric/growth.h"

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {
namespace {

struct Exponents {
    double atZero;
    double atOne;
    double atInfinity;
    double l;
    double m;
    double n;
};

Exponents ExponentsOf(const HypergeometricParameters& p) {
    const double atZero = std::fabs(p.c.high - 1);
    const double atOne = std::fabs((p.c - p.a - p.b).high);
    const double atInfinity = std::fabs((p.a - p.b).high);
    return {atZero, atOne, atInfinity, atZero * atZero, atOne * atOne, atInfinity * atInfinity};
}

double Discriminating(const Exponents& e, double z, double w) {
    return std::max(0.0, e.l * w + e.m * z - e.n * z * w);
}

}  // namespace

double Outgrown(const HypergeometricParameters& p, double z, double w) {
    constexpr double kTiny = 1e-250;  // keeps the logarithms finite where turning points coincide
    const Exponents e = ExponentsOf(p);
    const auto [atZero, atOne, atInfinity, l, m, n] = e;
    const double root = std::sqrt(Discriminating(e, z, w));
    const double discriminant = (atZero + atOne + atInfinity) * (atZero + atOne - atInfinity) *
                                (atZero - atOne + atInfinity) * (atZero - atOne - atInfinity);
    const double unit = std::sqrt(std::max(std::fabs(discriminant), kTiny));
    const bool swings = atZero + atOne < atInfinity;
    // the turning point next to 0, a zero of the quadratic D; beyond it nothing outgrows
    if (swings && z >= (l + n - m - unit) / (2 * n)) return 0;
    // the antiderivative of sqrt(D)/(z(1-z)): a logarithm for each of the exponents
    const auto part = [unit, root](double difference, double of, double distance) {
        const double size = std::fabs(of) + 2 * difference * root;
        return difference * std::copysign(std::log(size / (distance * unit)), of);
    };
    const double apart = part(atZero, 2 * l + (m - l - n) * z, z) -
                         part(atOne, 2 * m + (l - m - n) * w, w) +
                         part(atInfinity, 2 * n * z + m - l - n, 1);
    return p.c.high > 1 ? apart : -apart;  // the function is the smaller one at 0 for c above 1
}

double SlopeOfMinimal(const HypergeometricParameters& p, double z, double w) {
    const Exponents e = ExponentsOf(p);
    const double d = Discriminating(e, z, w);
    const double change = e.m - e.l - e.n * (w - z);
    const double drift = p.a.high + p.b.high + 1 - p.c.high;
    // z y'/y of y = z^(-c/2) w^(-drift/2) Q^(-1/4) exp(integral of sqrt(Q)), Q = D/(4 z^2 w^2)
    return (drift * z + std::sqrt(d)) / (2 * w) - p.c.high / 2 + (1 - z / w) / 2 -
           z * change / (4 * d);
}

// Next to 1, s = c-a-b below 0, the function is (DLMF 15.8.4)
//   Gamma(c) Gamma(-s) / (Gamma(a) Gamma(b)) w^s F(c-a,c-b;1+s;w)
//   + Gamma(c) Gamma(s) / (Gamma(c-a) Gamma(c-b)) F(a,b;1-s;w),
// For so small a w as is asked for here the terms of both series fall by 1/8 at least up to that of
// half of -s, by which all denominators exceed -s/2, and so to 2^-48 and then on; one denominator
// behind may be next to 0 where s is next to an integer, 2^-60 at least, which the 2^64 between the
// two parts and the distance from the end of the range allow for.
bool Overflows(const HypergeometricParameters& p, double x) {
    constexpr double kLeastDecay = -32;   // 16 terms that fall by 1/8 come to 2^-48
    constexpr double kSmall = 0x1p-4;     // the ratio is 1/8 beside denominators of -s/2
    constexpr double kRange = 1024 + 64;  // where doubles end, and 64 bits, chosen, to be certain
    constexpr double kApart = 64;         // bits between the two parts: the 60 above and four
    constexpr double kOffInteger = 0x1p-30;  // chosen: keeps off the poles of lgamma at integral s
    const double a = p.a.high;
    const double b = p.b.high;
    const double c = p.c.high;
    const double s = c - a - b;
    const double w = 1 - x;
    const double larger = (std::fabs(c - a) - s) * (std::fabs(c - b) - s);
    const double smaller = (std::fabs(a) - s) * (std::fabs(b) - s);
    if (!(s < kLeastDecay) || !(std::max(larger, smaller) * w < -kSmall * s)) return false;
    const double ofW = std::lgamma(-s) - std::lgamma(a) - std::lgamma(b) + s * std::log(w);
    const double other = std::lgamma(s + kOffInteger) - std::lgamma(c - a) - std::lgamma(c - b);
    const double bits = (std::lgamma(c) + ofW) / std::log(2.0);
    return bits > kRange && (ofW - other) / std::log(2.0) > kApart;
}

}  // namespace kalvex::specfun
