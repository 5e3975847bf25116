#include "interp/least_squares.h"

#include "interp/polynomial_fixtures.h"

namespace kalvex {
namespace {

TEST(LeastSquares, WithOneTermIsTheMean) {
    const Numbers x = {3, 1, 1, 7};
    const Numbers y = {1, 2, 3, 6};
    for (const double t : {-100.0, 0.0, 1.0, 1e6})
        EXPECT_EQ(Least(x, y, 1, t), 3.0);
}

TEST(LeastSquares, WithTwoTermsIsTheRegressionLine) {
    const Numbers x = {0, 1, 2, 3};
    const Numbers y = {1, 3, 2, 5};
    for (const double t : {-1.0, 0.0, 1.5, 9.0})
        EXPECT_NEAR(Least(x, y, 2, t), 1.1 + 1.1 * t, 1e-13) << t;
}

TEST(LeastSquares, WeighsThePoints) {
    Work work;
    LeastSquaresFit fit;
    const Numbers x = {0, 1};
    const Numbers y = {0, 4};
    const Numbers w = {3, 1};
    EXPECT_EQ(LinesOf(LEAST_SET(x, y, w, 1, fit, work)), "none");
    EXPECT_EQ(LEAST_VAL(fit, 5), 1.0);
}

TEST(LeastSquares, KeepsItsCoefficientsInTheScaledVariable) {
    Work work;
    LeastSquaresFit fit;
    ASSERT_FALSE(LEAST_SET(Numbers{-2, 0, 2}, Numbers{4, 0, 4}, {}, 3, fit, work));
    EXPECT_EQ(fit.scale, 1.0);
    EXPECT_EQ(fit.B, (Numbers{0, 0, 0}));
    EXPECT_DOUBLE_EQ(fit.C[1], 8.0 / 3);
    EXPECT_DOUBLE_EQ(fit.D[0], 8.0 / 3);
    EXPECT_DOUBLE_EQ(fit.D[2], 1.0);
    EXPECT_DOUBLE_EQ(LEAST_VAL(fit, 3), 9.0);
}

TEST(LeastSquares, DoesNotOverflowOnDates) {
    Numbers x;
    Numbers y;
    for (int i = 0; i < 200; ++i) {
        x.push_back(1.6e9 + i * 5e6);
        y.push_back(std::sin(i * 0.05));
    }
    for (int i = 0; i < 200; i += 7)
        EXPECT_NEAR(Least(x, y, 20, x[static_cast<std::size_t>(i)]), std::sin(i * 0.05), 1e-9) << i;
}

TEST(LeastSquares, SurvivesManyTermsAndAnyNumbers) {
    const WellPlaced points = Points(60);
    for (std::size_t i = 0; i < 60; ++i)
        EXPECT_NEAR(Least(points.x, points.y, 60, points.x[i]), points.y[i], 1e-9) << i;
    EXPECT_TRUE(std::isnan(Least({0, kNan, 2}, {1, 2, 3}, 2, 1)));
    Numbers same(50, 4.0);
    EXPECT_EQ(Least(same, same, 1, 0), 4.0);
    EXPECT_TRUE(std::isfinite(Least({-1e308, 0, 1e308}, {1, 2, 3}, 2, 0)));
    EXPECT_TRUE(std::isfinite(Least({0, 5e-324, 1e-323}, {1, 2, 3}, 1, 0)));
}

TEST(LeastSquares, NamesItsFatalConditionsWithABoxForEach) {
    Work work;
    LeastSquaresFit fit;
    const Failure few = LEAST_SET(Numbers{1, 2, 1}, Numbers{1, 2, 3}, {}, 3, fit, work);
    EXPECT_EQ(LinesOf(few),
              "\nLEAST_SET - Fatal error!\n  The number of distinct X values must be\n"
              "  at least NTERMS = 3\n  but the input data has only 2\n  distinct entries.\n");
    EXPECT_EQ(few->box, StringId::LeastSetFailed);
    EXPECT_EQ(Text(*few->box), u"LEAST_SET - Fatal error!");
    EXPECT_EQ(few->reason, StringId::LeastSquaresDistinct);
    EXPECT_TRUE(fit.D.empty());

    const Numbers weights = {1, 1, -0.5};
    const Failure weight = LEAST_SET(Numbers{1, 2, 3}, Numbers{1, 2, 3}, weights, 2, fit, work);
    EXPECT_EQ(LinesOf(weight),
              "\nLEAST_SET - Fatal error!\n  All weights W must be positive,\n"
              "  but weight 3\n  is -0.5\n");
    EXPECT_EQ(Text(*weight->box), u"LEAST_SET - Fatal error!\n");
    EXPECT_EQ(weight->reason, StringId::LeastSquaresWeights);
    EXPECT_TRUE(fit.D.empty());
}

// When both conditions fail, the message is about the number of distinct abscissas.
TEST(LeastSquares, ChecksTheAbscissasBeforeTheWeights) {
    Work work;
    LeastSquaresFit fit;
    const Failure failure =
        LEAST_SET(Numbers{1, 1, 2}, Numbers{1, 2, 3}, Numbers{1, -1, 1}, 3, fit, work);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, StringId::LeastSquaresDistinct);
    EXPECT_EQ(failure->box, StringId::LeastSetFailed);
    EXPECT_TRUE(fit.D.empty());
}

}  // namespace
}  // namespace kalvex
