// A Taylor series about the nearest multiple of 1/4. Its coefficients come from the recurrence that
// the equation y'' = x y gives; value and slope at the multiple come from a table made by
// scripts/make-large-order-coefficients. From the sixth term on the terms are so small that plain
// doubles suffice.
#include "specfun/airy/airy_pair.h"

#include <cmath>

#include "numbers/truncate.h"
#include "specfun/airy/airy_pair_table.h"

namespace kalvex::specfun {
namespace {

/// Terms of the Taylor series: sqrt(13)^k / (8^k k!) is below 2^-66 at the last.
constexpr int kTerms = 17;
constexpr int kHead = 5;

AiryPair NearAiry(const AiryEntry* table, DoubleDouble y) {
    const int quarters = TruncateToInt32(std::floor(4 * y.high + 0.5));
    const double middle = quarters / 4.0;
    const AiryEntry& entry = table[quarters + 4 * kAiryTableEnd];
    const DoubleDouble step = y - middle;
    DoubleDouble head[kHead] = {entry.value, entry.derivative, {}, {}, {}};
    double all[kTerms];
    for (int k = 0; k + 2 < kTerms; ++k) {
        const double divisor = (k + 1) * (k + 2);
        if (k + 2 < kHead) {
            const DoubleDouble sum = middle * head[k];
            head[k + 2] = LooseQuotient(k == 0 ? sum : LooseSum(sum, head[k - 1]), divisor);
        }
        all[k] = k < kHead ? head[k].high : all[k];
        all[k + 2] = (middle * all[k] + (k == 0 ? 0 : all[k - 1])) / divisor;
    }
    double tail = 0;
    double derivative = 0;
    for (int k = kTerms; k-- > kHead;) {
        derivative = derivative * step.high + tail;
        tail = tail * step.high + all[k];
    }
    DoubleDouble value{tail};
    for (int k = kHead; k-- > 0;) {
        derivative = derivative * step.high + value.high;
        value = LooseSum(value * step, head[k]);
    }
    return {value, derivative};
}

}  // namespace

KALVEX_WITH_FMA
AiryPair AiryAiPair(DoubleDouble y) {
    return NearAiry(kAiTable, y);
}

KALVEX_WITH_FMA
AiryPair AiryBiPair(DoubleDouble y) {
    return NearAiry(kBiTable, y);
}

}  // namespace kalvex::specfun
