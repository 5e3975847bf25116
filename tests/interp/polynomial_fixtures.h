// What the tests of the three polynomials share: a value by each of them, and points on which high
// degrees are well conditioned.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "interp/diagnostic_lines.h"
#include "interp/divided_differences.h"
#include "interp/lagrange.h"
#include "interp/least_squares.h"

namespace kalvex {

using Numbers = std::vector<double>;

inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

inline double Least(const Numbers& x, const Numbers& y, std::int32_t terms, double t) {
    Work work;
    LeastSquaresFit fit;
    EXPECT_EQ(LinesOf(LEAST_SET(x, y, {}, terms, fit, work)), "none");
    return LEAST_VAL(fit, t);
}

inline double Newton(const Numbers& x, const Numbers& y, double t) {
    Work work;
    DifferenceTable table;
    EXPECT_EQ(LinesOf(DATA_TO_DIF(x, y, table, work)), "none");
    return DIF_VAL(x, table, t, work);
}

inline double Lagrange(const Numbers& x, const Numbers& y, double t) {
    Work work;
    LagrangeForm form;
    EXPECT_FALSE(LAGRANGE_SET(x, y, form));
    return LAGRANGE_VAL(form, t, work);
}

/// Extreme points of a Chebyshev polynomial, and values of a wavy function there.
struct WellPlaced {
    Numbers x;
    Numbers y;
};

inline WellPlaced Points(int count) {
    WellPlaced points;
    for (int i = 0; i < count; ++i) {
        points.x.push_back(-std::cos(std::numbers::pi * i / (count - 1)));
        points.y.push_back(2.0 + std::sin(5.0 * points.x.back()));
    }
    return points;
}

}  // namespace kalvex
