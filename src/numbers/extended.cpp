// Logarithm and exponential split off the nearest entry of a table. The rest is so small that only
// the first term of its series needs more than a double. Sine and cosine subtract multiples of a
// quarter turn; for large arguments they do so with as many digits of 2/pi as matter (Payne and
// Hanek, 1983). The angle starts from a short series and is corrected by the sine and cosine of
// that first value. scripts/make-extended-tables makes the tables.
#include "numbers/extended.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

#include "numbers/extended_tables.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

/// The nearest whole number, |x| < 2^51; quicker than the library's.
double Nearest(double x) {
    constexpr double kShift = 0x1.8p52;
    return (x + kShift) - kShift;
}

double PowerOfTwo(int exponent) {
    if (std::abs(exponent) > 1000) return std::ldexp(1.0, exponent);
    return std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52);
}

/// ln(1 + r) = r + r^2 times this series, |r| < 0.012.
constexpr double kLogSeries[] = {-1.0 / 2, 1.0 / 3,  -1.0 / 4, 1.0 / 5,  -1.0 / 6,
                                 1.0 / 7,  -1.0 / 8, 1.0 / 9,  -1.0 / 10};
/// exp(r) - 1 = r + r^2 times this series, |r| < 0.011.
constexpr double kExpSeries[] = {1.0 / 2,   1.0 / 6,    1.0 / 24,   1.0 / 120,
                                 1.0 / 720, 1.0 / 5040, 1.0 / 40320};

template <std::size_t count>
DoubleDouble WithSeries(const double (&series)[count], DoubleDouble r) {
    double sum = 0;
    for (std::size_t i = count; i-- > 0;)
        sum = sum * r.high + series[i];
    return QuickTwoSum(r.high, r.low + r.high * r.high * sum);
}

/// exp(t) = 2^exponent (1 + rise) (1 + rest).
struct TakenApart {
    int exponent;
    DoubleDouble rise;
    DoubleDouble rest;
};

/// |t| up to 2^14.
TakenApart TakeApart(DoubleDouble t) {
    constexpr double kPartsPerUnit = 46.166241308446828384;
    const double parts = Nearest(t.high * kPartsPerUnit);
    // Both products are exact, since the parts of ln 2 have 33 bits.
    const DoubleDouble most = TwoSum(t.high - parts * kLn2Part1, -parts * kLn2Part2);
    const DoubleDouble r = QuickTwoSum(most.high, most.low + (t.low - parts * kLn2Part3));
    const int whole = TruncateToInt32(parts);
    const int index = whole & 31;
    return {(whole - index) / 32, kRises[index], WithSeries(kExpSeries, r)};
}

/// For |angle| up to a little more than pi/4.
CosineSine NearZero(DoubleDouble angle) {
    const DoubleDouble square = angle * angle;
    return {Polynomial(kCosine, square), angle * Polynomial(kSine, square)};
}

/// The point turned by whole quarter turns.
CosineSine Turned(CosineSine point, int quarters) {
    const auto [c, s] = point;
    switch (quarters & 3) {
        case 1:
            return {-s, c};
        case 2:
            return {-c, -s};
        case 3:
            return {s, -c};
        default:
            return {c, s};
    }
}

/// The remainder of an angle after whole quarter turns have been subtracted, and their number
/// modulo four.
struct Reduced {
    int quarters;
    DoubleDouble rest;
};

constexpr std::size_t kWords = 6;
using Words = std::array<std::uint32_t, kWords>;

/// factor times the 192 bits of 2/pi that begin at bit `first`, modulo 2^192. The first word is the
/// highest.
Words ProductWithBits(std::uint64_t factor, int first) {
    const std::size_t word = static_cast<std::size_t>(first / 32);
    const int shift = first % 32;
    const std::uint64_t low = factor & 0xffffffff;
    const std::uint64_t high = factor >> 32;
    Words product{};
    std::uint64_t carry = 0;
    std::uint64_t before = 0;  // the word one lower
    for (std::size_t i = kWords; i-- > 0;) {
        const std::uint64_t both =
            std::uint64_t{kTwoOverPi[word + i]} << 32 | kTwoOverPi[word + i + 1];
        const std::uint64_t bits = both >> (32 - shift) & 0xffffffff;
        const std::uint64_t main = low * bits;
        const std::uint64_t upper = high * before;
        const std::uint64_t sum = (main & 0xffffffff) + (upper & 0xffffffff) + carry;
        product[i] = static_cast<std::uint32_t>(sum);
        carry = (main >> 32) + (upper >> 32) + (sum >> 32);
        before = bits;
    }
    return product;
}

/// For x of 2^-8 or more. x is factor 2^exponent. Of the quotient x / (pi/2) only the whole part
/// modulo four and 137 bits of the fraction matter.
Reduced ReduceLarge(double x) {
    int exponent = 0;
    const double fraction = std::frexp(x, &exponent);
    const auto factor = static_cast<std::uint64_t>(std::ldexp(fraction, 53));
    // The table begins with 64 bits that are 0, so that the index is never negative.
    Words bits = ProductWithBits(factor, exponent - 53 + 62);
    int quarters = static_cast<int>(bits[0] >> 30);
    bits[0] &= 0x3fffffff;
    const bool above = bits[0] >> 29 != 0;
    if (above) ++quarters;
    DoubleDouble rest{above ? -1.0 : 0.0};
    double unit = 0x1p-30;
    for (const std::uint32_t word : bits) {
        rest += word * unit;
        unit *= 0x1p-32;
    }
    return {quarters, rest * kHalfPi};
}

