// Properties that the three polynomials have in common.
#include "interp/polynomial_fixtures.h"

namespace kalvex {
namespace {

TEST(DividedDifferences, AgreeWithLagrangeOnWellPlacedPoints) {
    const WellPlaced points = Points(20);
    for (double t = -1.0; t <= 1.0; t += 0.0078125) {
        const double value = Lagrange(points.x, points.y, t);
        EXPECT_NEAR(Newton(points.x, points.y, t), value, 1e-14) << t;
        EXPECT_NEAR(Least(points.x, points.y, 20, t), value, 1e-13) << t;
    }
}

TEST(Polynomials, StopWhenTheyAreTold) {
    int calls = 0;
    const WorkProgress stop = [&](double done) {
        EXPECT_GE(done, 0.0);
        EXPECT_LE(done, 1.0);
        ++calls;
        return false;
    };
    const WellPlaced points = Points(20000);
    Work work{&stop, 1e6};
    DifferenceTable table;
    EXPECT_FALSE(DATA_TO_DIF(points.x, points.y, table, work));
    EXPECT_TRUE(work.stopped);
    EXPECT_TRUE(table.high.empty());
    EXPECT_EQ(calls, 1);

    calls = 0;
    Work lagrangeWork{&stop, 1e6};
    LagrangeForm form;
    EXPECT_FALSE(LAGRANGE_SET(points.x, points.y, form));
    EXPECT_TRUE(std::isnan(LAGRANGE_VAL(form, 0.1, lagrangeWork)));
    EXPECT_TRUE(lagrangeWork.stopped);
    EXPECT_EQ(calls, 1);

    calls = 0;
    Work leastWork{&stop, 1e6};
    LeastSquaresFit fit;
    EXPECT_FALSE(LEAST_SET(points.x, points.y, {}, 5000, fit, leastWork));
    EXPECT_TRUE(leastWork.stopped);
    EXPECT_TRUE(fit.D.empty());
    EXPECT_EQ(calls, 1);
}

TEST(Polynomials, RefuseWorkThatWouldTakeTooLong) {
    Numbers x;
    for (int i = 0; i < 70711; ++i)
        x.push_back(i);
    const std::string tooMany = " - Fatal error!\n  Too many points.\n";
    LagrangeForm form;
    EXPECT_EQ(LinesOf(LAGRANGE_SET(x, x, form)), "\nLAGRANGE_SET" + tooMany);
    EXPECT_FALSE(LAGRANGE_SET({x.data(), 70710}, {x.data(), 70710}, form));
    LeastSquaresFit fit;
    Work work;
    const Failure failure = LEAST_SET(x, x, {}, 70711, fit, work);
    EXPECT_EQ(LinesOf(failure), "\nLEAST_SET" + tooMany);
    EXPECT_EQ(failure->reason, StringId::TooMuchWork);
    EXPECT_FALSE(failure->box);
    Work spent{nullptr, 0.0, kMostOperations + 1.0};
    DifferenceTable table;
    EXPECT_EQ(LinesOf(DATA_TO_DIF({x.data(), 9}, {x.data(), 9}, table, spent)),
              "\nDATA_TO_DIF" + tooMany);
}

}  // namespace
}  // namespace kalvex
