#include "graph/auto_zoom.h"

#include <gtest/gtest.h>

#include "expr/eval_error.h"
#include "graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;

constexpr double kUndefined = UndefinedValue;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A drawn function with these values in its cache.
FunctionEntry WithValues(const std::vector<double>& values,
                         EquationType type = EquationType::Decart) {
    FunctionEntry entry = MakeEntry(type, u"");
    for (const double value : values)
        entry.samples.push_back({0, 0, 0.0, value, 0.0, 0});
    return entry;
}

struct Outcome {
    bool done = false;
    Viewport viewport = MakeViewport(-7, 8, -2, 3);
    std::vector<MessageBox> boxes;
};

Outcome RunAutoZoom(const FunctionList& functions) {
    Outcome outcome;
    outcome.done = AutoZoom(outcome.viewport, functions, [&](const MessageBox& box) {
        outcome.boxes.push_back(box);
        return MessageAnswer::Ok;
    });
    return outcome;
}

Outcome RunOn(const std::vector<std::vector<double>>& caches) {
    FunctionList functions;
    for (std::size_t i = 0; i < caches.size(); ++i)
        functions[i] = WithValues(caches[i]);
    return RunAutoZoom(functions);
}

void ExpectRefused(const Outcome& outcome, std::u16string_view text) {
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.viewport.view.Ymin, -2);
    EXPECT_EQ(outcome.viewport.view.Ymax, 3);
    ASSERT_EQ(outcome.boxes.size(), 1u);
    EXPECT_EQ(outcome.boxes[0].caption, u"Error!");
    EXPECT_EQ(outcome.boxes[0].text, text);
    EXPECT_EQ(outcome.boxes[0].icon, MessageIcon::Stop);
}

constexpr std::u16string_view kTooBig = u"Certain automatically coordinates are too big!";
constexpr std::u16string_view kUndetermined =
    u"We can not determine the boundaries automatically. Just enter a border by hand in the "
    u"window 'Window View'";

TEST(AutoZoom, TakesTheExtremesOfTheCaches) {
    const struct {
        std::vector<std::vector<double>> caches;
        double ymin, ymax;
    } rows[] = {
        {{{100, 25, 0, 25, 100}}, 100 * -0.1, 100 * 1.1},
        {{{-4, 7}}, -4 * 1.1, 7 * 1.1},
        {{{-4, 0}}, -4 * 1.1, -4 * -0.1},
        {{{1, 2}, {-3, 0.5}}, -3 * 1.1, 2 * 1.1},
        // A tenth is taken by multiplication with -0.1; a division by 10 would give 0.3.
        {{{0, 3}}, -0.30000000000000004, 3 * 1.1},
        {{{-3, 0}}, -3 * 1.1, 0.30000000000000004},
        // KEEP: the factor moves a positive minimum and a negative maximum inward.
        {{{10, 20}}, 10 * 1.1, 20 * 1.1},
        {{{-20, -10}}, -20 * 1.1, -10 * 1.1},
        {{{5, 5}}, 5 * 1.1, 5 * 1.1},
        // Values exactly at the limits -131 and 131 are accepted.
        {{{-131, 131}}, -131 * 1.1, 131 * 1.1},
        {{{0, 1}, {-131, 131}}, 1 * -0.1, 1 * 1.1},
        // Undefined values are ignored, the first one as well as later ones.
        {{{kUndefined, 3, kUndefined, -1}}, -1 * 1.1, 3 * 1.1},
        {{{2, kUndefined, kUndefined}}, 2 * 1.1, 2 * 1.1},
        {{{kNan, 3, kNan, 1}}, 1 * 1.1, 3 * 1.1},
        // A function without any defined value is ignored, whatever its slot.
        {{{kUndefined, kUndefined}, {1, 2}}, 1 * 1.1, 2 * 1.1},
        {{{1, 2}, {}, {kUndefined}, {kNan}}, 1 * 1.1, 2 * 1.1},
    };
    for (const auto& row : rows) {
        const Outcome outcome = RunOn(row.caches);
        EXPECT_TRUE(outcome.done);
        EXPECT_TRUE(outcome.boxes.empty());
        EXPECT_EQ(outcome.viewport.view.Ymin, row.ymin);
        EXPECT_EQ(outcome.viewport.view.Ymax, row.ymax);
        EXPECT_EQ(outcome.viewport.view.Xmin, -7);
        EXPECT_EQ(outcome.viewport.view.Xmax, 8);
    }
}

TEST(AutoZoom, ConstantZeroGivesEqualBounds) {
    const Outcome outcome = RunOn({{0, 0, 0}});
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.viewport.view.Ymin, 0.0);
    EXPECT_EQ(outcome.viewport.view.Ymax, 0.0);
}

TEST(AutoZoom, RefusesLargeValues) {
    const std::vector<std::vector<double>> rows[] = {
        {{190, 200, 210}}, {{-131.5, 0}},  {{0, 131.5}},          {{1, 2}, {0, 1e9}}, {{-1e300}},
        {{-kInfinity, 1}}, {{-kInfinity}}, {{kUndefined}, {500}}, {{1e31, 0}},        {{kInfinity}},
    };
    for (const auto& row : rows)
        ExpectRefused(RunOn(row), kTooBig);
}

TEST(AutoZoom, AMaximumDoesNotGrowBeyondTheMark) {
    // KEEP: a value of 1e29 or more becomes the maximum only when it is the first one.
    for (const double large : {1e29, 1e31, kInfinity}) {
        const Outcome outcome = RunOn({{1, large, 2}});
        EXPECT_TRUE(outcome.done);
        EXPECT_EQ(outcome.viewport.view.Ymax, 2 * 1.1);
    }
}

TEST(AutoZoom, NeedsAValue) {
    ExpectRefused(RunOn({{kUndefined, kUndefined}, {}}), kUndetermined);
    ExpectRefused(RunOn({}), kUndetermined);
    ExpectRefused(RunOn({{kNan}}), kUndetermined);
}

TEST(AutoZoom, LooksOnlyAtDrawnFunctions) {
    FunctionList functions;
    functions[2] = WithValues({1, 2});
    functions[4] = WithValues({-50, 50});
    functions[4].selected = 0;
    functions[5] = WithValues({-60, 60}, static_cast<EquationType>(17));
    functions[8] = WithValues({-1, 0}, EquationType::Parametric);
    const Outcome outcome = RunAutoZoom(functions);
    EXPECT_EQ(outcome.viewport.view.Ymin, -1 * 1.1);
    EXPECT_EQ(outcome.viewport.view.Ymax, 2 * 1.1);
}

}  // namespace
}  // namespace kalvex
