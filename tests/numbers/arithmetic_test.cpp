// The operators and the loose forms of double-doubles against the same operations with 512 bits.
// These are as good as exact here; the bounds are those that numbers/double_double.h promises.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "numbers/double_double.h"
#include "numbers/wide.h"

namespace kalvex {
namespace {

using Exact = Wide<8>;

Exact ExactOf(DoubleDouble a) {
    return Add(WideOf<8>(a.high), WideOf<8>(a.low));
}

double SizeOf(const Exact& a) {
    return std::fabs(ToDouble(a));
}

/// Random double-doubles. The low part is anything up to half a unit in the last place of the high
/// part; in some it is exactly that, in some 0, in some far smaller.
DoubleDouble RandomPair(std::mt19937_64& generator) {
    std::uniform_real_distribution<double> fractions(0.5, 1);
    const double high = std::ldexp(fractions(generator), static_cast<int>(generator() % 80) - 40);
    const double half = (std::nextafter(high, 2 * high) - high) / 2;
    constexpr double kParts[] = {0, 1, 0.5, 0x1p-20, 0x1p-53};
    const std::uint64_t kind = generator() % 8;
    const double part = kind < 5 ? kParts[kind] : fractions(generator) * 2 - 1;
    const double sign = generator() % 2 == 0 ? 1 : -1;
    const DoubleDouble pair = QuickTwoSum(high, sign * part * half);
    return generator() % 2 == 0 ? pair : -pair;
}

/// A second argument. Every fourth cancels nearly all digits of the first.
DoubleDouble RandomPartner(DoubleDouble a, std::mt19937_64& generator) {
    if (generator() % 4 != 0) return RandomPair(generator);
    const DoubleDouble pair = RandomPair(generator);
    const int bits = 10 + static_cast<int>(generator() % 100);
    const double scale = std::ldexp(1.0, std::ilogb(a.high) - std::ilogb(pair.high) - bits);
    const DoubleDouble near = a + DoubleDouble{pair.high * scale, pair.low * scale};
    return generator() % 2 == 0 ? near : -near;
}

struct Operation {
    const char* name;
    DoubleDouble (*computed)(DoubleDouble, DoubleDouble);
    Exact (*exact)(const Exact&, const Exact&);
    double bound;
    bool ofArguments = false;  ///< the bound is one of |a| + |b|, not of the result
    bool firstIsDouble = false;
    bool secondIsDouble = false;
};

using Pair = DoubleDouble;

Exact Quotient(const Exact& a, const Exact& b) {
    return Divide(a, b);
}
Exact Product(const Exact& a, const Exact& b) {
    return Multiply(a, b);
}
Exact Sum(const Exact& a, const Exact& b) {
    return Add(a, b);
}
Exact Difference(const Exact& a, const Exact& b) {
    return Subtract(a, b);
}

constexpr double kOperator = 0x1p-103;
constexpr double kLooseSum = 0x1p-104;
constexpr double kLooseQuotient = 0x1p-102;

// clang-format off
const Operation kOperations[] = {
    {"a + b", [](Pair a, Pair b) { return a + b; }, Sum, kOperator},
    {"a + double", [](Pair a, Pair b) { return a + b.high; }, Sum, kOperator, false, false, true},
    {"double + b", [](Pair a, Pair b) { return a.high + b; }, Sum, kOperator, false, true},
    {"a += b", [](Pair a, Pair b) { a += b; return a; }, Sum, kOperator},
    {"a - b", [](Pair a, Pair b) { return a - b; }, Difference, kOperator},
    {"a - double", [](Pair a, Pair b) { return a - b.high; }, Difference, kOperator, false, false, true},
    {"double - b", [](Pair a, Pair b) { return a.high - b; }, Difference, kOperator, false, true},
    {"a -= b", [](Pair a, Pair b) { a -= b; return a; }, Difference, kOperator},
    {"a b", [](Pair a, Pair b) { return a * b; }, Product, kOperator},
    {"a double", [](Pair a, Pair b) { return a * b.high; }, Product, kOperator, false, false, true},
    {"double b", [](Pair a, Pair b) { return a.high * b; }, Product, kOperator, false, true},
    {"a *= b", [](Pair a, Pair b) { a *= b; return a; }, Product, kOperator},
    {"a / b", [](Pair a, Pair b) { return a / b; }, Quotient, kOperator},
    {"a / double", [](Pair a, Pair b) { return a / b.high; }, Quotient, kOperator, false, false, true},
    {"double / b", [](Pair a, Pair b) { return a.high / b; }, Quotient, kOperator, false, true},
    {"LooseSum", LooseSum, Sum, kLooseSum, true},
    {"LooseDifference", LooseDifference, Difference, kLooseSum, true},
    {"LooseQuotient", LooseQuotient, Quotient, kLooseQuotient},
    {"LooseQuotient by double", [](Pair a, Pair b) { return LooseQuotient(a, b.high); }, Quotient, kLooseQuotient, false, false, true},
    {"LooseQuotient of double", [](Pair a, Pair b) { return LooseQuotient(a.high, b); }, Quotient, kLooseQuotient, false, true},
};
// clang-format on

void Check(const Operation& operation, DoubleDouble a, DoubleDouble b) {
    if (operation.firstIsDouble) a.low = 0;
    if (operation.secondIsDouble) b.low = 0;
    const DoubleDouble computed = operation.computed(a, b);
    const Exact exact = operation.exact(ExactOf(a), ExactOf(b));
    const double error = SizeOf(Subtract(ExactOf(computed), exact));
    const double size =
        operation.ofArguments ? std::fabs(a.high) + std::fabs(b.high) : SizeOf(exact);
    EXPECT_LE(error, operation.bound * size) << operation.name << ", a = " << a.high << " + "
                                             << a.low << ", b = " << b.high << " + " << b.low;
    EXPECT_EQ(computed.high + computed.low, computed.high) << operation.name;
}

TEST(Arithmetic, KeepsItsBounds) {
    for (const Operation& operation : kOperations) {
        std::mt19937_64 generator(7);
        for (int i = 0; i < 20000; ++i) {
            const DoubleDouble a = RandomPair(generator);
            Check(operation, a, RandomPartner(a, generator));
        }
    }
}

TEST(Arithmetic, RootsKeepTheirBounds) {
    std::mt19937_64 generator(11);
    for (int i = 0; i < 20000; ++i) {
        const DoubleDouble pair = RandomPair(generator);
        const DoubleDouble a = pair.high < 0 ? -pair : pair;
        // The relative error of the square is twice that of the root.
        const auto error = [&a](DoubleDouble root) {
            const Exact square = Multiply(ExactOf(root), ExactOf(root));
            return SizeOf(Subtract(square, ExactOf(a))) / a.high / 2;
        };
        EXPECT_LE(error(Sqrt(a)), 0x1p-103) << a.high << " + " << a.low;
        EXPECT_LE(error(LooseSqrt(a)), 0x1p-103) << a.high << " + " << a.low;
    }
    EXPECT_EQ(Sqrt(DoubleDouble{}).high, 0);
}

// Where all but the last digits of two numbers cancel, a loose sum loses some of these and the
// operator loses none.
TEST(Arithmetic, LooseSumsLoseDigitsWhereTheyCancel) {
    const DoubleDouble a = {1, 0x1.8p-54};
    const DoubleDouble b = {-1, 0x1p-54 + 0x1p-106};
    const Exact exact = Sum(ExactOf(a), ExactOf(b));
    EXPECT_EQ(Subtract(ExactOf(a + b), exact).sign, 0);
    const double error = SizeOf(Subtract(ExactOf(LooseSum(a, b)), exact));
    EXPECT_GT(error, 0x1p-60 * SizeOf(exact));
}

TEST(Arithmetic, OneTemplateServesNumbersOfOneAndOfTwoDoubles) {
    const double a = 1;
    const double b = 0x1p-60;
    EXPECT_EQ(DifferenceOf<double>(a, b), 1);
    EXPECT_EQ(DifferenceOf<DoubleDouble>(a, b).high, 1);
    EXPECT_EQ(DifferenceOf<DoubleDouble>(a, b).low, -0x1p-60);
    EXPECT_EQ(HighOf(3.5), 3.5);
    EXPECT_EQ(HighOf(DoubleDouble{3.5, 1e-20}), 3.5);
}

}  // namespace
}  // namespace kalvex
