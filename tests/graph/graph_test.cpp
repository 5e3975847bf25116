#include "graph/graph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;
using fixtures::RecordsOf;

Options PlainOptions() {
    Options options;
    options.Axex = options.Setka = options.Coord = options.Label = 0;
    return options;
}

GraphState StateOf(const Viewport& viewport) {
    GraphState state;
    state.viewport = viewport;
    return state;
}

DrawList Draw(GraphState& state, FunctionList& functions, const Options& options) {
    return DrawGraph(state, functions, options, fixtures::MeasureFixed, {});
}

TEST(Graph, DrawsItsLayersInOrder) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[2] = MakeEntry(EquationType::Decart, u"x");
    Options options;
    const DrawList list = Draw(state, functions, options);
    EXPECT_EQ(list.width, 240);
    EXPECT_EQ(list.height, 268);
    ASSERT_GE(list.records.size(), 5u);
    EXPECT_EQ(std::get<SegmentsRecord>(list.records[0]).pen.color, (Rgb{130, 130, 130}));
    EXPECT_EQ(std::get<SegmentsRecord>(list.records[1]).pen.color, Rgb{});
    EXPECT_EQ(std::get<TextRecord>(list.records[2]).height, 10);
    const std::size_t count = list.records.size();
    EXPECT_TRUE(std::holds_alternative<PolylineRecord>(list.records[count - 2]));
    EXPECT_EQ(std::get<TextRecord>(list.records[count - 1]).text, u"x");
}

RecordOrigin OriginOf(const DrawRecord& record) {
    return std::visit([](const auto& one) { return one.origin; }, record);
}

TEST(Graph, NotesTheOriginOfEachRecord) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[0] = MakeEntry(EquationType::Polar, u"5");
    functions[2] = MakeEntry(EquationType::Decart, u"1/x");
    functions[3] = MakeEntry(EquationType::Decart, u"x");
    functions[3].selected = 0;
    functions[8] = MakeEntry(EquationType::Implicit, u"x-y");
    const DrawList list = Draw(state, functions, Options{});
    std::vector<RecordOrigin> origins;  // without repetitions
    for (const DrawRecord& record : list.records) {
        const RecordOrigin origin = OriginOf(record);
        if (origins.empty() || !(origins.back() == origin)) origins.push_back(origin);
    }
    const std::vector<RecordOrigin> expected = {
        {DrawLayer::Grid},     {DrawLayer::Axes},     {DrawLayer::Numbers},
        {DrawLayer::Curve, 0}, {DrawLayer::Curve, 2}, {DrawLayer::Curve, 8},
        {DrawLayer::Name, 0},  {DrawLayer::Name, 2},  {DrawLayer::Name, 8}};
    EXPECT_EQ(origins, expected);
}

TEST(Graph, SwitchesEachLayer) {
    FunctionList functions;
    const auto count = [&](const Options& options) {
        GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
        return Draw(state, functions, options).records.size();
    };
    Options options = PlainOptions();
    EXPECT_EQ(count(options), 0u);
    options.Setka = 1;
    EXPECT_EQ(count(options), 1u);
    options.Setka = 2;
    EXPECT_EQ(count(options), 13u);
    options.Setka = 3;
    EXPECT_EQ(count(options), 0u);
    options.Axex = 1;
    EXPECT_EQ(count(options), 1u);
    options.Coord = 1;
    EXPECT_GT(count(options), 10u);
}

/// The lines of a layer of a picture without functions.
std::vector<Segment> LinesOf(const Viewport& viewport, const Options& options, DrawLayer layer) {
    GraphState state = StateOf(viewport);
    FunctionList functions;
    std::vector<Segment> lines;
    for (const auto& record : RecordsOf<SegmentsRecord>(Draw(state, functions, options)))
        if (record.origin.layer == layer)
            lines.insert(lines.end(), record.segments.begin(), record.segments.end());
    return lines;
}

TEST(Graph, HasTheFineGridOnlyInsteadOfTheOneOfLines) {
    for (const auto& [kind, fine, lines] :
         {std::tuple{0, 1, false}, {1, 0, false}, {1, 1, true}, {2, 1, false}}) {
        Options options = PlainOptions();
        options.Setka = static_cast<std::uint8_t>(kind);
        options.FineGrid = static_cast<std::uint8_t>(fine);
        const auto grid = LinesOf(MakeViewport(-0.1, 0.1, -0.1, 0.1), options, DrawLayer::Grid);
        const bool far = std::any_of(grid.begin(), grid.end(), [](const Segment& line) {
            return line.from.x == line.to.x && line.from.x != 120.0;
        });
        EXPECT_EQ(far, lines) << kind << fine;
    }
}

