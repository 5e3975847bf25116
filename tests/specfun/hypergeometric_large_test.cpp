// The Gauss hypergeometric function with large parameters: products of gamma functions, Euler's
// integral and the connection of solutions, each within the bound of its error.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

#include "numbers/extended.h"
#include "specfun/hypergeometric/complex_pair.h"
#include "specfun/hypergeometric/connection.h"
#include "specfun/hypergeometric/euler_integral.h"
#include "specfun/hypergeometric/log_gamma.h"
#include "specfun/hypergeometric/loop_integral.h"
#include "specfun/hypergeometric/series.h"
#include "specfun/hypergeometric/shifts.h"

namespace kalvex::specfun {
namespace {

HypergeometricParameters Parameters(double a, double b, double c) {
    return {{a, 0}, {b, 0}, {c, 0}};
}

std::string TextOf(const HypergeometricParameters& p, double x) {
    std::ostringstream text;
    text << p.a.high << " " << p.b.high << " " << p.c.high << " " << x;
    return text.str();
}

TEST(LogGamma, OfFactorials) {
    DoubleDouble factorial = {1, 0};
    for (int n = 1; n < 150; ++n) {
        const BoundedNumber log = LogGamma({n + 1.0, 0});
        factorial *= n;
        const double difference = (log.value - Log(factorial)).high;
        EXPECT_LE(std::fabs(difference), log.error) << n;
        EXPECT_LT(log.error, 0x1p-70) << n;
    }
}

// Gamma(x) Gamma(x+1/2) = 2^(1-2x) sqrt(pi) Gamma(2x) (DLMF 5.5.5)
TEST(LogGamma, Duplicates) {
    for (const double x : {0.001, 0.3, 1.75, 15.99, 31.5, 32.0, 100.1, 12345.678, 1e7}) {
        const BoundedNumber first = LogGamma({x, 0});
        const BoundedNumber second = LogGamma(TwoSum(x, 0.5));
        const BoundedNumber both = LogGamma({2 * x, 0});
        const DoubleDouble expected =
            both.value + kLn2 * (1 - DoubleDouble{2 * x, 0}) + Log(kPi) * 0.5;
        const double difference = (first.value + second.value - expected).high;
        const double most = first.error + second.error + both.error;
        EXPECT_LE(std::fabs(difference), most + 0x1p-98 * x) << x;
    }
}

// Gamma(x) / Gamma(x+1) = 1/x, on both sides of 0
TEST(GammaProduct, OfNeighbours) {
    for (const double x : {0.25, 7.5, 200.125, -0.25, -1e-9, -3.5, -77.7, -1e5 + 0.1}) {
        GammaProduct product;
        MultiplyByGamma({x, 0}, product);
        DivideByGamma(TwoSum(x, 1), product);
        const DoubleDouble value = product.factor * Exp(product.log.value);
        const double most = product.ofFactor + 2 * product.log.error + 0x1p-95;
        EXPECT_LE(std::fabs((value * x - 1).high), most) << x;
        EXPECT_LT(most, 0x1p-57) << x;
    }
}

TEST(GammaProduct, AtPoles) {
    GammaProduct product;
    DivideByGamma({-3, 0}, product);
    EXPECT_TRUE(product.vanishes);
    EXPECT_FALSE(product.failed);
    MultiplyByGamma({0, 0}, product);
    EXPECT_TRUE(product.failed);
}

// F(c,b;c;x) = (1-x)^-b
TEST(EulerIntegral, OfPowers) {
    for (const double x : {-0.99, -0.25, 0.5, 0.875, 0.9999}) {
        const DoubleDouble w = TwoSum(1, -x);
        const HypergeometricPoint point =
            ByEulerIntegral(Parameters(900.5, 300.25, 900.5), {x, 0}, w);
        ASSERT_FALSE(point.failed) << x;
        int exponent = 0;
        const DoubleDouble power = ExpScaled(Log(w) * -300.25, exponent);
        const DoubleDouble expected = Scale(power, exponent - point.exponent);
        EXPECT_LE(std::fabs((point.value - expected).high), point.error) << x;
        EXPECT_LT(point.error, 0x1p-58 * point.value.high) << x;
    }
}

/// The relation that the tests name, of three values by one method, must hold within their bounds.
template <typename Method>
void ExpectRelation(const Method& valueOf, const HypergeometricParameters& p, double x) {
    const DoubleDouble z = {x, 0};
    const DoubleDouble w = TwoSum(1, -x);
    const HypergeometricPoint whole = valueOf(p, z, w);
    const HypergeometricPoint lower = valueOf(HypergeometricParameters{p.a - 1, p.b, p.c}, z, w);
    const HypergeometricPoint upper = valueOf(HypergeometricParameters{p.a, p.b + 1, p.c}, z, w);
    ASSERT_FALSE(whole.failed || lower.failed || upper.failed) << TextOf(p, x);
    double most = 0;
    const auto term = [&](const HypergeometricPoint& point, DoubleDouble factor) {
        const int by = point.exponent - whole.exponent;
        most += std::ldexp(std::fabs(factor.high) * point.error, by);
        return Scale(point.value * factor, by);
    };
    const DoubleDouble sum =
        term(whole, p.c - p.a - p.b) - term(lower, p.c - p.a) + term(upper, p.b * w);
    EXPECT_LE(std::fabs(sum.high), most) << TextOf(p, x);
}

// (c-a-b) F = (c-a) F(a-1) - b (1-x) F(b+1) (DLMF 15.5.13), however large the parameters are
TEST(EulerIntegral, ContiguousRelation) {
    const HypergeometricParameters rows[] = {
        Parameters(350.5, 220.25, 700), Parameters(-800.75, 400, 1000.5),
        Parameters(5000, 1234.5, 4000.25), Parameters(-30000, 70000.5, 90000),
        Parameters(1e6, 2e6, 3e6)};
    for (const HypergeometricParameters& p : rows) {
        for (const double x : {-0.9, -0.01, 0.3}) {
            ExpectRelation([](auto... of) { return ByEulerIntegral(of...); }, p, x);
        }
    }
}

void ExpectSame(const HypergeometricPoint& one, const HypergeometricPoint& other) {
    const DoubleDouble moved = Scale(other.value, other.exponent - one.exponent);
    const double most = one.error + std::ldexp(other.error, other.exponent - one.exponent);
    EXPECT_LE(std::fabs((one.value - moved).high), most);
    EXPECT_LT(one.error, 0x1p-45 * (std::fabs(one.value.high) + std::fabs(one.slope.high)));
}

TEST(EulerIntegral, AgreesWithWalks) {
    const struct {
        HypergeometricParameters p;
        double z;
    } rows[] = {{Parameters(300.5, 201.25, 450.125), 0.7},
                {Parameters(-300.5, 201.25, 450.125), 0.25},
                {Parameters(700.5, 140.75, 330.125), 0.01},
                {Parameters(1700.5, 900.75, 2330.125), 0.99}};
    for (const auto& [p, z] : rows) {
        SCOPED_TRACE(TextOf(p, z));
        const DoubleDouble w = TwoSum(1, -z);
        ExpectSame(ByEulerIntegral(p, {z, 0}, w), HypergeometricByShifts(p, {z, 0}, w));
    }
}

TEST(EulerIntegral, IsNotForSmallParameters) {
    EXPECT_TRUE(ByEulerIntegral(Parameters(3, 0.5, 1.5), {0.5, 0}, {0.5, 0}).failed);
    EXPECT_TRUE(ByEulerIntegral(Parameters(3, 1e-20, 1000), {0.5, 0}, {0.5, 0}).failed);
    EXPECT_FALSE(HasEulerIntegral(Parameters(3, 2, 1)));
    EXPECT_FALSE(HasEulerIntegral(Parameters(-3, 2, 1)));
}

TEST(EulerIntegral, KnowsWhatIsBeyondTheRange) {
    const HypergeometricParameters p = Parameters(9000.5, 4000.25, 8000);
    EXPECT_TRUE(ByEulerIntegral(p, {0.9, 0}, TwoSum(1, -0.9), 800).singular);
    EXPECT_FALSE(ByEulerIntegral(p, {0.01, 0}, TwoSum(1, -0.01), 800).singular);
}

TEST(Connection, AgreesWithWalks) {
    const struct {
        HypergeometricParameters p;
        double z;
    } rows[] = {{Parameters(300.5, 201.25, -450.125), 0.25},
                {Parameters(300.5, -201.25, -450.125), 0.75},
                {Parameters(120.5, -150.25, -450.125), 0.25},
                {Parameters(500.5, -101.25, -380.125), 0.0625}};
    for (const auto& [p, z] : rows) {
        SCOPED_TRACE(TextOf(p, z));
        const DoubleDouble w = TwoSum(1, -z);
        const HypergeometricPoint point = ByConnection(p, {z, 0}, w);
        ASSERT_FALSE(point.failed);
        ExpectSame(point, HypergeometricByShifts(p, {z, 0}, w));
    }
}

// Every kind of saddle points.
struct LoopRow {
    const char* saddles;
    HypergeometricParameters p;
    double z;
};

const LoopRow kLoopRows[] = {
    {"between 0 and w, a > c", Parameters(3447.25, 4625.5, 2692.25), 0.0625},
    {"between 0 and w", Parameters(-688.5, 8373.75, 3936.5), 0.15},
    {"from w to 1", Parameters(-1504.125, 6680.25, 2747.5), 0.94},
    {"from w to 1, a polynomial", Parameters(-1504, 6680.25, 2747.5), 0.94},
    {"below 0", Parameters(-3792.75, 4449.125, 4052.5), 0.83},
    {"below 0, b-c integral", Parameters(-3792.75, 4449.5, 4052.5), 0.83},
    {"conjugate", Parameters(-2113.875, 3379.5, 860), 0.125},
    {"conjugate, a polynomial", Parameters(-2113, 3379.5, 860), 0.5}};

TEST(LoopIntegral, AgreesWithWalksAndSeries) {
    for (const auto& [saddles, p, z] : kLoopRows) {
        SCOPED_TRACE(saddles);
        const DoubleDouble w = TwoSum(1, -z);
        const HypergeometricPoint point = ByLoopIntegral(p, {z, 0}, w);
        ASSERT_FALSE(point.failed);
        const bool ends = IsNegativeInteger(p.a);
        HypergeometricPoint walk =
            ends ? PolynomialByShifts(p, {z, 0}, w) : HypergeometricByShifts(p, {z, 0}, w);
        if (p.a.high > 0) walk = SumHypergeometric(p, {z, 0}, 0x1p-80);
        if (IsNegativeInteger(p.c - p.b)) continue;  // walks divide by it
        ASSERT_FALSE(walk.failed);
        EXPECT_LT(walk.error, 0x1p-45 * (std::fabs(walk.value.high) + std::fabs(walk.slope.high)));
        ExpectSame(point, walk);
    }
}

// (c-a-b) F = (c-a) F(a-1) - b (1-x) F(b+1) (DLMF 15.5.13)
TEST(LoopIntegral, ContiguousRelation) {
    for (const auto& [saddles, p, at] : kLoopRows) {
        SCOPED_TRACE(saddles);
        ExpectRelation([](auto... of) { return ByLoopIntegral(of...); }, p, at);
    }
}

TEST(LoopIntegral, IsNotForSmallParameters) {
    const DoubleDouble half = {0.5, 0};
    EXPECT_TRUE(ByLoopIntegral(Parameters(3.5, 2.5, 1.5), half, half).failed);
    EXPECT_TRUE(ByLoopIntegral(Parameters(-20.5, 30.5, 5.5), half, half).failed);
}

TEST(ComplexPair, Logarithms) {
    for (const double angle : {0.0, 1e-5, 0.7, 1.5, 1.6, 2.9, 3.14159, -0.3, -3.0}) {
        const ComplexPair unit = {{std::cos(angle), 0}, {std::sin(angle), 0}};
        const ComplexPair log = LogOf(unit);
        const CosineSine back = CosineSineOf(log.imaginary);
        EXPECT_LT(std::fabs((back.cosine - unit.real).high), 2e-16) << angle;
        EXPECT_LT(std::fabs((back.sine - unit.imaginary).high), 2e-16) << angle;
        // the angle of the square is twice that of the number
        const ComplexPair twice = LogOf(unit * unit);
        const DoubleDouble turns = (log.imaginary * 2 - twice.imaginary) / (kPi * 2);
        EXPECT_LT(std::fabs((turns - std::nearbyint(turns.high)).high), 0x1p-92) << angle;
        EXPECT_LT(std::fabs((log.real * 2 - twice.real).high), 0x1p-92) << angle;
    }
}

TEST(Reflection, AgreesWithWalks) {
    const struct {
        HypergeometricParameters p;
        double z;
    } rows[] = {{Parameters(-2375, 2017.5, -5899), 0.25},
                {Parameters(-2516, -1589.25, -9606), 0.875},
                {Parameters(-1516, -4589.25, -5606), 0.75}};
    for (const auto& [p, z] : rows) {
        SCOPED_TRACE(TextOf(p, z));
        const DoubleDouble w = TwoSum(1, -z);
        const HypergeometricPoint point = ByReflection(p, {z, 0}, w);
        const HypergeometricPoint walk = PolynomialByShifts(p, {z, 0}, w);
        ASSERT_FALSE(point.failed);
        ASSERT_FALSE(walk.failed);
        ExpectSame(point, walk);
    }
}

// c+a or the like an integer: a gamma function is at a pole
TEST(Connection, FailsAtPoles) {
    EXPECT_TRUE(ByConnection(Parameters(-900.5, 201.25, -450.5), {0.5, 0}, {0.5, 0}).failed);
}

}  // namespace
}  // namespace kalvex::specfun
