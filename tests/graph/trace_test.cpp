#include "graph/trace.h"

#include <gtest/gtest.h>

#include "base/encoding.h"
#include "expr/eval_error.h"
#include "graph_fixtures.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;
using fixtures::MeasureFixed;

using Texts = std::vector<std::u16string>;

constexpr double kUndefined = UndefinedValue;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

FunctionEntry WithSamples(EquationType type, const std::vector<CurveSample>& samples) {
    FunctionEntry entry = MakeEntry(type, u"");
    entry.samples = samples;
    return entry;
}

TEST(TraceTexts, OfACurveWithoutParameter) {
    const FunctionEntry entry =
        WithSamples(EquationType::Decart, {{0, 0, 1.0, 1.0, 0, 0}, {1, 1, 1.5, 2.25, 0, 0}});
    EXPECT_EQ(TraceTexts(entry, 1, true), (Texts{u"x=1.500000", u"y=2.250000", u"dy/dx=2.500000"}));
    EXPECT_EQ(TraceTexts(entry, 1, false), (Texts{u"x=1.500000", u"y=2.250000"}));
    EXPECT_EQ(TraceTexts(entry, 0, true), (Texts{u"x=1.000000", u"y=1.000000", u"dy/dx: error"}));
    const FunctionEntry file = WithSamples(EquationType::File, entry.samples);
    EXPECT_EQ(TraceTexts(file, 1, true), TraceTexts(entry, 1, true));
}

TEST(TraceTexts, OfACurveWithParameter) {
    const std::vector<CurveSample> samples = {{0, 0, 1.0, 1.0, 0.0, 0}, {1, 1, 2.0, 4.0, 0.5, 0}};
    for (const EquationType type : {EquationType::Polar, EquationType::Parametric}) {
        const FunctionEntry entry = WithSamples(type, samples);
        EXPECT_EQ(TraceTexts(entry, 1, true),
                  (Texts{u"T=0.500000", u"x=2.000000", u"y=4.000000",
                         u"dy/dx=3.000000\ndx/dT=2.000000\ndy/dT=6.000000"}));
        EXPECT_EQ(TraceTexts(entry, 1, false),
                  (Texts{u"T=0.500000", u"x=2.000000", u"y=4.000000"}));
        EXPECT_EQ(TraceTexts(entry, 0, true).back(), u"dy/dx: error\ndx/dT: error\ndy/dT: error");
    }
}

TEST(TraceTexts, ShowErrorsWhereAQuotientIsNone) {
    const std::pair<CurveSample, CurveSample> rows[] = {
        {{0, 0, 1, kUndefined, 0, 1}, {0, 0, 2, 4, 1, 0}},
        {{0, 0, 1, 3, 0, 0}, {0, 0, 2, kUndefined, 1, 1}},
        {{0, 0, 2, 3, 0, 0}, {0, 0, 2, 4, 1, 0}},
        {{0, 0, 1, kNan, 0, 0}, {0, 0, 2, 4, 1, 0}},
        {{0, 0, 0, -1e308, 0, 0}, {0, 0, 1e-300, 1e308, 1, 0}},
    };
    for (const auto& [before, at] : rows) {
        EXPECT_EQ(TraceTexts(WithSamples(EquationType::Decart, {before, at}), 1, true).back(),
                  u"dy/dx: error");
        EXPECT_EQ(TraceTexts(WithSamples(EquationType::Polar, {before, at}), 1, true).back(),
                  u"dy/dx: error\ndx/dT: error\ndy/dT: error");
    }
    // X alone is undefined: its marker 1e30 would give finite values to all three quotients.
    const std::pair<CurveSample, CurveSample> halves[] = {
        {{0, 0, kUndefined, 3, 0, 3}, {0, 0, 2, 4, 1, 0}},
        {{0, 0, 1, 3, 0, 0}, {0, 0, kUndefined, 4, 1, 3}},
    };
    for (const auto& [before, at] : halves)
        EXPECT_EQ(TraceTexts(WithSamples(EquationType::Parametric, {before, at}), 1, true).back(),
                  u"dy/dx: error\ndx/dT: error\ndy/dT: error");
    const FunctionEntry still =
        WithSamples(EquationType::Parametric, {{0, 0, 1, 2, 3, 0}, {0, 0, 4, 5, 3, 0}});
    EXPECT_EQ(TraceTexts(still, 1, true).back(), u"dy/dx: error\ndx/dT: error\ndy/dT: error");
}

TEST(TraceTexts, ShowTheReasonOfAnUndefinedValue) {
    const struct {
        double y;
        std::int32_t status;
        std::u16string_view text;
    } rows[] = {
        {kUndefined, 1, u"Devide error\nDivision by 0 not allowed"},
        {kUndefined, 3, u"ln error\nThe logarithm of a negative argument is not specified"},
        {kUndefined, 1000,
         u"Interpolation error\nWhen linear interpolation, extrapolation is impossible"},
        {kUndefined, 0, u"y=1000000000000000019884624838656.000000"},
        {kUndefined, 4711, u"y=1000000000000000019884624838656.000000"},
        {5.0, 1, u"y=5.000000"},
        {-kNan, 0, u"y=nan"},
        {std::numeric_limits<double>::infinity(), 0, u"y=inf"},
    };
    for (const auto& row : rows) {
        const FunctionEntry entry =
            WithSamples(EquationType::Decart, {{0, 0, 1.0, row.y, 0, row.status}});
        EXPECT_EQ(TraceTexts(entry, 0, true).at(1), row.text);
    }
}