TEST(Graph, HasTheTicksOfNumbersOnlyWithAxesAndNumbers) {
    for (const auto& [axes, numbers, ticks] :
         {std::tuple{1, 1, true}, {1, 0, false}, {0, 1, false}}) {
        Options options = PlainOptions();
        options.Axex = static_cast<std::uint8_t>(axes);
        options.Coord = static_cast<std::uint8_t>(numbers);
        const auto lines = LinesOf(MakeViewport(-0.5, 0.5, -0.5, 0.5), options, DrawLayer::Axes);
        const Segment tick{{168, 134}, {168, 131}};  // at 0.2
        EXPECT_EQ(std::find(lines.begin(), lines.end(), tick) != lines.end(), ticks)
            << axes << numbers;
    }
}

TEST(Graph, DrawsSelectedSlotsInOrderAndLeavesTheOthersAlone) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[0] = MakeEntry(EquationType::Decart, u"x");
    functions[0].selected = 0;
    functions[0].samples.resize(3);
    functions[1] = MakeEntry(EquationType::None, u"x");
    functions[1].type = static_cast<EquationType>(77);
    functions[2] = MakeEntry(EquationType::Decart, u"x");
    functions[2].color = 5;
    functions[4] = MakeEntry(EquationType::Decart, u"2*x");
    functions[4].color = 4;
    Options options = PlainOptions();
    options.Wight = 3;
    const auto lines = RecordsOf<PolylineRecord>(Draw(state, functions, options));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].pen.color, (Rgb{0, 0, 255}));
    EXPECT_EQ(lines[0].pen.width, 3);
    EXPECT_EQ(lines[1].pen.color, (Rgb{50, 205, 50}));
    EXPECT_EQ(functions[0].samples.size(), 3u);
    EXPECT_TRUE(functions[1].samples.empty());
    EXPECT_EQ(state.trace.function, 2);
}

TEST(Graph, ChoosesTheFirstFunctionThatIsNotImplicit) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[0] = MakeEntry(EquationType::Implicit, u"x*0+x-y");
    functions[0].samples.resize(5);
    Draw(state, functions, PlainOptions());
    EXPECT_FALSE(state.trace.function.has_value());
    EXPECT_TRUE(functions[0].samples.empty()) << "an implicit curve keeps no samples";
    EXPECT_EQ(state.trace.pixel, (PixelPoint{120, 120})) << "the width for both";
    functions[5] = MakeEntry(EquationType::Polar, u"x");
    functions[6] = MakeEntry(EquationType::Decart, u"x");
    Draw(state, functions, PlainOptions());
    EXPECT_EQ(state.trace.function, 5);
    functions[1] = MakeEntry(EquationType::Decart, u"x");
    Draw(state, functions, PlainOptions());
    EXPECT_EQ(state.trace.function, 5) << "a chosen function stays";
}

TEST(Graph, LeavesTheCursorOfAPickAlone) {
    for (const EquationType type :
         {EquationType::Decart, EquationType::Parametric, EquationType::Implicit}) {
        GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
        state.mode = GraphMode::Centre;
        state.trace.index = 7;
        state.trace.pixel = {3, 4};
        FunctionList functions;
        functions[0] = MakeEntry(type, u"x", u"x");
        Draw(state, functions, PlainOptions());
        EXPECT_EQ(state.trace.index, 7) << static_cast<int>(type);
        EXPECT_EQ(state.trace.pixel, (PixelPoint{3, 4})) << static_cast<int>(type);
    }
}

TEST(Graph, KeepsTheTraceOnItsSample) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    state.mode = GraphMode::Trace;
    state.trace.index = 7;
    FunctionList functions;
    functions[0] = MakeEntry(EquationType::Decart, u"x");
    Draw(state, functions, PlainOptions());
    EXPECT_EQ(state.trace.index, 7);
    const CurveSample& sample = functions[0].samples[7];
    EXPECT_EQ(state.trace.pixel, (PixelPoint{sample.column, sample.row}));
    state.trace.index = 100'000;
    Draw(state, functions, PlainOptions());
    EXPECT_EQ(state.trace.index, 239) << "clamped to the cache";
}

TEST(Graph, PlacesTheCursorOnTheMiddleSample) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[0] = MakeEntry(EquationType::Decart, u"1/(x-x)");
    Draw(state, functions, PlainOptions());
    EXPECT_EQ(state.trace.index, 120);
    EXPECT_EQ(state.trace.pixel, PixelPoint{});
    functions[0] = MakeEntry(EquationType::Decart, u"x");
    state.mode = GraphMode::Box;
    Draw(state, functions, PlainOptions());
    EXPECT_EQ(state.trace.pixel, PixelPoint{}) << "a pick keeps its cursor";
    state.mode = GraphMode::Normal;
    Draw(state, functions, PlainOptions());
    EXPECT_EQ(state.trace.pixel,
              (PixelPoint{functions[0].samples[120].column, functions[0].samples[120].row}));
}

TEST(Graph, DrawsImplicitCurvesOnePixelWide) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[0] = MakeEntry(EquationType::Implicit, u"x*0+x^2+y^2-4");
    Options options = PlainOptions();
    options.Wight = 9;
    const DrawList list = Draw(state, functions, options);
    ASSERT_EQ(list.records.size(), 1u);
    EXPECT_EQ(std::get<PixelRunsRecord>(list.records[0]).color, (Rgb{255, 0, 0}));
}

