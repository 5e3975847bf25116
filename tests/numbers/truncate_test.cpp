#include "numbers/truncate.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(Truncate, IsDefinedForEveryDouble) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        double value;
        std::int32_t expected;
    } rows[] = {
        {0.7, 0},
        {-0.7, 0},
        {2.999, 2},
        {-2.999, -2},
        {kNan, 0},
        {kInfinity, INT32_MAX},
        {-kInfinity, INT32_MIN},
        {1e300, INT32_MAX},
        {-1e300, INT32_MIN},
        {2147483647.5, INT32_MAX},
        {-2147483648.0, INT32_MIN},
        {-2147483648.5, INT32_MIN},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TruncateToInt32(row.value), row.expected) << row.value;
    EXPECT_EQ(TruncateToInt64(kNan), 0);
    EXPECT_EQ(TruncateToInt64(9.3e18), INT64_MAX);
    EXPECT_EQ(TruncateToInt64(-9.3e18), INT64_MIN);
    EXPECT_EQ(TruncateToInt64(-3.9), -3);
}

}  // namespace
}  // namespace kalvex
