// Functions without an array form: which lanes are computed, and which are copies.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "expr/kernels.h"

namespace kalvex {
namespace {

constexpr std::size_t kCount = 2 * kPaddedLanes;

struct Lanes {
    std::vector<double> out = std::vector<double>(kCount, -7.0);
    std::vector<std::int32_t> errors = std::vector<std::int32_t>(kCount);
    bool failed = false;
};

Lanes RunOver(FunctionNumber function, const std::vector<Source>& sources, std::size_t padding,
              Lanes lanes = {}) {
    KernelCall call{lanes.out.data(), sources.data(), kCount, lanes.errors.data()};
    call.padding = padding;
    lanes.failed = RunLaneByLane(function, call);
    return lanes;
}

TEST(RunLaneByLane, CopiesTheLastWantedLaneIntoThePadding) {
    // Psi fails at the whole numbers below 1: in the padding nobody may notice.
    for (std::size_t padding = 0; padding < kPaddedLanes; ++padding) {
        std::vector<double> xs(kCount, -3.0);
        const std::size_t wanted = kCount - padding;
        for (std::size_t i = 0; i < wanted; ++i)
            xs[i] = 0.5 + static_cast<double>(i);
        const Lanes all = RunOver(FunctionNumber::Psi, {{xs.data(), 0.0}}, 0);
        const Lanes lanes = RunOver(FunctionNumber::Psi, {{xs.data(), 0.0}}, padding);
        EXPECT_FALSE(lanes.failed) << padding;
        EXPECT_EQ(all.failed, padding > 0) << padding;
        for (std::size_t i = 0; i < kCount; ++i) {
            EXPECT_EQ(lanes.out[i], all.out[std::min(i, wanted - 1)]) << padding << ", " << i;
            EXPECT_EQ(lanes.errors[i], 0) << padding << ", " << i;
        }
        xs[wanted - 1] = 0.0;
        const Lanes failing = RunOver(FunctionNumber::Psi, {{xs.data(), 0.0}}, padding);
        EXPECT_TRUE(failing.failed) << padding;
        for (std::size_t i = 0; i < kCount; ++i)
            EXPECT_EQ(failing.errors[i], i + 1 < wanted ? 0 : 9) << padding << ", " << i;
    }
}

TEST(RunLaneByLane, TakesScalarsAsArraysOfOneValue) {
    const struct {
        FunctionNumber function;
        double order;
        double x;
    } rows[] = {{FunctionNumber::J, 2.0, 3.0},
                {FunctionNumber::J, 0.5, -1.0},
                {FunctionNumber::Y, 1.5, 700.0},
                {FunctionNumber::Beta, 0.0, 1.0},
                {FunctionNumber::Leg, 7.0, 0.25}};
    Lanes before;
    before.errors[0] = 3;
    before.errors[9] = 1;
    for (const auto& row : rows) {
        const std::vector<double> orders(kCount, row.order);
        const std::vector<double> xs(kCount, row.x);
        const Lanes arrays =
            RunOver(row.function, {{orders.data(), 0.0}, {xs.data(), 0.0}}, 0, before);
        const Lanes scalars =
            RunOver(row.function, {{nullptr, row.order}, {nullptr, row.x}}, 0, before);
        EXPECT_EQ(arrays.out, scalars.out) << row.order << ", " << row.x;
        EXPECT_EQ(arrays.errors, scalars.errors) << row.order << ", " << row.x;
        EXPECT_EQ(arrays.failed, scalars.failed) << row.order << ", " << row.x;
        EXPECT_EQ(scalars.errors[0], 3) << row.order << ", " << row.x;
    }
}

}  // namespace
}  // namespace kalvex
