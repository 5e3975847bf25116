#include "interp/knots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace kalvex {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// The rule in knots.h, by trying i = 2 to n-1 in turn.
std::size_t SearchedLeft(const std::vector<double>& T, double t) {
    for (std::size_t i = 2; i + 1 <= T.size(); ++i)
        if (t < T[i - 1]) return i - 2;
    return T.size() - 2;
}

std::size_t SearchedHolder(const std::vector<double>& T, double t) {
    for (std::size_t i = 1; i + 1 <= T.size(); ++i)
        if (t <= T[i - 1]) return i - 1;
    return T.size() - 1;
}

void ExpectTheRule(const std::vector<double>& T, double t) {
    const Knots knots = MakeKnots(T);
    if (T.size() >= 2) {
        EXPECT_EQ(LeftOf(knots, t), SearchedLeft(T, t)) << testing::PrintToString(T) << " at " << t;
    }
    EXPECT_EQ(HolderOf(knots, t), SearchedHolder(T, t)) << testing::PrintToString(T) << " at " << t;
}

TEST(Knots, FindThePieceByTheRule) {
    const std::vector<double> tables[] = {{0},
                                          {0, 1},
                                          {1, 0},
                                          {0, 1, 2},
                                          {0, 1, 2, 4},
                                          {2, 1, 0},
                                          {5, 1, 3},
                                          {0, 3, 1, 2, 5},
                                          {1, 1, 1, 1},
                                          {0, 2, 2, 3, 3, 4},
                                          {0, kNan, 2},
                                          {kNan, 1, 2, 3},
                                          {kNan, kNan},
                                          {0, kInf, 1, 2},
                                          {kInf, -kInf, 0, 1},
                                          {0, kNan, 1, kNan, 0.5, 3}};
    for (const auto& table : tables) {
        for (const double t :
             {-kInf, -1.0, 0.0, 0.5, 1.0, 1.5, 2.0, 2.5, 3.0, 4.5, 9.0, kInf, kNan})
            ExpectTheRule(table, t);
    }
}

TEST(Knots, FindThePieceOfRandomTables) {
    std::mt19937 random(1);
    const double special[] = {kNan, kInf, -kInf};
    for (int run = 0; run < 3000; ++run) {
        std::vector<double> table(1 + random() % 12);
        for (double& knot : table)
            knot = random() % 15 == 0 ? special[random() % 3]
                                      : static_cast<double>(random() % 7) - 3.0;
        ExpectTheRule(table, static_cast<double>(random() % 29) / 4.0 - 3.5);
        ExpectTheRule(table, special[random() % 3]);
    }
}

}  // namespace
}  // namespace kalvex
