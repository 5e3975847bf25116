// The evaluation of tables, tested with a table of a known function: x^3 on the last half of an
// octave.
#include "specfun/piecewise.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kalvex::specfun {
namespace {

// (m + h)^3 = m^3 + 3 m^2 h + 3 m h^2 + h^3. The linear coefficient has a rounding error.
constexpr PiecewiseTable<2, 8> kCube = {3,
                                        {{3.25, 34.328125, 0, 31.6875, 0x1p-60, 9.75, 1, 0},
                                         {3.75, 52.734375, 0x1p-58, 42.1875, 0, 11.25, 1, 0}}};

TEST(Piecewise, QuartersOfOctaves) {
    const double starts[] = {0x1p-1022, 0.5, 0.625, 0.75, 0.875, 1, 1.25, 3, 3.5, 4, 0x1p1023};
    for (const double start : starts) {
        EXPECT_EQ(PieceOf(start), PieceOf(std::nextafter(start * 1.1, 0))) << start;
        EXPECT_EQ(PieceOf(start), PieceOf(std::nextafter(start, 0)) + 1) << start;
    }
    EXPECT_EQ(PieceOf(2) - PieceOf(1), 4U);
}

TEST(Piecewise, ValueAndItsRest) {
    for (const double x : {3.0, 3.125, 3.4999999999999996, 3.5, 3.75, 3.9999999999999996}) {
        const DoubleDouble value = AtPiece(kCube, {x, 0});
        const double h = x < 3.5 ? x - 3.25 : x - 3.75;
        const double planted = x < 3.5 ? h * 0x1p-60 : 0x1p-58;
        const DoubleDouble cube = TwoProduct(x, x) * x + planted;
        const DoubleDouble distance = value - cube;
        EXPECT_LE(std::fabs(distance.high), 0x1p-48 * h * h + 0x1p-100) << x;
    }
}

TEST(Piecewise, LowPartOfTheArgument) {
    for (const double x : {3.0, 3.2, 3.6, 3.9}) {
        const double low = x * 0x1p-54;
        const DoubleDouble with = AtPiece(kCube, {x, low});
        const DoubleDouble without = AtPiece(kCube, {x, 0});
        const double rise = (with - without).high;
        EXPECT_NEAR(rise / (3 * x * x * low), 1, 0.02) << x;
    }
}

TEST(Piecewise, ChainsOfEvenAndOddPowers) {
    const double c[] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(InTwoChains<6>(c, 2), 1 + 4 + 12 + 32 + 80 + 192);
    EXPECT_EQ(InTwoChains<5>(c, -2), 1 - 4 + 12 - 32 + 80);
    EXPECT_EQ(InTwoChains<2>(c, 0.5), 2);
}

}  // namespace
}  // namespace kalvex::specfun
