// Stopping a drawing, whatever the type of its lines.
#include <gtest/gtest.h>

#include <atomic>
#include <bit>
#include <chrono>
#include <cmath>
#include <thread>

#include "graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// A text of x each value of which takes two or three milliseconds.
std::u16string SlowText() {
    std::u16string text;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        text += (text.empty() ? u"" : u"+") + std::u16string(u"Hyper(0-5000.5,abs(x)+700") + digit +
                u".3,8000.1,0.9)";
    return text;
}

FunctionEntry SlowFile() {
    FunctionEntry entry;
    entry.type = EquationType::File;
    entry.color = 1;
    entry.selected = 1;
    entry.method.approx = 12;
    for (int i = 0; i < 20000; ++i) {
        entry.points.x.push_back(-9.9 * std::cos(i * 1.57e-4));
        entry.points.y.push_back(1.0);
    }
    return entry;
}

struct Row {
    const char* name;
    FunctionEntry entry;
};

/// Lines that take a second or longer each.
std::vector<Row> SlowLines() {
    return {{"polar", MakeEntry(EquationType::Polar, SlowText())},
            {"decart", MakeEntry(EquationType::Decart, SlowText())},
            {"parametric", MakeEntry(EquationType::Parametric, u"x", SlowText())},
            {"implicit of x", MakeEntry(EquationType::Implicit, u"x*0+y-" + SlowText())},
            {"implicit", MakeEntry(EquationType::Implicit, u"x*0+Y(0.3,abs(y*x)+1)+" + SlowText())},
            {"file", SlowFile()}};
}

/// Sets a flag every few milliseconds.
struct Clicks {
    explicit Clicks(std::atomic<bool>& due)
        : thread([this, &due] {
              for (; !ended; std::this_thread::sleep_for(milliseconds(2)))
                  due = true;
          }) {}
    ~Clicks() {
        ended = true;
        thread.join();
    }
    std::atomic<bool> ended = false;
    std::thread thread;
};

TEST(Stop, EveryTypeOfLineIsStoppedSoonAndNoneBehindIt) {
    for (const Row& row : SlowLines()) {
        SCOPED_TRACE(row.name);
        GraphState state;
        state.viewport = fixtures::MakeViewport(-10, 10, -10, 10, 1920, 1080);
        FunctionList functions;
        functions[0] = functions[3] = row.entry;
        functions[0].samples.resize(7);
        functions[3].samples.resize(7);
        Options options;
        options.MaxAngle = 2147483647;
        Clock::time_point last = Clock::now();
        Clock::duration longest{};
        int calls = 0;
        Interruption interruption;
        interruption.goOn = [&] {
            longest = std::max(longest, Clock::now() - last);
            last = Clock::now();
            return ++calls < 40;
        };
        const DrawList list = [&] {
            const Clicks clicks(interruption.due);
            return DrawGraph(state, functions, options, fixtures::MeasureFixed, {}, &interruption);
        }();
        longest = std::max(longest, Clock::now() - last);
        EXPECT_EQ(calls, 40);
        EXPECT_LT(longest, milliseconds(100));
        EXPECT_TRUE(state.incomplete);
        EXPECT_TRUE(functions[0].samples.empty());
        EXPECT_TRUE(functions[3].samples.empty());
        for (const DrawRecord& record : list.records) {
            const RecordOrigin origin =
                std::visit([](const auto& one) { return one.origin; }, record);
            EXPECT_FALSE(origin == (RecordOrigin{DrawLayer::Curve, 3}));
        }
    }
}

TEST(Stop, ProgressStopsAllLinesToo) {
    GraphState state;
    state.viewport = fixtures::MakeViewport(-10, 10, -10, 10);
    FunctionList functions;
    functions[0] = MakeEntry(EquationType::Decart, u"x");
    functions[1] = MakeEntry(EquationType::Implicit, u"x*0+x-y");
    functions[2] = MakeEntry(EquationType::Decart, u"x^2");
    const auto stop = [](const ProgressStretch& stretch) { return stretch.lastColumn < 239; };
    static_cast<void>(DrawGraph(state, functions, Options{}, fixtures::MeasureFixed, stop));
    EXPECT_TRUE(state.incomplete);
    EXPECT_TRUE(functions[0].samples.empty());
    EXPECT_TRUE(functions[2].samples.empty());
    static_cast<void>(DrawGraph(state, functions, Options{}, fixtures::MeasureFixed, {}));
    EXPECT_FALSE(state.incomplete);
    EXPECT_EQ(functions[2].samples.size(), 240u);
}

TEST(Stop, AnInterruptedPictureIsTheSame) {
    for (const Row& row : SlowLines()) {
        SCOPED_TRACE(row.name);
        FunctionList functions[2];
        GraphState state;
        state.viewport = fixtures::MakeViewport(-10, 10, -10, 10, 40, 30);
        state.contours = false;  // they would take most of the time
        Options options;
        functions[0][0] = functions[1][0] = row.entry;
        if (row.entry.type == EquationType::File) {
            for (FunctionList& list : functions) {
                list[0].points.x.resize(500);
                list[0].points.y.resize(500);
            }
        }
        const DrawList plain = DrawGraph(state, functions[0], options, fixtures::MeasureFixed, {});
        Interruption interruption;
        interruption.goOn = [] { return true; };
        const DrawList watched = [&] {
            const Clicks clicks(interruption.due);
            return DrawGraph(
                state, functions[1], options, fixtures::MeasureFixed,
                [](const ProgressStretch&) { return true; }, &interruption);
        }();
        EXPECT_EQ(plain.records.size(), watched.records.size());
        ASSERT_EQ(functions[0][0].samples.size(), functions[1][0].samples.size());
        for (std::size_t i = 0; i < functions[0][0].samples.size(); ++i) {
            EXPECT_EQ(std::bit_cast<std::uint64_t>(functions[0][0].samples[i].y),
                      std::bit_cast<std::uint64_t>(functions[1][0].samples[i].y))
                << i;
            EXPECT_EQ(functions[0][0].samples[i].status, functions[1][0].samples[i].status) << i;
        }
    }
}

}  // namespace
}  // namespace kalvex
