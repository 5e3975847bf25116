// The hypergeometric sums with numbers of many digits, and the integers that serve as their
// counters.
#include "specfun/hypergeometric/wide_sum.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numbers/wide_functions.h"
#include "specfun/hypergeometric/wide_value.h"

namespace kalvex::specfun {
namespace {

// Counts past 0 and across the borders of limbs, and back to the first number.
TEST(Counter, CountsExactly) {
    for (const double a :
         {-3.0, -2.5, 0.0, 7.0, -0x1p-100, 0x1.8p-64, -5 + 0x1p-50, 4e9, -300.75}) {
        Counter counter(WideOf<6>(a));
        ASSERT_FALSE(counter.failed) << a;
        for (int k = 0; k < 600; ++k) {
            const Wide<6> exact = Add(WideOf<6>(a), WideOf<6>(k));
            Factor expected;
            ASSERT_TRUE(SetInteger(exact, counter.scale, expected));
            ASSERT_EQ(counter.magnitude.count, expected.count) << a << " " << k;
            for (std::size_t i = 0; i < expected.count; ++i)
                ASSERT_EQ(counter.magnitude.digits[i], expected.digits[i]) << a << " " << k;
            if (exact.sign != 0) {
                ASSERT_EQ(counter.negative, exact.sign < 0) << a << " " << k;
            }
            counter.Next();
        }
    }
    EXPECT_TRUE(Counter(WideOf<6>(0x1p-300)).failed);
    EXPECT_TRUE(Counter(WideOf<6>(0x1p300)).failed);
}

// F(a,b;a;z) = (1-z)^(-b): the error bound holds and is not much too large. At a pole (c = -3)
// there is no sum.
TEST(WideSum, KnowsItsErrors) {
    const double z = 0.375;
    for (const double b : {0.5, 7.25, -20.5, 0x1p-80}) {
        const WideParameters p = {WideOf<6>(2.5), WideOf<6>(b), WideOf<6>(2.5)};
        const WideSum<4> sum = SumWide<4, true>(p, {WideOf<6>(z)}, 200);
        ASSERT_FALSE(sum.failed);
        const Wide<8> base = Subtract(WideOf<8>(1), WideOf<8>(z));
        const Wide<8> exact = Exp(Multiply(WideOf<8>(-b), Log(base)));
        const Wide<8> slope = Multiply(exact, Divide(WideOf<8>(b * z), base));
        EXPECT_LE(SizeOf(Subtract(WideOf<8>(sum.value.value), exact)), sum.value.error) << b;
        EXPECT_LE(SizeOf(Subtract(WideOf<8>(sum.slope.value), slope)), sum.slope.error) << b;
        EXPECT_LE(sum.value.error, SizeOf(exact) - 120) << b;
        // z/(z-1) as a quotient
        const WideSum<6> other = SumWide<6, false, 3>(p, {WideOf<6>(z), WideOf<6>(z - 1)}, 100);
        const Wide<8> ofOther = Exp(Multiply(WideOf<8>(b), Log(base)));
        EXPECT_LE(SizeOf(Subtract(WideOf<8>(other.value.value), ofOther)), other.value.error) << b;
        EXPECT_LE(other.value.error, SizeOf(ofOther) - 80) << b;
    }
    const WideParameters pole = {WideOf<6>(2.5), WideOf<6>(1), WideOf<6>(-3)};
    EXPECT_TRUE((SumWide<4, true>(pole, {WideOf<6>(z)}, 200).failed));
}

// By the sums, and next to x = 1 by joining: F(a,b;c;x) is a polynomial, a power or a logarithm.
TEST(WideSum, HasValuesInClosedForm) {
    const auto value = [](double a, double b, double c, double x) {
        const Value found = WideValue({{a, 0}, {b, 0}, {c, 0}}, x);
        EXPECT_LT(found.relative, 0x1p-70) << a << " " << b << " " << c << " " << x;
        return std::ldexp(ToDouble(found.fraction), found.exponent);
    };
    for (const double x : {-0.99, -0.25, 0.5, 0.875, 0.96875, 1 - 0x1p-30}) {
        EXPECT_DOUBLE_EQ(value(-2, 1, 1, x), (1 - x) * (1 - x)) << x;
        EXPECT_DOUBLE_EQ(value(1, 1, 2, x), -std::log1p(-x) / x) << x;
        EXPECT_NEAR(value(0.5, 1.25, 1.25, x) * std::sqrt(1 - x), 1, 1e-15) << x;
    }
}

}  // namespace
}  // namespace kalvex::specfun
