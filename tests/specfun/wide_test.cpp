// Numbers of many digits against exact identities and known digits, and the sums made of them.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "specfun/hypergeometric/wide_sum.h"
#include "specfun/hypergeometric/wide_value.h"
#include "specfun/precision/wide_functions.h"

namespace kalvex::specfun {
namespace {

template <std::size_t limbs>
Wide<limbs> Random(std::mt19937_64& generator) {
    Wide<limbs> number;
    for (std::uint64_t& limb : number.digits) {
        const std::uint64_t kind = generator() % 4;
        limb = kind == 0 ? 0 : kind == 1 ? ~std::uint64_t{0} : generator();
    }
    number.digits[limbs - 1] |= std::uint64_t{1} << 63;
    number.exponent = static_cast<std::int64_t>(generator() % 200) - 100;
    number.sign = generator() % 2 == 0 ? 1 : -1;
    return number;
}

/// The difference relative to b, as a logarithm to base 2.
template <std::size_t limbs>
double Apart(const Wide<limbs>& a, const Wide<limbs>& b) {
    return SizeOf(Subtract(a, b)) - SizeOf(b);
}

template <std::size_t limbs>
void ExpectIdentities() {
    std::mt19937_64 generator(limbs);
    constexpr double kBits = Wide<limbs>::kBits;
    for (int i = 0; i < 3000; ++i) {
        const Wide<limbs> a = Random<limbs>(generator);
        const Wide<limbs> b = Random<limbs>(generator);
        EXPECT_LE(Apart(Divide(Multiply(a, b), b), a), 3 - kBits) << i;
        EXPECT_LE(Apart(Multiply(Divide(a, b), b), a), 3 - kBits) << i;
        const double size = std::max(SizeOf(a), SizeOf(b));
        EXPECT_LE(SizeOf(Subtract(Subtract(Add(a, b), b), a)), size + 3 - kBits) << i;
        const Wide<limbs> square = Multiply(Add(a, b), Subtract(a, b));
        const Wide<limbs> other = Subtract(Multiply(a, a), Multiply(b, b));
        EXPECT_LE(SizeOf(Subtract(square, other)), 2 * size + 5 - kBits) << i;
    }
}

TEST(Wide, KeepsTheRulesOfArithmetic) {
    ExpectIdentities<2>();
    ExpectIdentities<4>();
    ExpectIdentities<16>();
}

TEST(Wide, IsExactForDoubles) {
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> values(-1e6, 1e6);
    for (int i = 0; i < 3000; ++i) {
        const double a = values(generator);
        const double b = std::ldexp(values(generator), -static_cast<int>(generator() % 100));
        const DoubleDouble sum = TwoSum(a, b);
        const DoubleDouble product = TwoProduct(a, b);
        const Wide<4> left = WideOf<4>(a);
        const Wide<4> right = WideOf<4>(b);
        EXPECT_EQ(ToDouble(left), a);
        const Wide<4> exact = Add(WideOf<4>(sum.high), WideOf<4>(sum.low));
        EXPECT_EQ(Subtract(Add(left, right), exact).sign, 0) << a << " " << b;
        const Wide<4> times = Add(WideOf<4>(product.high), WideOf<4>(product.low));
        EXPECT_EQ(Subtract(Multiply(left, right), times).sign, 0) << a << " " << b;
    }
    EXPECT_EQ(ToDouble(WideOf<4>(5e-324)), 5e-324);
    EXPECT_EQ(Add(WideOf<4>(0.5), WideOf<4>(-0.5)).sign, 0);
}

TEST(Wide, LogarithmAndExponential) {
    // 64 bits each of ln 2 (OEIS A002162)
    const Wide<4>& ln2 = LnTwo<4>();
    EXPECT_EQ(ln2.digits[3], 0xb17217f7d1cf79abU);
    EXPECT_EQ(ln2.digits[2], 0xc9e3b39803f2f6afU);
    for (const double a : {-700.25, -3.5, -0x1p-40, 0x1p-60, 0.3, 2.0, 1000.125}) {
        const Wide<8> exact = WideOf<8>(a);
        EXPECT_LE(SizeOf(Subtract(Log(Exp(exact)), exact)), -480) << a;
    }
    EXPECT_NEAR(ToDouble(Exp(WideOf<8>(1))), std::exp(1.0), 1e-15);
}

// (1-z)^(-b) = F(a,b;a;z), and a = c that would be 0: the bound holds and is not far off.
TEST(Wide, SumsKnowTheirErrors) {
    const double z = 0.375;
    for (const double b : {0.5, 7.25, -20.5}) {
        const WideParameters<4> p = {WideOf<4>(2.5), WideOf<4>(b), WideOf<4>(2.5)};
        const WideSum<4> sum = SumWide(p, WideOf<4>(z), 200);
        ASSERT_FALSE(sum.failed);
        const Wide<4> exact =
            Exp(Multiply(WideOf<4>(-b), Log(Subtract(WideOf<4>(1), WideOf<4>(z)))));
        EXPECT_LE(SizeOf(Subtract(sum.value.value, exact)),
                  std::max(sum.value.error, SizeOf(exact) - 220))
            << b;
        EXPECT_LE(sum.value.error, SizeOf(exact) - 150) << b;
    }
    const WideParameters<4> pole = {WideOf<4>(2.5), WideOf<4>(1), WideOf<4>(-3)};
    EXPECT_TRUE(SumWide(pole, WideOf<4>(z), 200).failed);
}

// By the sums, and next to x = 1 by joining: F(a,b;c;x) is a polynomial, a power or a logarithm.
TEST(Wide, ValuesInClosedForm) {
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
