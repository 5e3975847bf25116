// Numbers of many digits against exact identities and known digits, and the sums made of them.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "numbers/wide_functions.h"
#include "specfun/hypergeometric/wide_sum.h"
#include "specfun/hypergeometric/wide_value.h"

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

Factor FactorOf(std::uint64_t low, std::uint64_t high) {
    Factor factor;
    factor.digits[0] = low;
    factor.digits[1] = high;
    factor.count = high != 0 ? 2 : 1;
    return factor;
}

Wide<8> WholeOf(const Factor& factor) {
    Wide<8> whole;
    for (std::size_t i = factor.count; i-- > 0;) {
        const Wide<8> high = WideOf<8>(static_cast<double>(factor.digits[i] >> 32));
        const Wide<8> low = WideOf<8>(static_cast<double>(factor.digits[i] & 0xffffffffU));
        whole = Add(Scale(whole, 64), Add(Scale(high, 32), low));
    }
    return whole;
}

// Against the same with numbers whose exponents count bits.
TEST(LimbNumber, KeepsItsBits) {
    std::mt19937_64 generator(5);
    constexpr double kBits = LimbNumber<4>::kBits;
    for (int i = 0; i < 3000; ++i) {
        LimbNumber<4> a = OneInLimbs<4>();
        LimbNumber<4> b = a;
        Wide<8> exactA = WideOf<8>(1);
        Wide<8> exactB = exactA;
        for (int step = 0; step < 3; ++step) {
            const Factor factor =
                FactorOf(generator() >> (generator() % 64) | 1, generator() % 2 * generator());
            const Wide<8> exact = WholeOf(factor);
            MultiplyBy(factor, step % 2 == 0 ? a : b);
            (step % 2 == 0 ? exactA : exactB) = Multiply(step % 2 == 0 ? exactA : exactB, exact);
        }
        if (generator() % 2 == 0) {
            b.sign = -1;
            exactB = Negate(exactB);
        }
        const double size = std::max(SizeOf(exactA), SizeOf(exactB));
        AddTo(b, a);
        const Wide<8> sum = Add(exactA, exactB);
        EXPECT_LE(SizeOf(Subtract(WideOf<8>(a), sum)), size + 3 - kBits) << i;
    }
    LimbNumber<4> zero = OneInLimbs<4>();
    LimbNumber<4> less = zero;
    less.sign = -1;
    AddTo(less, zero);
    EXPECT_EQ(zero.sign, 0);
}

// Past 0, past limbs and back to where it came from.
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

// (1-z)^(-b) = F(a,b;a;z), and a = c that would be 0: the bound holds and is not far off.
TEST(Wide, SumsKnowTheirErrors) {
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
