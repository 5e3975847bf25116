#include "interp/work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "interp/stoppable_sort.h"

namespace kalvex {
namespace {

TEST(Work, IsNeverSilentForLong) {
    for (const double total : {0.0, 1e6, 1e9, 1e13, 1e300}) {
        int calls = 0;
        const WorkProgress progress = [&calls](double) { return ++calls > 0; };
        Work work{&progress, total};
        for (int i = 0; i < 1000; ++i)
            ASSERT_TRUE(Spend(work, 1e6));
        EXPECT_GE(calls, 50) << total;
        EXPECT_LE(calls, 250) << total;
    }
}

std::vector<int> Scattered(std::size_t count) {
    std::vector<int> values(count);
    unsigned next = 1;
    for (int& value : values)
        value = static_cast<int>((next = next * 1664525u + 1013904223u) >> 8);
    return values;
}

TEST(SortStoppably, SortsAndLeavesTheOperationsAsTheyWere) {
    for (const std::size_t count : {0, 1, 2, 32767, 32768, 32769, 65536, 100000, 1000003}) {
        std::vector<int> values = Scattered(count);
        std::vector<int> expected = values;
        std::sort(expected.begin(), expected.end(), std::greater<>());
        int calls = 0;
        const WorkProgress progress = [&calls](double) { return ++calls > 0; };
        Work work{&progress, 1e9, 7.0};
        EXPECT_TRUE(SortStoppably(values, work, std::greater<>())) << count;
        EXPECT_EQ(values, expected) << count;
        EXPECT_EQ(work.done, 7.0) << count;
        EXPECT_EQ(calls > 1, count > 300000) << count;
    }
}

TEST(SortStoppably, IsStopped) {
    std::vector<int> values = Scattered(1000003);
    int calls = 0;
    const WorkProgress progress = [&calls](double) { return ++calls < 3; };
    Work work{&progress, 1e9};
    EXPECT_FALSE(SortStoppably(values, work));
    EXPECT_TRUE(work.stopped);
    EXPECT_EQ(calls, 3);
}

}  // namespace
}  // namespace kalvex
