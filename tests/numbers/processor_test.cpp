// Functions that are compiled for two processors give the same bits as portable ones.
#include "numbers/processor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "numbers/double_double.h"

namespace kalvex {
namespace {

DoubleDouble Polynomial(DoubleDouble x) {
    DoubleDouble sum = {1, 0};
    for (int k = 20; k > 0; --k)
        sum = kPi * static_cast<double>(k) + sum * x / static_cast<double>(k + 1);
    return LooseQuotient(sum, x * x + 1);
}

KALVEX_WITH_FMA
DoubleDouble PolynomialForTwoProcessors(DoubleDouble x) {
    return Polynomial(x);
}

TEST(Processor, ChangesNoBit) {
    std::mt19937_64 generator(3);
    std::uniform_real_distribution<double> values(-2, 2);
    for (int i = 0; i < 10000; ++i) {
        const DoubleDouble x = QuickTwoSum(values(generator), values(generator) * 0x1p-56);
        const DoubleDouble expected = Polynomial(x);
        const DoubleDouble computed = PolynomialForTwoProcessors(x);
        EXPECT_EQ(computed.high, expected.high) << x.high << " + " << x.low;
        EXPECT_EQ(computed.low, expected.low) << x.high << " + " << x.low;
    }
}

// Every processor with the later instructions has the earlier ones too.
TEST(Processor, HasNoGapsInItsFeatures) {
    const ProcessorFeatures has = FeaturesOfProcessor();
    EXPECT_TRUE(!has.avx512 || (has.avx2 && has.fma));
}

}  // namespace
}  // namespace kalvex