TEST(TraceTexts, NeedASample) {
    const FunctionEntry entry = WithSamples(EquationType::Decart, {{}, {}});
    EXPECT_TRUE(TraceTexts(entry, -1, true).empty());
    EXPECT_TRUE(TraceTexts(entry, 2, true).empty());
    EXPECT_TRUE(TraceTexts(WithSamples(EquationType::Decart, {}), 0, true).empty());
}

/// A window with three traceable functions in slots 2, 5 and 9 and an implicit one in slot 1.
struct Drawn {
    GraphState state;
    FunctionList functions;
    Drawn() {
        state.viewport = MakeViewport(-10, 10, -10, 10);
        functions[0] = MakeEntry(EquationType::Implicit, u"x*0+y");
        functions[1] = MakeEntry(EquationType::Decart, u"x^2");
        functions[4] = MakeEntry(EquationType::Polar, u"x");
        functions[8] = MakeEntry(EquationType::Parametric, u"x", u"1/x");
        Redraw();
    }
    void Redraw() { static_cast<void>(DrawGraph(state, functions, Options{}, MeasureFixed, {})); }
};

TEST(Trace, ReadsASlopeBelowTwoOnTheParabola) {
    Drawn drawn;
    const auto& samples = drawn.functions[1].samples;
    std::int32_t at = 0;
    while (samples[static_cast<std::size_t>(at)].x < 1.0)
        ++at;
    const auto index = static_cast<std::size_t>(at);
    const double quotient =
        (samples[index].y - samples[index - 1].y) / (samples[index].x - samples[index - 1].x);
    EXPECT_LT(quotient, 2 * samples[index].x) << "a backward quotient lies below the slope";
    EXPECT_EQ(TraceTexts(drawn.functions[1], at, true).back(),
              u"dy/dx=" + Widen(FormatFixed(quotient)));
}

TEST(Trace, ClampsTheIndex) {
    Drawn drawn;
    EXPECT_EQ(drawn.state.trace.function, 1);
    const struct {
        std::int64_t asked;
        std::int32_t got;
    } rows[] = {{-1, 0},    {0, 0},           {17, 17},      {239, 239},
                {240, 239}, {INT64_MAX, 239}, {INT64_MIN, 0}};
    for (const auto& row : rows) {
        MoveTraceTo(drawn.state, drawn.functions, row.asked);
        EXPECT_EQ(drawn.state.trace.index, row.got);
        const CurveSample& sample = drawn.functions[1].samples[static_cast<std::size_t>(row.got)];
        EXPECT_EQ(drawn.state.trace.pixel, (PixelPoint{sample.column, sample.row}));
    }
}

TEST(Trace, ChangesTheFunctionRoundTheList) {
    Drawn drawn;
    std::vector<int> forward, back;
    for (int i = 0; i < 4; ++i) {
        ChangeTraceFunction(drawn.state, drawn.functions, 1);
        forward.push_back(drawn.state.trace.function.value_or(-1));
    }
    EXPECT_EQ(forward, (std::vector<int>{4, 8, 1, 4}));
    for (int i = 0; i < 4; ++i) {
        ChangeTraceFunction(drawn.state, drawn.functions, -1);
        back.push_back(drawn.state.trace.function.value_or(-1));
    }
    EXPECT_EQ(back, (std::vector<int>{1, 8, 4, 1}));
}

TEST(Trace, KeepsToTheShorterCacheOfAnotherFunction) {
    Drawn drawn;
    MoveTraceTo(drawn.state, drawn.functions, 239);
    ChangeTraceFunction(drawn.state, drawn.functions, 1);
    EXPECT_EQ(drawn.functions[4].samples.size(), 180u);
    EXPECT_EQ(drawn.state.trace.index, 179);
}

TEST(Trace, FindsNothingWhereNothingCanBeTraced) {
    GraphState state;
    FunctionList functions;
    functions[3] = MakeEntry(EquationType::Implicit, u"x*0+y");
    ChangeTraceFunction(state, functions, 1);
    EXPECT_EQ(TracedFunction(state, functions), nullptr);
    state.trace.function = 3;
    EXPECT_EQ(TracedFunction(state, functions), nullptr);
    MoveTraceTo(state, functions, 5);
    EXPECT_EQ(state.trace.pixel, PixelPoint{});
}

TEST(Trace, OffersTheAnalysisForCurvesWithoutParameter) {
    EXPECT_TRUE(OffersAnalysis(MakeEntry(EquationType::Decart, u"x")));
    EXPECT_TRUE(OffersAnalysis(MakeEntry(EquationType::File, u"")));
    EXPECT_FALSE(OffersAnalysis(MakeEntry(EquationType::Polar, u"x")));
    EXPECT_FALSE(OffersAnalysis(MakeEntry(EquationType::Parametric, u"x", u"x")));
}

}  // namespace
}  // namespace kalvex
