// The power series of J and I (DLMF 10.2.2, 10.25.2), its factor by a product; the ratio of
// neighbouring orders by Olver's algorithm: the recurrence upward tells how far to go for the
// truncation not to matter, downward from there it is stable. Taylor coefficients of 1/Gamma by
// scripts/make-bessel-coefficients.
#include "specfun/bessel/common.h"

#include <cmath>

#include "base/truncate.h"

namespace kalvex::specfun {
namespace {

/// Coefficients of 1/Gamma(1 + t) at even powers of t.
constexpr auto kEven = Coefficients({
    1.00000000000000000000000L,
    -0.655878071520253881077020L,
    0.166538611382291489501701L,
    -0.00962197152787697356211492L,
    -0.00116516759185906511211397L,
    0.000128050282388116186153199L,
    -0.00000125049348214267065734536L,
    -0.000000205633841697760710345015L,
    5.00200764446922293005567e-9L,
    1.04342671169110051049154e-10L,
    -3.69680561864220570818782e-12L,
    -2.05832605356650678322243e-14L,
    1.22677862823826079015889e-15L,
});

/// At odd powers.
constexpr auto kOdd = Coefficients({
    0.577215664901532860606512L,
    -0.0420026350340952355290039L,
    -0.0421977345555443367482083L,
    0.00721894324666309954239501L,
    -0.000215241674114950972815730L,
    -0.0000201348547807882386556894L,
    0.00000113302723198169588237413L,
    6.11609510448141581786250e-9L,
    -1.18127457048702014458813e-9L,
    7.78226343990507125404994e-12L,
    5.10037028745447597901548e-13L,
    -5.34812253942301798237002e-15L,
    -1.18125930169745876951376e-16L,
});

}  // namespace

SplitOrder Split(double order) {
    const double whole = std::floor(order + 0.5);
    return {TruncateToInt32(whole), Extended{order} - whole};
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
    return part == 0 ? power : power * ExpOf(part * LogOfHalf(static_cast<double>(x)));
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
