// Numbers of many digits against exact identities and known digits.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "numbers/limb_number.h"
#include "numbers/wide_functions.h"

namespace kalvex {
namespace {

/// The binary logarithm of the magnitude, rounded up.
template <std::size_t limbs>
double Log2Of(const Wide<limbs>& a) {
    return a.sign == 0 ? -INFINITY : static_cast<double>(a.exponent);
}

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
    return Log2Of(Subtract(a, b)) - Log2Of(b);
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
        const double size = std::max(Log2Of(a), Log2Of(b));
        EXPECT_LE(Log2Of(Subtract(Subtract(Add(a, b), b), a)), size + 3 - kBits) << i;
        const Wide<limbs> square = Multiply(Add(a, b), Subtract(a, b));
        const Wide<limbs> other = Subtract(Multiply(a, a), Multiply(b, b));
        EXPECT_LE(Log2Of(Subtract(square, other)), 2 * size + 5 - kBits) << i;
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
        EXPECT_LE(Log2Of(Subtract(Log(Exp(exact)), exact)), -480) << a;
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

// LimbNumber against Wide, whose exponents count bits.
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
        const double size = std::max(Log2Of(exactA), Log2Of(exactB));
        AddTo(b, a);
        const Wide<8> sum = Add(exactA, exactB);
        EXPECT_LE(Log2Of(Subtract(WideOf<8>(a), sum)), size + 3 - kBits) << i;
    }
    LimbNumber<4> zero = OneInLimbs<4>();
    LimbNumber<4> less = zero;
    less.sign = -1;
    AddTo(less, zero);
    EXPECT_EQ(zero.sign, 0);
}

}  // namespace
}  // namespace kalvex
