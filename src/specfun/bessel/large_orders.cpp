// J and Y of orders too large for a recurrence, and of small ones far beyond the turning point.
// Everything is written in the product of exact differences d = (order - x)(order + x), and in s =
// sqrt|d|, by which a rounding of x turns the phase or changes the exponent: an error of 2^-60 of s
// in these is far below one of x.
//
// Up to 30 units of the exponent or phase from the turning point x = order, Olver's uniform
// expansion in Airy functions (DLMF 10.20.4, 10.20.5); all that it needs is a power series in
// (order - x)/(order + x) there, which stays below 1/4. Elsewhere Debye's expansions (10.19.3 for x
// below the order, 10.19.6 above it); term k is near (k-1)!/(2 pi (2 xi)^k) for the exponent or
// phase xi, so that twenty of them have all digits. In units of s their coefficients become those
// of Hankel's expansion for large x. From x = 2 order on the phase is x - (order/2 + 1/4) pi and a
// rest, whose sines and cosines are taken apart: those of x and of the multiple of pi lose nothing
// however large both are.
#include <array>
#include <cmath>
#include <iterator>
#include <numbers>

#include "specfun/airy/airy_pair.h"
#include "specfun/bessel/large_order_coefficients.h"
#include "specfun/bessel/oscillating.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

/// Debye's expansions from this exponent or phase on.
constexpr Extended kDebyeFrom = 28;

struct Place {
    Extended order;
    Extended x;
    Extended s;
    Extended square;  ///< order^2 / (order^2 - x^2)
};

Place PlaceOf(double order, Extended x) {
    const Extended n = order;
    const Extended difference = (n - x) * (n + x);
    return {n, x, std::sqrt(std::fabs(difference)), n * n / difference};
}

/// With t = s/order the exponent over the order is artanh(t) - t, the phase t - atan(t); both are
/// above t^3/(3 - 1.8 t^2), where the sign of t^2 is that of order - x.
bool IsTurning(const Place& at) {
    return !(at.s / std::fabs(3 * at.square - Extended{1.8}) >= kDebyeFrom);
}

/// A power series in plain doubles.
template <std::size_t count>
double SmallSeries(const double (&series)[count], double t) {
    double sum = 0;
    for (std::size_t i = count; i-- > 0;)
        sum = sum * t + series[i];
    return sum;
}

/// Olver's expansion with Ai and Ai', or Bi and Bi', at order^(2/3) zeta.
Extended Turning(const Place& at, AiryPair (&airy)(Extended)) {
    const Extended quotient = (at.order - at.x) / (at.order + at.x);
    const Extended root = Polynomial(kTurningRoot, quotient);
    const Extended scale = std::cbrt(at.order / 2);
    const Extended factor = 2 * scale * root * root / (1 + quotient);
    const AiryPair pair = airy(factor * factor * quotient);
    const double y = static_cast<double>(quotient);
    const double plainScale = static_cast<double>(scale);
    const double inverse = 1 / static_cast<double>(at.order);
    const double r = inverse * inverse;
    const double first = r * (SmallSeries(kTurningA1, y) +
                              r * (SmallSeries(kTurningA2, y) + r * SmallSeries(kTurningA3, y)));
    const double second = (SmallSeries(kTurningB0, y) +
                           r * (SmallSeries(kTurningB1, y) + r * SmallSeries(kTurningB2, y))) /
                          plainScale / plainScale / plainScale / plainScale;
    return root / scale * (pair.value * (1 + Extended{first}) + pair.derivative * second);
}

/// The sums of U(k)/order^k over even and odd k, for x above the order with the powers of i left
/// out: then of (-1)^j U(2j) and (-1)^j U(2j+1).
struct DebyeSums {
    Extended even;
    Extended odd;
};

DebyeSums DebyeSumsAt(const Place& at) {
    constexpr double kNegligible = 0x1p-64;
    const double square = static_cast<double>(at.square);
    const double r = static_cast<double>(1 / at.s);
    const double turn = at.order > at.x ? r * r : -r * r;
    double even = 0;
    double odd = 0;
    double power = 1;
    double term = 1;
    for (std::size_t k = 0; k < std::size(kDebye) && std::fabs(term) > kNegligible; k += 2) {
        odd += power * r * DebyePolynomial(k, square);
        power *= turn;
        term = power * DebyePolynomial(k + 1, square);
        even += term;
    }
    return {1 + Extended{even}, odd};
}

/// order alpha - s with cosh(alpha) = order/x, tanh(alpha) = s/order; infinite for the least x.
Extended Exponent(const Place& at) {
    return at.order * std::log1p((at.order - at.x + at.s) / at.x) - at.s;
}

/// The unit vector a turned back by b.
CosineSine TurnedBack(CosineSine a, CosineSine b) {
    return {a.cosine * b.cosine + a.sine * b.sine, a.sine * b.cosine - a.cosine * b.sine};
}

/// Cosine and sine of s - order beta - pi/4, tan(beta) = s/order.
CosineSine PhaseAt(const Place& at) {
    const Extended n = at.order;
    if (at.x < 2 * n) {
        const CosineSine quarter = CosineSinePi(Extended{0.25});
        return TurnedBack(CosineSineOf(at.s - n * std::atan(at.s / n)), quarter);
    }
    // beta is pi/2 - arcsin(order/x), and s is x - order^2/(x + s).
    const Extended rest = n * (n / (at.x + at.s) - std::asin(n / at.x));
    const CosineSine multiple = CosineSinePi(std::fmod(n, Extended{4}) / 2 + Extended{0.25});
    return TurnedBack(TurnedBack(CosineSineOf(at.x), multiple), CosineSineOf(rest));
}

}  // namespace

bool IsFarBeyond(double order, Extended x) {
    return x > order && !IsTurning(PlaceOf(order, x));
}

Extended LargeOrderJ(double order, Extended x) {
    const Place at = PlaceOf(order, x);
    if (IsTurning(at)) return Turning(at, AiryAiPair);
    const DebyeSums sums = DebyeSumsAt(at);
    if (at.order > at.x)
        return ExpOf(-Exponent(at)) / std::sqrt(2 * kPi * at.s) * (sums.even + sums.odd);
    const auto [c, s] = PhaseAt(at);
    return std::sqrt(2 / (kPi * at.s)) * (c * sums.even + s * sums.odd);
}

Extended LargeOrderY(double order, Extended x) {
    const Place at = PlaceOf(order, x);
    if (IsTurning(at)) return -Turning(at, AiryBiPair);
    const DebyeSums sums = DebyeSumsAt(at);
    if (at.order > at.x)
        return -ExpOf(Exponent(at)) * std::sqrt(2 / (kPi * at.s)) * (sums.even - sums.odd);
    const auto [c, s] = PhaseAt(at);
    return std::sqrt(2 / (kPi * at.s)) * (s * sums.even - c * sums.odd);
}

}  // namespace kalvex::specfun
