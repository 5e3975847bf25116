#include <gtest/gtest.h>

#include "base/encoding.h"
#include "graph/curves.h"
#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;

TEST(SampleParametric, EndsOneStepShortOfTheMaximum) {
    FunctionEntry entry = MakeEntry(EquationType::Parametric, u"x", u"2*x");
    DrawList list;
    const Viewport viewport = MakeViewport(-10, 10, -10, 10);
    PlotParametric(entry, viewport, 0.0, 240.0, Pen{}, list);
    ASSERT_EQ(entry.samples.size(), 240u);
    EXPECT_EQ(entry.samples[0].parameter, 0.0);
    EXPECT_EQ(entry.samples[239].parameter, 239.0);
    EXPECT_EQ(entry.samples[239].y, 478.0);
    EXPECT_EQ(entry.samples[239].column, 0) << "the last one is unplotted";
    EXPECT_EQ(entry.samples[238].column, WorldToScreenX(viewport.view, 238.0));
    EXPECT_EQ(fixtures::RecordsOf<SegmentsRecord>(list)[0].segments.size(), 239u)
        << "no jump threshold";
}

TEST(SampleParametric, DrawsNothingOverAnEmptyRange) {
    FunctionEntry entry = MakeEntry(EquationType::Parametric, u"x", u"x^2");
    DrawList list;
    PlotParametric(entry, MakeViewport(-10, 10, -10, 10), 2.0, 2.0, Pen{}, list);
    EXPECT_EQ(entry.samples.size(), 240u);
    EXPECT_TRUE(list.records.empty());
}

TEST(SampleParametric, TakesTheStatusOfXFirst) {
    const struct {
        const char16_t* x;
        const char16_t* y;
        const char16_t* like;
    } rows[] = {{u"ln(0-1)", u"1/0", u"ln(0-1)"}, {u"x", u"1/0", u"1/0"}, {u"1/0", u"x", u"1/0"}};
    for (const auto& row : rows) {
        FunctionEntry entry = MakeEntry(EquationType::Parametric, row.x, row.y);
        DrawList list;
        PlotParametric(entry, MakeViewport(-10, 10, -10, 10), 0.0, 1.0, Pen{}, list);
        const std::vector<double> at{0.5};
        EXPECT_EQ(entry.samples[5].status, EvaluateAt(CompileExpression(row.like), at)[0].error);
        EXPECT_NE(entry.samples[5].status, 0);
        EXPECT_EQ(entry.samples[5].column, 0);
        EXPECT_TRUE(list.records.empty());
    }
}

// A running sum, or another order of the operations, gives the neighbouring column here.
TEST(SampleParametric, TakesItsParametersByMultiplication) {
    const struct {
        double xmin, xmax, minParam, maxParam;
        std::int32_t width;
        std::size_t index;
        double parameter;
        std::int32_t column;
    } rows[] = {
        {2.0, 9.0, -5.0, 11.0, 300, 154, 3.2133333333333347, 52},
        {-3.9, 9.1, -6.0, 0.6, 640, 570, -0.12187500000000107, 185},
    };
    for (const auto& row : rows) {
        FunctionEntry entry = MakeEntry(EquationType::Parametric, u"x", u"1");
        DrawList list;
        PlotParametric(entry, MakeViewport(row.xmin, row.xmax, -10, 10, row.width), row.minParam,
                       row.maxParam, Pen{}, list);
        EXPECT_EQ(entry.samples[row.index].parameter, row.parameter) << row.xmin;
        EXPECT_EQ(entry.samples[row.index].column, row.column) << row.xmin;
    }
}

// Parameters 0, 1, 2 and so on; a half is undefined from 3 on or up to 3.
TEST(SampleParametric, LeavesASampleBesideAnUndefinedOneUnplotted) {
    const struct {
        const char16_t* x;
        const char16_t* y;
        std::size_t unplotted;
        std::size_t plotted;
    } rows[] = {{u"ln(3-x)", u"x+1", 2, 1},
                {u"x+1", u"ln(3-x)", 2, 1},
                {u"ln(x-3)", u"x+1", 3, 4},
                {u"x+1", u"ln(x-3)", 3, 4}};
    for (const auto& row : rows) {
        FunctionEntry entry = MakeEntry(EquationType::Parametric, row.x, row.y);
        DrawList list;
        PlotParametric(entry, MakeViewport(-10, 10, -10, 10), 0.0, 240.0, Pen{}, list);
        EXPECT_EQ(entry.samples[row.unplotted].column, 0) << ToUtf8(row.x);
        EXPECT_EQ(entry.samples[row.unplotted].row, 0) << ToUtf8(row.x);
        EXPECT_NE(entry.samples[row.plotted].column, 0) << ToUtf8(row.x);
    }
}

TEST(SampleParametric, SurvivesEveryWindowAndRange) {
    for (const auto& [low, high] : fixtures::ExtremeBounds())
        for (const auto& size : fixtures::kExtremeSizes) {
            FunctionEntry entry = MakeEntry(EquationType::Parametric, u"x", u"1/x");
            DrawList list;
            PlotParametric(entry, MakeViewport(low, high, low, high, size.width, size.height), low,
                           high, Pen{}, list);
            EXPECT_EQ(entry.samples.size(), static_cast<std::size_t>(size.width));
        }
}

}  // namespace
}  // namespace kalvex
