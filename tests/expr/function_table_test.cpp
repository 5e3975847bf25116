// What holds for every row of the table of functions, whatever functions there are.
#include "expr/function_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "expr/evaluator.h"
#include "expr/kernels.h"
#include "expr/syntax_tree.h"
#include "kernel_calls.h"
#include "resources/edit_popup.h"

namespace kalvex {
namespace {

constexpr double kSamples[] = {-7.5, -2.0, -1.0, -0.5, 0.0, 0.5, 1.0, 2.0, 7.5, 40.0};

/// One group of lanes: the result of a function for each of several argument lists.
struct Lanes {
    std::vector<double> arguments[kMostOperands];
    std::vector<double> values = std::vector<double>(kPaddedLanes);
    std::vector<std::int32_t> errors = std::vector<std::int32_t>(kPaddedLanes);
    bool failed = false;
};

/// Eight argument lists drawn from kSamples.
Lanes RandomArguments(std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> index(0, std::size(kSamples) - 1);
    Lanes lanes;
    for (std::vector<double>& values : lanes.arguments) {
        for (std::size_t i = 0; i < kPaddedLanes; ++i)
            values.push_back(kSamples[index(random)]);
    }
    return lanes;
}

template <typename Run>
Lanes Computed(Lanes lanes, Run run) {
    Source sources[kMostOperands];
    for (std::size_t i = 0; i < kMostOperands; ++i)
        sources[i].values = lanes.arguments[i].data();
    lanes.failed = run({lanes.values.data(), sources, kPaddedLanes, lanes.errors.data()});
    return lanes;
}

std::vector<FunctionNumber> EveryFunction() {
    std::vector<FunctionNumber> numbers;
    for (std::size_t i = 0; i < kFunctionCount; ++i)
        numbers.push_back(static_cast<FunctionNumber>(i));
    return numbers;
}

std::string NameOf(FunctionNumber number) {
    return ToUtf8(FunctionAt(number).name);
}

TEST(FunctionTable, HasTheNamesOfTheVocabulary) {
    ASSERT_EQ(kFunctions.size(), kFunctionNames.size());
    for (std::size_t i = 0; i < kFunctions.size(); ++i) {
        EXPECT_EQ(kFunctions[i].name, kFunctionNames[i].name);
        EXPECT_EQ(kFunctions[i].arity, kFunctionNames[i].arity) << ToUtf8(kFunctions[i].name);
    }
}

TEST(FunctionTable, HasNoNameThatBeginsAnother) {
    for (const Function& a : kFunctions) {
        for (const Function& b : kFunctions) {
            EXPECT_FALSE(&a != &b && b.name.starts_with(a.name))
                << ToUtf8(a.name) << ", " << ToUtf8(b.name);
        }
    }
}

// The codes that evaluation sets are the row's own, and a row that has one can set it.
TEST(FunctionTable, SaysWhichCodeAFunctionSets) {
    for (const FunctionNumber number : EveryFunction()) {
        const Function& function = FunctionAt(number);
        testing_support::ForEachTable([&](const KernelTable& table) {
            std::mt19937 random(1);
            std::set<std::int32_t> seen;
            for (int i = 0; i < 40; ++i) {
                const Lanes lanes =
                    Computed(RandomArguments(random),
                             table.kernels[static_cast<std::size_t>(FunctionOp(number))]);
                seen.insert(lanes.errors.begin(), lanes.errors.end());
            }
            seen.erase(0);
            std::set<std::int32_t> expected;
            if (function.code != EvalCode::None)
                expected.insert(static_cast<std::int32_t>(function.code));
            if (function.lanes.failsEarlier != nullptr)
                expected.insert(static_cast<std::int32_t>(function.lanes.earlierCode));
            EXPECT_EQ(seen, expected) << NameOf(number);
            EXPECT_TRUE(seen.empty() || CanFail(function)) << NameOf(number);
        });
    }
}

TEST(FunctionTable, ComputesEveryFunctionByNumber) {
    const KernelTable& table = ActiveKernels();
    for (const FunctionNumber number : EveryFunction()) {
        std::mt19937 random(2);
        for (int i = 0; i < 10; ++i) {
            const Lanes arguments = RandomArguments(random);
            const Lanes byKernel =
                Computed(arguments, table.kernels[static_cast<std::size_t>(FunctionOp(number))]);
            const Lanes byNumber = Computed(arguments, [number](const KernelCall& call) {
                return RunLaneByLane(number, call);
            });
            EXPECT_EQ(byKernel.errors, byNumber.errors) << NameOf(number);
            EXPECT_EQ(byKernel.failed, byNumber.failed) << NameOf(number);
            for (std::size_t lane = 0; lane < kPaddedLanes; ++lane) {
                if (byKernel.errors[lane] != 0 || std::isnan(byKernel.values[lane])) continue;
                EXPECT_EQ(byKernel.values[lane], byNumber.values[lane]) << NameOf(number);
            }
        }
    }
}

/// Bounds of very different widths, some of them nearly as wide as the range of a double.
Bounds RandomBounds(std::mt19937& random) {
    std::uniform_real_distribution<double> magnitude(-20.0, 20.0);
    const double scales[] = {1e-300, 0.01, 1.0, 1e3, 1e300};
    std::uniform_int_distribution<std::size_t> scale(0, std::size(scales) - 1);
    const double a = magnitude(random) * scales[scale(random)];
    const double b = magnitude(random) * scales[scale(random)];
    return {std::min(a, b), std::max(a, b)};
}

/// A value in the interval: its ends for the first two lanes, a random one for the others.
double Within(const Bounds& bounds, std::size_t lane, std::mt19937& random) {
    if (lane == 0) return bounds.low;
    if (lane == 1) return bounds.high;
    std::uniform_real_distribution<double> part(0.0, 1.0);
    const double value = bounds.low + part(random) * (bounds.high - bounds.low);
    return std::clamp(value, bounds.low, bounds.high);
}

void ExpectWithinBounds(FunctionNumber number, std::mt19937& random) {
    const Function& function = FunctionAt(number);
    Bounds bounds[kMostOperands];
    Lanes lanes;
    for (std::size_t i = 0; i < kMostOperands; ++i) {
        bounds[i] = RandomBounds(random);
        for (std::size_t lane = 0; lane < kPaddedLanes; ++lane)
            lanes.arguments[i].push_back(Within(bounds[i], lane, random));
    }
    const MaybeBounds expected = function.bounds(bounds);
    if (!expected) return;
    testing_support::ForEachTable([&](const KernelTable& table) {
        const Lanes computed =
            Computed(lanes, table.kernels[static_cast<std::size_t>(FunctionOp(number))]);
        EXPECT_FALSE(computed.failed) << NameOf(number);
        for (std::size_t lane = 0; lane < kPaddedLanes; ++lane) {
            EXPECT_GE(computed.values[lane], expected->low)
                << NameOf(number) << " of " << lanes.arguments[0][lane];
            EXPECT_LE(computed.values[lane], expected->high)
                << NameOf(number) << " of " << lanes.arguments[0][lane];
        }
    });
}

// A new interval form is tested as soon as it stands in its row.
TEST(FunctionTable, BoundsEveryComputedValue) {
    int bounded = 0;
    for (const FunctionNumber number : EveryFunction()) {
        if (FunctionAt(number).bounds == kNoBounds) continue;
        ++bounded;
        std::mt19937 random(3);
        for (int i = 0; i < 2000; ++i)
            ExpectWithinBounds(number, random);
    }
    EXPECT_GE(bounded, 6);
}

void CollectInserted(const Menu& menu, std::set<std::u16string>& names) {
    for (const MenuEntry& entry : menu) {
        const std::u16string inserted = InsertedText(entry.id);
        if (!inserted.empty()) names.insert(inserted.substr(0, inserted.size() - 1));
        CollectInserted(entry.children, names);
    }
}

// What the popup of an edit line inserts is a function of one argument. One name is not: the menu
// offers it although the language does not know it.
TEST(FunctionTable, HasTheFunctionsOfTheEditPopup) {
    std::set<std::u16string> offered;
    CollectInserted(EditPopup(), offered);
    EXPECT_EQ(offered.erase(u"ctg"), 1U);
    for (const FunctionName& function : kFunctionNames) {
        if (function.arity == 1) offered.erase(std::u16string(function.name));
    }
    EXPECT_TRUE(offered.empty()) << ToUtf8(*offered.begin());
}

}  // namespace
}  // namespace kalvex
