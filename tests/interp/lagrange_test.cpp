#include "interp/lagrange.h"

#include "interp/polynomial_fixtures.h"

namespace kalvex {
namespace {

TEST(Lagrange, IsExactAtItsPoints) {
    for (const int count : {1, 2, 5, 20, 32, 33, 50, 400}) {
        Numbers x;
        Numbers y;
        for (int i = 0; i < count; ++i) {
            x.push_back(0.37 * i + 0.1 * std::sin(i));
            y.push_back(std::cos(3.0 * i) / 7);
        }
        for (std::size_t i = 0; i < x.size(); ++i)
            EXPECT_EQ(Lagrange(x, y, x[i]), y[i]) << count << " " << i;
    }
}

TEST(Lagrange, OfNoPointsIsZero) {
    EXPECT_EQ(Lagrange({}, {}, 3.0), 0.0);
}

TEST(Lagrange, HasNoValueWithEqualAbscissas) {
    for (const int count : {3, 40}) {
        Numbers x;
        for (int i = 0; i < count; ++i)
            x.push_back(i);
        x.back() = 1.0;
        const Numbers y(x.size(), 2.0);
        for (const double t : {-1.0, 0.0, 0.5, 1.0, 7.5})
            EXPECT_FALSE(std::isfinite(Lagrange(x, y, t))) << count << " at " << t;
    }
}

/// The definition of the polynomial, which the direct form follows.
double Defined(const Numbers& x, const Numbers& y, double t) {
    double sum = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        double product = 1.0;
        for (std::size_t j = 0; j < x.size(); ++j)
            if (j != i) product *= (t - x[j]) / (x[i] - x[j]);
        sum += y[i] * product;
    }
    return sum;
}

TEST(Lagrange, KeepsTheDefinedValuesForLargeTables) {
    const WellPlaced points = Points(300);
    for (double t = -1.0; t <= 1.0; t += 0.013)
        EXPECT_NEAR(Lagrange(points.x, points.y, t), Defined(points.x, points.y, t), 1e-12) << t;
    // Equally spaced points: both forms have an error of the condition number, about 2^40 here.
    Numbers x;
    Numbers y;
    for (int i = 0; i < 40; ++i) {
        x.push_back(i);
        y.push_back(std::sin(i));
    }
    for (double t = 0.25; t < 39.0; t += 0.5) {
        const double size = std::fabs(t - 19.5) > 12 ? 1e11 : 1e6;
        EXPECT_NEAR(Lagrange(x, y, t), Defined(x, y, t), size * 1e-14) << t;
    }
}

TEST(Lagrange, SeesAnOverflowWithoutAllWeights) {
    Numbers x;
    for (int i = 0; i < 50000; ++i)
        x.push_back(i * 0.001);
    const Numbers y(x.size(), 1.0);
    Work work;
    LagrangeForm form;
    EXPECT_FALSE(LAGRANGE_SET(x, y, form));
    EXPECT_FALSE(std::isfinite(LAGRANGE_VAL(form, 0.0015, work)));
    EXPECT_TRUE(form.weights.empty());
    EXPECT_EQ(LAGRANGE_VAL(form, x[777], work), 1.0);
    EXPECT_TRUE(std::isnan(LAGRANGE_VAL(form, kNan, work)));
}

}  // namespace
}  // namespace kalvex
