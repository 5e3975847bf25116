// Functions without a kernel: which lanes are computed, and which are copies of others.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/encoding.h"
#include "expr/evaluator.h"
#include "expr/kernels.h"
#include "expr/program.h"
#include "specfun/specfun.h"

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
    // Psi fails at 0 and the negative integers. A failure in the padding must not be reported.
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

TEST(RunLaneByLane, MayPutItsResultsInThePlaceOfAnOperand) {
    const Lanes apart = [] {
        std::vector<double> xs(kCount);
        for (std::size_t i = 0; i < kCount; ++i)
            xs[i] = 0.5 + static_cast<double>(i);
        return RunOver(FunctionNumber::J, {{nullptr, 0.5}, {xs.data(), 0.0}}, 3);
    }();
    Lanes same;
    for (std::size_t i = 0; i < kCount; ++i)
        same.out[i] = 0.5 + static_cast<double>(i);
    const std::vector<Source> sources = {{nullptr, 0.5}, {same.out.data(), 0.0}};
    KernelCall call{same.out.data(), sources.data(), kCount, same.errors.data()};
    call.padding = 3;
    EXPECT_FALSE(RunLaneByLane(FunctionNumber::J, call));
    EXPECT_EQ(same.out, apart.out);
}

TEST(RunLaneByLane, ComputesFunctionsInTheMiddleOfAnExpression) {
    const struct {
        const char16_t* text;
        double (*expected)(double x, double y);
    } rows[] = {
        {u"Si(x*y)-0.5", [](double x, double y) { return specfun::Si(x * y) - 0.5; }},
        {u"1+J(0.3,abs(x*y)+1)",
         [](double x, double y) { return 1 + specfun::BesselJ(0.3, std::fabs(x * y) + 1); }},
        {u"Leg(9,Cheb(1,5,x/4))*y",
         [](double x, double y) {
             return specfun::Legendre(9, specfun::Chebyshev(1, 5, x / 4)) * y;
         }},
        {u"x+Beta(abs(x*y)+1,abs(x-y)+1)",
         [](double x, double y) {
             return x + specfun::Beta(std::fabs(x * y) + 1, std::fabs(x - y) + 1);
         }},
    };
    constexpr double kOrdinate = 1.75;
    std::vector<double> xs;
    for (int i = 0; i < 61; ++i)
        xs.push_back(-3 + 0.1 * i);
    std::vector<double> values(xs.size());
    std::vector<std::int32_t> errors(xs.size());
    for (const auto& row : rows) {
        const CompiledExpression expression{CompileProgram(row.text, ActiveKernels())};
        EvaluateInto(expression, xs, kOrdinate, values, errors);
        for (std::size_t i = 0; i < xs.size(); ++i) {
            const double expected = row.expected(xs[i], kOrdinate);
            EXPECT_EQ(values[i], expected) << ToUtf8(row.text) << " at " << xs[i];
            EXPECT_EQ(EvaluateExpression(expression, xs[i], kOrdinate), expected) << xs[i];
            EXPECT_EQ(errors[i], 0);
        }
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
