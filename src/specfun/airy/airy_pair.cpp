// Near zero a Taylor series about the nearest whole number, by the recurrence that the equation
// y'' = x y gives for its coefficients; value and slope there come from a table by
// scripts/make-large-order-coefficients. Beyond, the asymptotic series in 1/zeta, zeta = 2/3
// |y|^(3/2) (DLMF 9.7.5 to 9.7.12), whose least term is exp(-2 zeta), there 2^-80. Its terms are
// small beside the first, so that plain doubles hold them.
#include "specfun/airy/airy_pair.h"

#include <array>
#include <cmath>
#include <numbers>

#include "base/truncate.h"
#include "specfun/airy/airy_pair_table.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kRootOfPi = 1.77245385090551602729816748334L;

/// Terms of the Taylor series: sqrt(12)^k / (2^k k!) is below 2^-66 at the last.
constexpr std::size_t kTerms = 28;

/// 1/((k+1)(k+2)).
constexpr auto kReciprocals = [] {
    std::array<Extended, kTerms> all{};
    for (std::size_t k = 0; k < all.size(); ++k)
        all[k] = Extended{1} / static_cast<Extended>((k + 1) * (k + 2));
    return all;
}();

/// |y| up to kAiryTableEnd.
AiryPair NearAiry(const AiryEntry* table, Extended y) {
    const int middle = TruncateToInt32(static_cast<double>(std::floor(y + Extended{0.5})));
    const AiryEntry& entry = table[middle + kAiryTableEnd];
    const Extended step = y - middle;
    std::array<Extended, kTerms> coefficients{};
    coefficients[0] = entry.value;
    coefficients[1] = entry.derivative;
    coefficients[2] = middle * entry.value / 2;
    for (std::size_t k = 1; k + 2 < kTerms; ++k)
        coefficients[k + 2] = (middle * coefficients[k] + coefficients[k - 1]) * kReciprocals[k];
    AiryPair sum{0, 0};
    for (std::size_t k = kTerms; k-- > 0;) {
        sum.derivative = sum.derivative * step + sum.value;
        sum.value = sum.value * step + coefficients[k];
    }
    return sum;
}

/// The sums of u(k) r^k and v(k) r^k over even and odd k (DLMF 9.7.2).
struct ZetaSeries {
    Extended even;
    Extended odd;
    Extended slopeEven;
    Extended slopeOdd;
};

/// r = 1/zeta; `turn` is the sign of the square of r: 1 for positive y, -1 for negative y.
ZetaSeries SeriesInZeta(double r, double turn) {
    constexpr double kNegligible = 0x1p-66;
    double even = 0;
    double odd = 0;
    double slopeEven = 0;
    double slopeOdd = 0;
    double term = 1;
    for (double k = 1; std::fabs(term) > kNegligible; k += 2) {
        const double odds = 6 * k;
        term *= r * (odds - 5) * (odds - 3) * (odds - 1) / (216 * k * (2 * k - 1));
        odd += term;
        slopeOdd -= term * (odds + 1) / (odds - 1);
        const double evens = odds + 6;
        term *= turn * r * (evens - 5) * (evens - 3) * (evens - 1) / (216 * (k + 1) * (2 * k + 1));
        even += term;
        slopeEven -= term * (evens + 1) / (evens - 1);
    }
    return {1 + Extended{even}, odd, 1 + Extended{slopeEven}, slopeOdd};
}

/// What the functions have in common beyond the table.
struct Far {
    Extended zeta;
    Extended root;  ///< |y|^(1/4)
    ZetaSeries series;
};

Far FarFrom(Extended y) {
    const Extended size = std::fabs(y);
    const Extended half = std::sqrt(size);
    const Extended zeta = size * half * 2 / 3;
    const ZetaSeries series = SeriesInZeta(1 / static_cast<double>(zeta), y > 0 ? 1 : -1);
    return {zeta, std::sqrt(half), series};
}

/// Cosine and sine of zeta - pi/4.
CosineSine Turned(Extended zeta) {
    const auto [cosine, sine] = CosineSineOf(zeta);
    constexpr Extended kHalf = std::numbers::sqrt2_v<Extended> / 2;
    return {(cosine + sine) * kHalf, (sine - cosine) * kHalf};
}

bool IsNear(Extended y) {
    return std::fabs(y) <= kAiryTableEnd;
}

}  // namespace

AiryPair AiryAiPair(Extended y) {
    if (IsNear(y)) return NearAiry(kAiTable, y);
    const auto [zeta, root, series] = FarFrom(y);
    if (y > 0) {
        const Extended scale = ExpOf(-zeta) / (2 * kRootOfPi);
        return {scale / root * (series.even - series.odd),
                -scale * root * (series.slopeEven - series.slopeOdd)};
    }
    const auto [c, s] = Turned(zeta);
    return {(c * series.even + s * series.odd) / (kRootOfPi * root),
            (s * series.slopeEven - c * series.slopeOdd) * root / kRootOfPi};
}

AiryPair AiryBiPair(Extended y) {
    if (IsNear(y)) return NearAiry(kBiTable, y);
    const auto [zeta, root, series] = FarFrom(y);
    if (y > 0) {
        const Extended scale = ExpOf(zeta) / kRootOfPi;
        return {scale / root * (series.even + series.odd),
                scale * root * (series.slopeEven + series.slopeOdd)};
    }
    const auto [c, s] = Turned(zeta);
    return {(c * series.odd - s * series.even) / (kRootOfPi * root),
            (c * series.slopeEven + s * series.slopeOdd) * root / kRootOfPi};
}

}  // namespace kalvex::specfun
