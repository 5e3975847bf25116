// J and Y of orders too large for a recurrence. Everything is written in w = 1 - (x/order)^2, the
// product of exact differences, and in s = sqrt|order^2 - x^2|, by which a rounding of x turns the
// phase or changes the exponent: an error of 2^-64 of s in these is far below one of x.
//
// Within some thousand units of the exponent or phase of the turning point x = order, Olver's
// uniform expansion in Airy functions (DLMF 10.20.4, 10.20.5); all that it needs is a power series
// in w there. Elsewhere Debye's expansions (10.19.3 for x below the order, 10.19.6 above it); term
// k is below k!/(2 xi)^k for the exponent or phase xi, so that six of them have all digits. In
// units of s their coefficients become those of Hankel's expansion for large x. From x = 2 order on
// the phase is x - (order/2 + 1/4) pi and a rest, whose sines and cosines are taken apart: those of
// x and of the multiple of pi lose nothing however large both are.
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
constexpr Extended kDebyeFrom = 1000;

struct Place {
    Extended order;
    Extended x;
    Extended w;
    Extended s;
};

Place PlaceOf(double order, Extended x) {
    const Extended n = order;
    const Extended difference = (n - x) * (n + x);
    return {n, x, difference / (n * n), std::sqrt(std::fabs(difference))};
}

/// Near the turning point the exponent or phase is s^3 / (3 order^2).
bool IsTurning(const Place& at) {
    constexpr Extended kBound = 3 * kDebyeFrom;
    return at.s / at.order * (at.s / at.order) * at.s < kBound;
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
    const Extended root = Polynomial(kTurningRoot, at.w);
    const Extended scale = std::cbrt(at.order / 2);
    const Extended square = scale * scale * root * root;
    const AiryPair pair = airy(square * root * root * at.w);
    const double w = static_cast<double>(at.w);
    const Extended first = SmallSeries(kTurningA1, w) / (at.order * at.order);
    const Extended second = SmallSeries(kTurningB0, w) / (scale * scale * scale * scale);
    return root / scale * (pair.value * (1 + first) + pair.derivative * second);
}

/// The sums of U(k)/order^k over even and odd k, for x above the order with the powers of i left
/// out: then of (-1)^j U(2j) and (-1)^j U(2j+1).
struct DebyeSums {
    Extended even;
    Extended odd;
};

DebyeSums DebyeSumsAt(const Place& at) {
    const double square = static_cast<double>(1 / at.w);
    const double r = static_cast<double>(1 / at.s);
    const double turn = at.w > 0 ? r * r : -r * r;
    double even = 0;
    double odd = 0;
    double power = 1;
    for (std::size_t k = 0; k < std::size(kDebye); k += 2) {
        odd += power * r * SmallSeries(kDebye[k], square);
        power *= turn;
        even += power * SmallSeries(kDebye[k + 1], square);
    }
    return {1 + Extended{even}, odd};
}

/// order alpha - s with cosh(alpha) = order/x, tanh(alpha) = s/order; infinite for the least x.
Extended Exponent(const Place& at) {
    const Extended t = at.s / at.order;
    return at.order * (std::log1p(2 * t / (1 - t)) / 2) - at.s;
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

Extended LargeOrderJ(double order, Extended x) {
    const Place at = PlaceOf(order, x);
    if (IsTurning(at)) return Turning(at, AiryAiPair);
    const DebyeSums sums = DebyeSumsAt(at);
    if (at.w > 0) return ExpOf(-Exponent(at)) / std::sqrt(2 * kPi * at.s) * (sums.even + sums.odd);
    const auto [c, s] = PhaseAt(at);
    return std::sqrt(2 / (kPi * at.s)) * (c * sums.even + s * sums.odd);
}

Extended LargeOrderY(double order, Extended x) {
    const Place at = PlaceOf(order, x);
    if (IsTurning(at)) return -Turning(at, AiryBiPair);
    const DebyeSums sums = DebyeSumsAt(at);
    if (at.w > 0)
        return -ExpOf(Exponent(at)) * std::sqrt(2 / (kPi * at.s)) * (sums.even - sums.odd);
    const auto [c, s] = PhaseAt(at);
    return std::sqrt(2 / (kPi * at.s)) * (s * sums.even - c * sums.odd);
}

}  // namespace kalvex::specfun