TEST(Graph, ClampsThePenWidth) {
    const struct {
        std::int32_t Wight, width;
    } rows[] = {{INT32_MIN, 1}, {0, 1}, {64, 64}, {INT32_MAX, 64}};
    for (const auto& row : rows) {
        GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
        FunctionList functions;
        functions[0] = MakeEntry(EquationType::Decart, u"x");
        functions[1] = MakeEntry(EquationType::Polar, u"x");
        functions[2] = MakeEntry(EquationType::Parametric, u"x", u"x");
        Options options = PlainOptions();
        options.Wight = row.Wight;
        const DrawList list = Draw(state, functions, options);
        EXPECT_EQ(RecordsOf<PolylineRecord>(list).at(0).pen.width, row.width);
        const auto segments = RecordsOf<SegmentsRecord>(list);
        ASSERT_EQ(segments.size(), 2u);
        EXPECT_EQ(segments[0].pen.width, row.width);
        EXPECT_EQ(segments[1].pen.width, row.width);
    }
}

TEST(Graph, SurvivesEverySize) {
    for (const auto& size : {fixtures::Size{0, 0}, {-5, -5}, {1, 1}, {1, 500}, {500, 1}}) {
        GraphState state = StateOf(MakeViewport(-10, 10, -10, 10, size.width, size.height));
        FunctionList functions;
        functions[0] = MakeEntry(EquationType::Decart, u"x");
        functions[1] = MakeEntry(EquationType::Parametric, u"x", u"x");
        functions[2] = MakeEntry(EquationType::Implicit, u"x*0+x-y");
        functions[3] = MakeEntry(EquationType::Polar, u"x");
        EXPECT_EQ(Draw(state, functions, Options{}).width, size.width);
    }
}

/// A File line with the given number of points on y = x.
FunctionEntry FileEntry(int points, std::int32_t approx) {
    FunctionEntry entry = MakeEntry(EquationType::File, u"a.txt");
    entry.method.approx = approx;
    for (int i = 0; i < points; ++i)
        entry.points.x.push_back(i);
    entry.points.y = entry.points.x;
    return entry;
}

TEST(Graph, DrawsFileLinesAndPutsTheCursorOnTheirMiddle) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[3] = FileEntry(4, 8);
    const DrawList list = Draw(state, functions, PlainOptions());
    EXPECT_EQ(RecordsOf<CircleRecord>(list).size(), 4u);
    EXPECT_EQ(RecordsOf<PolylineRecord>(list).size(), 1u);
    EXPECT_EQ(functions[3].samples.size(), 240u);
    EXPECT_EQ(state.trace.function, 3);
    EXPECT_EQ(state.trace.index, 120);
    EXPECT_EQ(state.trace.pixel,
              (PixelPoint{functions[3].samples[120].column, functions[3].samples[120].row}));
    EXPECT_TRUE(state.approxFailures.empty());
}

TEST(Graph, TellsWhichMethodsFailedInTheLastRedraw) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[1] = FileEntry(4, 9);
    functions[2] = FileEntry(5, 9);
    functions[8] = FileEntry(2, 6);
    for (int redraw = 0; redraw < 2; ++redraw) {
        Draw(state, functions, PlainOptions());
        ASSERT_EQ(state.approxFailures.size(), 2u);
        EXPECT_EQ(state.approxFailures[0].slot, 1);
        EXPECT_EQ(state.approxFailures[0].diagnostic.reason, StringId::QuadraticEven);
        EXPECT_EQ(state.approxFailures[1].slot, 8);
    }
    EXPECT_EQ(functions[8].samples[static_cast<std::size_t>(state.trace.index)].status, 1000);
    functions[1].method.approx = functions[8].method.approx = 8;
    Draw(state, functions, PlainOptions());
    EXPECT_TRUE(state.approxFailures.empty());
}

TEST(Graph, TellsTheProgressOfALongFileLineAndStopsIt) {
    GraphState state = StateOf(MakeViewport(-10, 10, -10, 10));
    FunctionList functions;
    functions[0] = FileEntry(3000, 12);
    for (double& x : functions[0].points.x)
        x = 9 * std::cos(x / 1000);
    std::int32_t next = 0;
    int calls = 0;
    const auto progress = [&](const ProgressStretch& stretch) {
        EXPECT_EQ(stretch.firstColumn, next);
        EXPECT_LE(stretch.lastColumn, 239);
        EXPECT_EQ(stretch.color, ColorOf(1));
        next = stretch.lastColumn + 1;
        return ++calls < 4;
    };
    static_cast<void>(
        DrawGraph(state, functions, PlainOptions(), fixtures::MeasureFixed, progress));
    EXPECT_EQ(calls, 4);
    EXPECT_TRUE(state.approxFailures.empty());
}

}  // namespace
}  // namespace kalvex