Reduced Reduce(double x) {
    // Up to here the products of the number of quarter turns and the leading parts of pi/2 are
    // exact.
    constexpr double kEnd = 0x1p19;
    if (std::fabs(x) > kEnd) {
        const Reduced large = ReduceLarge(std::fabs(x));
        return x > 0 ? large : Reduced{-large.quarters, -large.rest};
    }
    constexpr double kPerQuarter = 0.63661977236758134308;
    const double quarters = Nearest(x * kPerQuarter);
    const DoubleDouble most = TwoSum(x - quarters * kHalfPi1, -quarters * kHalfPi2);
    return {TruncateToInt32(quarters), QuickTwoSum(most.high, most.low - quarters * kHalfPi3)};
}

/// atan(t) for t from 0 to 2, absolute error below 2^-16.
double RoughAngle(double t) {
    constexpr double kQuarterPi = 0.78539816339744830962;
    const bool steep = t > 0.41421356237309504880;
    const double z = steep ? (t - 1) / (t + 1) : t;
    const double q = z * z;
    const double angle = z * (1 - q * (1.0 / 3 - q * (1.0 / 5 - q * (1.0 / 7 - q * (1.0 / 9)))));
    return steep ? kQuarterPi + angle : angle;
}

}  // namespace

double ToDouble(Scaled a) {
    return std::ldexp(ToDouble(a.value), a.exponent);
}

Scaled Sum(Scaled a, Scaled b) {
    if (a.value.high == 0) return b;
    if (b.value.high == 0) return a;
    if (a.exponent < b.exponent) return Sum(b, a);
    const int lower = b.exponent - a.exponent;
    if (lower < -2000) return a;
    return {LooseSum(a.value, TimesPower(b.value, PowerOfTwo(lower))), a.exponent};
}

KALVEX_WITH_FMA
DoubleDouble LogOf(DoubleDouble a) {
    int exponent = 0;
    const double fraction = 2 * std::frexp(a.high, &exponent);
    const double lower = 2 * std::ldexp(a.low, -exponent);
    const int index = TruncateToInt32((fraction - 1) * 64);
    const double inverse = kInverses[index] / 256;
    const DoubleDouble product = TwoProduct(fraction, inverse);
    const DoubleDouble r = QuickTwoSum(product.high - 1, product.low + lower * inverse);
    const DoubleDouble rest = LooseSum(kLogarithms[index], WithSeries(kLogSeries, r));
    return LooseSum(kLn2 * static_cast<double>(exponent - 1), rest);
}

KALVEX_WITH_FMA
Scaled ExpOf(DoubleDouble t) {
    constexpr double kEnd = 12000;
    if (!(std::fabs(t.high) <= kEnd)) return {{1, 0}, t.high > 0 ? 30000 : -30000};
    const auto [exponent, rise, rest] = TakeApart(t);
    return {1 + LooseSum(rise, (1 + rise) * rest), exponent};
}

KALVEX_WITH_FMA
DoubleDouble ExpMinusOneOf(DoubleDouble t) {
    const auto [exponent, rise, rest] = TakeApart(t);
    const DoubleDouble base = exponent < 0 ? (rise - 1) * 0.5 : rise;
    return LooseSum(base, (1 + base) * rest);
}

KALVEX_WITH_FMA
DoubleDouble AngleOf(DoubleDouble y, DoubleDouble x) {
    const double rough = RoughAngle(y.high / x.high);
    const auto [c, s] = NearZero({rough / 2, 0});
    // Cosine and sine of the rough angle, from those of its half.
    const DoubleDouble cosine = 1 - 2 * (s * s);
    const DoubleDouble sine = 2 * (s * c);
    const DoubleDouble tangent =
        LooseQuotient(LooseDifference(y * cosine, x * sine), LooseSum(x * cosine, y * sine));
    const double cube = tangent.high * tangent.high * tangent.high;
    return rough + (tangent - cube / 3);
}

KALVEX_WITH_FMA
CosineSine CosineSinePi(DoubleDouble t) {
    const double halves = Nearest(2 * t.high);
    return Turned(NearZero(kPi * (t - halves / 2)), TruncateToInt32(halves));
}

KALVEX_WITH_FMA
CosineSine CosineSineOf(DoubleDouble x) {
    constexpr double kSmall = 1e-3;
    Reduced reduced = Reduce(x.high);
    if (std::fabs(x.low) < kSmall) {
        reduced.rest += x.low;
        return Turned(NearZero(reduced.rest), reduced.quarters);
    }
    const Reduced lower = Reduce(x.low);
    const CosineSine back = Turned(NearZero(-lower.rest), -lower.quarters);
    return TurnedBack(Turned(NearZero(reduced.rest), reduced.quarters), back);
}

KALVEX_WITH_FMA
CosineSine CosineSineLess(double x, DoubleDouble t) {
    // Up to here x - pi t is accurate enough as a double-double.
    constexpr double kTogether = 0x1p30;
    if (std::fabs(x) < kTogether) return CosineSineOf(x - kPi * t);
    return TurnedBack(CosineSineOf({x, 0}), CosineSinePi(t));
}

}  // namespace kalvex
