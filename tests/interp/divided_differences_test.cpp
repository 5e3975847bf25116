#include "interp/divided_differences.h"

#include "interp/polynomial_fixtures.h"

namespace kalvex {
namespace {

TEST(DividedDifferences, AreTheTable) {
    Work work;
    DifferenceTable table;
    ASSERT_FALSE(DATA_TO_DIF(Numbers{0, 1, 3}, Numbers{1, 3, 19}, table, work));
    EXPECT_EQ(table.high, (Numbers{1, 2, 2}));
    // Points on a line have no second difference.
    ASSERT_FALSE(DATA_TO_DIF(Numbers{0, 1, 3, 7}, Numbers{1, 2, 4, 8}, table, work));
    EXPECT_EQ(table.high, (Numbers{1, 1}));
    ASSERT_FALSE(DATA_TO_DIF(Numbers{5}, Numbers{3}, table, work));
    EXPECT_EQ(DIF_VAL(Numbers{5}, table, 99, work), 3.0);
    ASSERT_FALSE(DATA_TO_DIF(Numbers{}, Numbers{}, table, work));
    EXPECT_EQ(DIF_VAL(Numbers{}, table, 99, work), 0.0);
}

TEST(DividedDifferences, NameTheFirstPairOfEqualAbscissas) {
    const std::string heading = "\nDATA_TO_DIF - Fatal error!\n  Two entries of XTAB are equal!\n";
    const struct {
        Numbers x;
        std::string lines;
    } rows[] = {
        {{1, 1}, "  XTAB[%d] = 1\n  XTAB[%d] = 1\n"},
        {{7, 2.5, 0, 0, 2.5}, "  XTAB[%d] = 2.5\n  XTAB[%d] = 2.5\n"},
        {{3, 0.0, 2, -0.0, 2}, "  XTAB[%d] = 0\n  XTAB[%d] = -0\n"},
        {{9, 8, 8, 8, 9}, "  XTAB[%d] = 9\n  XTAB[%d] = 9\n"},
        {{4, 5, 5, 5}, "  XTAB[%d] = 5\n  XTAB[%d] = 5\n"},
    };
    for (const auto& row : rows) {
        Work work;
        DifferenceTable table;
        const Failure failure = DATA_TO_DIF(row.x, Numbers(row.x.size()), table, work);
        EXPECT_EQ(LinesOf(failure), heading + row.lines);
        EXPECT_EQ(failure->reason, StringId::DifferencesEqual);
    }
}

TEST(DividedDifferences, EndEarlyWhenNothingCanComeOfThem) {
    Numbers narrow;
    Numbers wide;
    Numbers y;
    for (int i = 0; i < 100000; ++i) {
        narrow.push_back(i * 1e-5);
        wide.push_back(i * 1.0);
        y.push_back(i % 2 == 0 ? 1.0 : -1.0);
    }
    Work work;
    DifferenceTable table;
    ASSERT_FALSE(DATA_TO_DIF(narrow, y, table, work));
    EXPECT_TRUE(std::isnan(DIF_VAL(narrow, table, 0.1234567, work)));
    ASSERT_FALSE(DATA_TO_DIF(wide, y, table, work));
    EXPECT_LT(table.high.size(), 1000u);
    EXPECT_NEAR(DIF_VAL(wide, table, 3.0, work), -1.0, 1e-12);
    EXPECT_LT(work.done, 5e9);
}

}  // namespace
}  // namespace kalvex
