// Checks that the error in every row of every reference table is within the goal of its function,
// with the kernels of every instruction set that this processor has.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include "accuracy/goals.h"
#include "accuracy/reference_table.h"
#include "base/encoding.h"
#include "expr/names.h"

namespace kalvex::accuracy {

/// What a failing test prints of its parameter.
static void PrintTo(const Goal& goal, std::ostream* out) {
    *out << goal.name;
}

namespace {

class Accuracy : public testing::TestWithParam<Goal> {};

void ExpectWithinTheGoal(const Goal& goal, const ReferenceRow& row, const KernelTable& kernels) {
    const EvaluationResult result = ResultAt(goal.name, row, kernels);
    const double error = MeasuredError(row, result);
    EXPECT_LE(error, GoalAt(row, goal.most))
        << goal.name << ".tsv:" << row.line << ": " << CallText(goal.name, row) << " = "
        << testing::PrintToString(result.value) << ", code " << result.error << ", expected "
        << testing::PrintToString(row.high) << " + " << row.low << ", condition number "
        << row.condition << ", n = " << error << ", kernels for " << kernels.name;
}

TEST_P(Accuracy, IsWithinTheGoal) {
    const Goal goal = GetParam();
    const std::vector<ReferenceRow> rows = ReadReferenceTable(goal.name);
    ASSERT_FALSE(rows.empty()) << "no table " << goal.name << ".tsv";
    const KernelTables kernels = AvailableKernelTables();
    for (const ReferenceRow& row : rows) {
        ASSERT_FALSE(row.arguments.empty()) << goal.name << ".tsv:" << row.line;
        for (std::size_t i = 0; i < kernels.count; ++i)
            ExpectWithinTheGoal(goal, row, *kernels.tables[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(Functions, Accuracy, testing::ValuesIn(kGoals),
                         [](const auto& function) { return std::string(function.param.name); });

// The goals are in the order of the table of functions. Powers are an operator; their goal is last.
TEST(AccuracyGoals, AreThoseOfTheLanguage) {
    ASSERT_EQ(kGoals.size(), kFunctionNames.size() + 1);
    for (std::size_t i = 0; i < kFunctionNames.size(); ++i)
        EXPECT_EQ(kGoals[i].name, ToUtf8(kFunctionNames[i].name));
    EXPECT_EQ(kGoals.back().name, "power");
}

TEST(AccuracyPage, DescribesEveryFunction) {
    for (const Goal& goal : kGoals) {
        EXPECT_FALSE(goal.domain.empty()) << goal.name;
        EXPECT_FALSE(goal.method.empty()) << goal.name;
        EXPECT_FALSE(goal.source.empty()) << goal.name;
    }
}

TEST(AccuracyMeasure, CountsUnitsInTheLastPlace) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double one = 1.0;
    const double ulp = std::numeric_limits<double>::epsilon();
    const double least = std::numeric_limits<double>::denorm_min();
    const double largest = std::numeric_limits<double>::max();
    const struct {
        double high, low, condition, value;
        int error;
        double expected;
    } rows[] = {
        {one, 0, 0, one, 0, 0},
        {one, 0, 0, one + ulp, 0, 1},
        {one, ulp / 4, 0, one + ulp, 0, 0.75},
        {one, ulp / 4, 2, one, 0, 0.25 / 3},
        {-3, 0, 0, -3 - 2 * ulp, 0, 1},
        {4 * least, 0, 0, 6 * least, 0, 2},
        {0, 0, 0, 3 * least, 0, 3},
        {largest, 0, 0, kInfinity, 0, 1},
        {one, 0, 0, one, 7, kInfinity},
        {one, 0, 0, std::nan(""), 0, kInfinity},
        {kInfinity, 0, 0, kInfinity, 0, 0},
        {kInfinity, 0, 0, one, 7, 0},
        {kInfinity, 0, 0, largest, 0, kInfinity},
        {kInfinity, 0, 0, -kInfinity, 0, kInfinity},
    };
    for (const auto& row : rows) {
        const ReferenceRow reference{{1.0}, row.high, row.low, row.condition, 1};
        EXPECT_EQ(MeasuredError(reference, {row.value, row.error}), row.expected)
            << row.high << " " << row.low << " " << row.value;
    }
}

}  // namespace
}  // namespace kalvex::accuracy
