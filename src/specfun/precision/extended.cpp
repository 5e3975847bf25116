// Logarithm and exponential take the nearest entry of a table off, so that of the series of the
// rest all but its first term is small enough for doubles. Sine and cosine take multiples of a
// quarter turn off. The tables are by scripts/make-extended-tables.
#include "specfun/precision/extended.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "base/truncate.h"
#include "specfun/precision/extended_tables.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;
constexpr Extended kLn2 = std::numbers::ln2_v<Extended>;

/// 1/(2k)! and 1/(2k+1)! with alternating signs.
constexpr auto kCosine = Coefficients({
    1.00000000000000000000000L,
    -5.00000000000000000000000e-1L,
    4.16666666666666666666667e-2L,
    -1.38888888888888888888889e-3L,
    2.48015873015873015873016e-5L,
    -2.75573192239858906525573e-7L,
    2.08767569878680989792101e-9L,
    -1.14707455977297247138517e-11L,
    4.77947733238738529743821e-14L,
    -1.56192069685862264622164e-16L,
    4.11031762331216485847799e-19L,
    -8.89679139245057328674890e-22L,
});
constexpr auto kSine = Coefficients({
    1.00000000000000000000000L,
    -1.66666666666666666666667e-1L,
    8.33333333333333333333333e-3L,
    -1.98412698412698412698413e-4L,
    2.75573192239858906525573e-6L,
    -2.50521083854417187750521e-8L,
    1.60590438368216145993924e-10L,
    -7.64716373181981647590113e-13L,
    2.81145725434552076319895e-15L,
    -8.22063524662432971695598e-18L,
    1.95729410633912612308476e-20L,
    -3.86817017063068403771691e-23L,
});

/// pi/2 in parts of 33 bits and the rest.
constexpr Extended kHalfPi1 = 0x1921fb544p-32L;
constexpr Extended kHalfPi2 = 0x10b4611a6p-66L;
constexpr Extended kHalfPi3 = 2.02226624879595073239968e-21L;

/// The nearest whole number, |x| < 2^62; quicker than the library's. The shift leaves no fraction,
/// however many digits the format has.
Extended Nearest(Extended x) {
    constexpr Extended kShift = 1.5L / std::numeric_limits<Extended>::epsilon();
    return (x + kShift) - kShift;
}

/// For |angle| up to a little more than pi/4.
CosineSine NearZero(Extended angle) {
    const Extended square = angle * angle;
    return {Polynomial(kCosine, square), angle * Polynomial(kSine, square)};
}

/// Turned by whole quarter turns.
CosineSine Turned(CosineSine point, Extended quarters) {
    const auto [c, s] = point;
    switch (TruncateToInt32(static_cast<double>(quarters - 4 * Nearest(quarters / 4)))) {
        case 1:
            return {-s, c};
        case 2:
        case -2:
            return {-c, -s};
        case -1:
            return {s, -c};
        default:
            return {c, s};
    }
}

/// ln(1 + r) = r + r^2 times this series, |r| < 0.012.
constexpr double kLogSeries[] = {-1.0 / 2, 1.0 / 3,  -1.0 / 4, 1.0 / 5,  -1.0 / 6,
                                 1.0 / 7,  -1.0 / 8, 1.0 / 9,  -1.0 / 10};
/// exp(r) - 1 = r + r^2 times this series, |r| < 0.011.
constexpr double kExpSeries[] = {1.0 / 2,   1.0 / 6,    1.0 / 24,   1.0 / 120,
                                 1.0 / 720, 1.0 / 5040, 1.0 / 40320};

template <std::size_t count>
Extended WithSeries(const double (&series)[count], Extended r) {
    const double argument = static_cast<double>(r);
    double sum = 0;
    for (std::size_t i = count; i-- > 0;)
        sum = sum * argument + series[i];
    return r + argument * argument * sum;
}

/// exp(t) = 2^exponent (1 + rise) (1 + rest).
struct TakenApart {
    int exponent;
    Extended rise;
    Extended rest;
};

TakenApart TakeApart(Extended t) {
    // ln 2 / 32 in 41 bits, whose multiples here are exact, and the rest.
    constexpr Extended kPart1 = 0x162e42fefa3p-46L;
    constexpr Extended kPart2 = 8.82352830094736785080889e-15L;
    const Extended parts = Nearest(t * (32 / kLn2));
    const Extended r = (t - parts * kPart1) - parts * kPart2;
    const int whole = TruncateToInt32(static_cast<double>(parts));
    const int index = whole & 31;
    return {(whole - index) / 32, kRises[index], WithSeries(kExpSeries, r)};
}

Extended PowerOfTwo(int exponent) {
    if (std::abs(exponent) > 1000) return std::ldexp(Extended{1}, exponent);
    return std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52);
}

}  // namespace

Extended LogOfHalf(double x) {
    int exponent = 0;
    const double fraction = 2 * std::frexp(x, &exponent);
    const int index = TruncateToInt32((fraction - 1) * 64);
    // Exact: 53 bits and 8.
    const Extended r = Extended{fraction} * (kInverses[index] / 256) - 1;
    return (exponent - 2) * kLn2 + (kLogarithms[index] + WithSeries(kLogSeries, r));
}

Extended ExpOf(Extended t) {
    if (!(std::fabs(t) <= 11000)) return std::exp(t);
    const auto [exponent, rise, rest] = TakeApart(t);
    return (1 + (rise + (1 + rise) * rest)) * PowerOfTwo(exponent);
}

Extended ExpMinusOneOf(Extended t) {
    const auto [exponent, rise, rest] = TakeApart(t);
    const Extended base = exponent < 0 ? (rise - 1) / 2 : rise;
    return base + (1 + base) * rest;
}

CosineSine CosineSinePi(Extended t) {
    const Extended halves = Nearest(2 * t);
    return Turned(NearZero(kPi * (t - halves / 2)), halves);
}

CosineSine CosineSineOf(Extended x) {
    // The quarter turns times the leading parts of pi/2 are exact up to here.
    constexpr Extended kReducible = 0x1p30L;
    if (std::fabs(x) > kReducible) return {std::cos(x), std::sin(x)};
    const Extended quarters = Nearest(x * (2 / kPi));
    return Turned(NearZero(((x - quarters * kHalfPi1) - quarters * kHalfPi2) - quarters * kHalfPi3),
                  quarters);
}

}  // namespace kalvex::specfun
