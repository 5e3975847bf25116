// The power series of J and I (DLMF 10.2.2, 10.25.2), its factor by a product; the ratio of
// neighbouring orders by Olver's algorithm: the recurrence upward tells how far to go for the
// truncation not to matter, downward from there it is stable. Taylor coefficients of 1/Gamma by
// scripts/make-bessel-coefficients.
#include "specfun/bessel_common.h"

#include <cmath>
#include <numbers>

#include "base/truncate.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

/// Coefficients of 1/Gamma(1 + t) at even powers of t.
constexpr Extended kEven[] = {
    1.00000000000000000000000L,        -0.655878071520253881077020L,
    0.166538611382291489501701L,       -0.00962197152787697356211492L,
    -0.00116516759185906511211397L,    0.000128050282388116186153199L,
    -0.00000125049348214267065734536L, -0.000000205633841697760710345015L,
    5.00200764446922293005567e-9L,     1.04342671169110051049154e-10L,
    -3.69680561864220570818782e-12L,   -2.05832605356650678322243e-14L,
    1.22677862823826079015889e-15L,
};

/// At odd powers.
constexpr Extended kOdd[] = {
    0.577215664901532860606512L,      -0.0420026350340952355290039L,
    -0.0421977345555443367482083L,    0.00721894324666309954239501L,
    -0.000215241674114950972815730L,  -0.0000201348547807882386556894L,
    0.00000113302723198169588237413L, 6.11609510448141581786250e-9L,
    -1.18127457048702014458813e-9L,   7.78226343990507125404994e-12L,
    5.10037028745447597901548e-13L,   -5.34812253942301798237002e-15L,
    -1.18125930169745876951376e-16L,
};

template <std::size_t count>
Extended Polynomial(const Extended (&coefficients)[count], Extended t) {
    Extended sum = 0;
    for (std::size_t i = count; i-- > 0;)
        sum = sum * t + coefficients[i];
    return sum;
}

/// 1/(2k)! and 1/(2k+1)! with alternating signs.
constexpr Extended kCosine[] = {
    1.00000000000000000000000L,     -5.00000000000000000000000e-1L,
    4.16666666666666666666667e-2L,  -1.38888888888888888888889e-3L,
    2.48015873015873015873016e-5L,  -2.75573192239858906525573e-7L,
    2.08767569878680989792101e-9L,  -1.14707455977297247138517e-11L,
    4.77947733238738529743821e-14L, -1.56192069685862264622164e-16L,
    4.11031762331216485847799e-19L, -8.89679139245057328674890e-22L,
};
constexpr Extended kSine[] = {
    1.00000000000000000000000L,     -1.66666666666666666666667e-1L,
    8.33333333333333333333333e-3L,  -1.98412698412698412698413e-4L,
    2.75573192239858906525573e-6L,  -2.50521083854417187750521e-8L,
    1.60590438368216145993924e-10L, -7.64716373181981647590113e-13L,
    2.81145725434552076319895e-15L, -8.22063524662432971695598e-18L,
    1.95729410633912612308476e-20L, -3.86817017063068403771691e-23L,
};

/// pi/2 in parts of 33 bits and the rest.
constexpr Extended kHalfPi1 = 0x1921fb544p-32L;
constexpr Extended kHalfPi2 = 0x10b4611a6p-66L;
constexpr Extended kHalfPi3 = 2.02226624879595073239968e-21L;

/// The nearest whole number, |x| < 2^62; quicker than the library's.
Extended Nearest(Extended x) {
    constexpr Extended kShift = 0x1.8p63L;
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

}  // namespace

SplitOrder Split(double order) {
    const double whole = std::floor(order + 0.5);
    return {TruncateToInt32(whole), Extended{order} - whole};
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

Extended IntegerPower(Extended x, int n) {
    Extended result = 1;
    for (Extended power = x; n > 0; n /= 2, power *= power) {
        if (n % 2 != 0) result *= power;
    }
    return result;
}

ReciprocalGamma ReciprocalGammaParts(Extended part) {
    const Extended square = part * part;
    return {Polynomial(kEven, square), Polynomial(kOdd, square)};
}

Extended LeadingFactor(double order, Extended x) {
    if (order > 1000) return 0;
    const auto [whole, part] = Split(order);
    const auto [even, odd] = ReciprocalGammaParts(part);
    Extended gamma = 1;
    for (int k = 1; k <= whole; ++k)
        gamma *= k + part;
    const Extended half = x / 2;
    const Extended power = IntegerPower(half, whole) / gamma * (even + part * odd);
    return part == 0 ? power : power * std::exp(part * std::log(half));
}

Extended PowerSeries(Extended order, Extended q) {
    constexpr Extended kNegligible = 0x1p-68L;
    Extended sum = 1;
    Extended term = 1;
    for (Extended k = 1; std::fabs(term) > kNegligible * sum; ++k) {
        term *= q / (k * (order + k));
        sum += term;
    }
    return sum;
}

Extended RatioOfVanishing(Extended order, Extended x, int sign) {
    // The error left is the sum of 1/(p(k) p(k+1)) over the rest, p being the growing solution.
    constexpr Extended kEnough = 0x1p35L;
    const Extended scale = 2 / x;
    Extended before = 0;
    Extended current = 1;
    int last = 1;
    for (; current < kEnough; ++last) {
        const Extended next = scale * (order + last) * current - sign * before;
        before = current;
        current = next;
    }
    Extended above = 0;
    Extended value = 0x1p-16000L;
    for (int k = last; k > 0; --k) {
        const Extended below = scale * (order + k) * value - sign * above;
        above = value;
        value = below;
    }
    return above / value;
}

}  // namespace kalvex::specfun
