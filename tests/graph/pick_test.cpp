#include "graph/pick.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "graph/explore_commands.h"
#include "graph/overlay.h"
#include "graph/trace.h"
#include "graph_fixtures.h"

namespace kalvex {
namespace {

using fixtures::MakeEntry;
using fixtures::MakeViewport;
using fixtures::MeasureFixed;

/// A drawn parabola and a drawn polar curve in the window -10..10 on 240 x 240 pixels.
struct Graph {
    GraphState state;
    FunctionList functions;
    std::vector<MessageBox> boxes;
    ShowMessage show = [this](const MessageBox& box) {
        boxes.push_back(box);
        return MessageAnswer::Ok;
    };

    Graph() {
        state.viewport = MakeViewport(-10, 10, -10, 10, 240, 240);
        SaveAsPrevious(state.viewport);
        functions[0] = MakeEntry(EquationType::Decart, u"x^2");
        functions[2] = MakeEntry(EquationType::Polar, u"x");
        Redraw();
    }
    void Redraw() { static_cast<void>(DrawGraph(state, functions, Options{}, MeasureFixed, {})); }
    PictureChange Press(int x, int y) { return PressPointer(state, functions, {x, y}); }
    PictureChange Move(int x, int y) { return MovePointer(state, functions, {x, y}); }
    PictureChange Finish(const PickResult& picked) {
        if (!picked.refusal) return picked.change;
        show(*picked.refusal);
        return LeaveRefusedBox(state);
    }
    PictureChange Lift(int x, int y) { return Finish(LiftPointer(state, functions, {x, y})); }
    PictureChange PickAt() { return Finish(PickAtCursor(state)); }
    PictureChange Tap(int x, int y) {
        Press(x, y);
        return Lift(x, y);
    }
    std::optional<PictureChange> Run(CommandId command) {
        return RunExploreCommand(state, functions, command, show);
    }
    std::u16string Title() const { return TitleOf(state, functions); }
    const ViewWindow& View() const { return state.viewport.view; }
    void ExpectBounds(double xmin, double xmax, double ymin, double ymax) const {
        EXPECT_EQ(View().Xmin, xmin);
        EXPECT_EQ(View().Xmax, xmax);
        EXPECT_EQ(View().Ymin, ymin);
        EXPECT_EQ(View().Ymax, ymax);
    }
};

TEST(BoxMode, TakesTwoTaps) {
    Graph graph;
    EXPECT_EQ(graph.Title(), u"Kalvex");
    EXPECT_EQ(graph.Run(CommandId::ZoomBox), PictureChange::Overlay);
    EXPECT_EQ(graph.state.mode, GraphMode::Box);
    EXPECT_EQ(graph.Title(), u"Choose First point");
    EXPECT_EQ(graph.Tap(60, 180), PictureChange::Overlay);
    EXPECT_EQ(graph.Title(), u"Choose Second point");
    EXPECT_EQ(graph.state.trace.pixel, (PixelPoint{60, 180}));
    graph.Press(100, 100);
    EXPECT_EQ(graph.Move(180, 120), PictureChange::Overlay);
    EXPECT_EQ(graph.state.trace.pixel, (PixelPoint{180, 120}));
    EXPECT_EQ(graph.Lift(180, 120), PictureChange::Curves);
    graph.ExpectBounds(-5, 5, -5, 0);
    EXPECT_EQ(graph.state.mode, GraphMode::Normal);
    EXPECT_EQ(graph.Title(), u"Kalvex");
    EXPECT_TRUE(graph.boxes.empty());
    EXPECT_EQ(graph.Run(CommandId::ZoomPre), PictureChange::Curves);
    graph.ExpectBounds(-10, 10, -10, 10);
}

TEST(BoxMode, TakesOneLongDrag) {
    Graph graph;
    graph.Run(CommandId::ZoomBox);
    graph.Press(60, 60);
    EXPECT_EQ(graph.Title(), u"Choose Second point");
    graph.Move(90, 90);
    EXPECT_EQ(graph.Lift(120, 180), PictureChange::Curves);
    graph.ExpectBounds(-5, 0, -5, 5);
}

TEST(BoxMode, ATremblingTapIsNoDrag) {
    Graph graph;
    graph.Run(CommandId::ZoomBox);
    graph.Press(60, 60);
    EXPECT_EQ(graph.Lift(79, 41), PictureChange::Overlay);
    EXPECT_EQ(graph.state.mode, GraphMode::Box);
    EXPECT_EQ(graph.state.firstCorner->x, -5);
    graph.Tap(120, 120);
    graph.ExpectBounds(-5, 0, 0, 5);
}

TEST(BoxMode, RefusesPointsInLine) {
    for (const PixelPoint second : {PixelPoint{60, 100}, PixelPoint{100, 60}, PixelPoint{60, 60}}) {
        Graph graph;
        graph.Run(CommandId::ZoomBox);
        graph.Tap(60, 60);
        EXPECT_EQ(graph.Tap(second.x, second.y), PictureChange::Curves);
        graph.ExpectBounds(-10, 10, -10, 10);
        EXPECT_EQ(graph.state.mode, GraphMode::Normal);
        ASSERT_EQ(graph.boxes.size(), 1u);
        EXPECT_EQ(graph.boxes[0].text, u"You choose points with same X of Y!");
        EXPECT_EQ(graph.boxes[0].caption, u"Error!");
        EXPECT_EQ(graph.boxes[0].icon, MessageIcon::Stop);
    }
}

TEST(BoxMode, LastsUntilTheRefusalIsAnswered) {
    Graph graph;
    std::vector<std::u16string> titles;
    std::vector<GraphMode> modes;
    graph.show = [&](const MessageBox&) {
        titles.push_back(graph.Title());
        modes.push_back(graph.state.mode);
        return MessageAnswer::Ok;
    };
    graph.Run(CommandId::ZoomBox);
    graph.Tap(60, 60);
    graph.Tap(100, 60);
    EXPECT_EQ(titles, (std::vector<std::u16string>{u"Choose Second point"}));
    EXPECT_EQ(modes, (std::vector<GraphMode>{GraphMode::Box}));
    EXPECT_EQ(graph.Title(), u"Kalvex");
    EXPECT_EQ(graph.state.mode, GraphMode::Normal);
}

TEST(BoxMode, StaysInsideThePicture) {
    Graph graph;
    graph.Run(CommandId::ZoomBox);
    graph.Press(-50, 500);
    EXPECT_EQ(graph.state.trace.pixel, (PixelPoint{0, 239}));
    graph.Lift(INT32_MAX, INT32_MIN);
    EXPECT_EQ(graph.View().Xmin, -10);
    EXPECT_EQ(graph.View().Ymax, 10);
}

TEST(BoxMode, CanBeLeft) {
    Graph graph;
    graph.Run(CommandId::ZoomBox);
    graph.Tap(60, 60);
    EnterNormalMode(graph.state);
    graph.ExpectBounds(-10, 10, -10, 10);
    EXPECT_FALSE(graph.state.firstCorner);
    graph.Run(CommandId::ZoomBox);
    EXPECT_EQ(graph.Title(), u"Choose First point") << "the old corner is forgotten";
}

TEST(BoxMode, ForgetsACornerWhosePointerIsTakenAway) {
    Graph graph;
    graph.Run(CommandId::ZoomBox);
    graph.Press(60, 60);
    DropPointer(graph.state);
    EXPECT_EQ(graph.Title(), u"Choose First point");
    EXPECT_EQ(graph.Lift(200, 200), PictureChange::None);
    graph.Tap(60, 60);
    DropPointer(graph.state);
    EXPECT_EQ(graph.Title(), u"Choose Second point") << "a corner that was tapped stays";
}

TEST(BoxMode, GoesOnAfterAFixedWindow) {
    Graph graph;
    graph.Run(CommandId::ZoomBox);
    graph.Tap(120, 120);
    graph.Run(CommandId::QuickStandart);
    graph.Run(CommandId::ZoomAuto);
    EXPECT_EQ(graph.state.mode, GraphMode::Box);
    EXPECT_EQ(graph.state.firstCorner->x, 0);
    graph.Run(CommandId::QuickXSquared);
    EXPECT_EQ(graph.Title(), u"Choose Second point");
    graph.Tap(0, 0);
    graph.ExpectBounds(-6.5, 0, 0, 8);
}

TEST(CentreMode, ZoomsWhenThePointerIsLifted) {
    const struct {
        CommandId command;
        double half;
    } rows[] = {{CommandId::ZoomIn, 5}, {CommandId::ZoomOut, 20}};
    for (const auto& row : rows) {
        Graph graph;
        EXPECT_EQ(graph.Run(row.command), PictureChange::Overlay);
        EXPECT_EQ(graph.Title(), u"Choose middle point");
        EXPECT_EQ(graph.state.trace.pixel, (PixelPoint{120, 120}));
        EXPECT_EQ(graph.Press(10, 10), PictureChange::Overlay);
        EXPECT_EQ(graph.Move(180, 60), PictureChange::Overlay);
        graph.ExpectBounds(-10, 10, -10, 10);
        EXPECT_EQ(graph.Lift(180, 60), PictureChange::Curves);
        graph.ExpectBounds(5 - row.half, 5 + row.half, 5 - row.half, 5 + row.half);
        EXPECT_EQ(graph.Title(), u"Kalvex");
        graph.Run(CommandId::ZoomPre);
        graph.ExpectBounds(-10, 10, -10, 10);
        graph.Run(CommandId::ZoomPre);
        graph.ExpectBounds(-10, 10, -10, 10);
    }
}

TEST(CentreMode, CommandsInTheMiddleOfAPick) {
    Graph graph;
    graph.Run(CommandId::ZoomIn);
    graph.Press(60, 60);
    graph.Run(CommandId::ZoomOut);
    EXPECT_EQ(graph.Lift(60, 60), PictureChange::None) << "the pointer belonged to the old pick";
    EXPECT_EQ(graph.state.mode, GraphMode::Centre);
    graph.Run(CommandId::Trace);
    EXPECT_EQ(graph.state.mode, GraphMode::Trace);
    graph.Run(CommandId::ZoomBox);
    EXPECT_EQ(graph.state.mode, GraphMode::Box);
    graph.Run(CommandId::ZoomPre);
    EXPECT_EQ(graph.state.mode, GraphMode::Normal);
    graph.ExpectBounds(-10, 10, -10, 10);
}

TEST(Commands, SayWhetherTheyKeepTheWindowBefore) {
    const struct {
        CommandId command;
        bool saves;
    } rows[] = {
        {CommandId::ZoomBox, true},
        {CommandId::ZoomIn, true},
        {CommandId::ZoomOut, true},
        {CommandId::QuickInit, true},
        {CommandId::QuickTrig, true},
        {CommandId::QuickLogX, true},
        {CommandId::QuickExpX, true},
        {CommandId::QuickXSquared, true},
        {CommandId::QuickMinusXSquared, true},
        {CommandId::QuickStandart, true},
        {CommandId::ZoomAuto, false},
        {CommandId::ZoomPre, false},
        {CommandId::Trace, false},
    };
    for (const auto& row : rows) {
        Graph graph;
        graph.state.viewport.view.Xmax = 9;
        graph.Run(row.command);
        EXPECT_EQ(graph.state.viewport.PreviousWindow.Xmax, row.saves ? 9 : 10)
            << static_cast<int>(row.command);
    }
    Graph graph;
    EXPECT_FALSE(graph.Run(CommandId::Picture).has_value());
    EXPECT_FALSE(graph.Run(CommandId::ZoomFactor).has_value());
}

TEST(Commands, PreAfterTwoFixedWindowsShowsTheFirst) {
    Graph graph;
    graph.Run(CommandId::QuickTrig);
    graph.Run(CommandId::QuickInit);
    for (int i = 0; i < 2; ++i) {
        graph.Run(CommandId::ZoomPre);
        graph.ExpectBounds(-9.4245, 9.4245, -1.5, 1.5);
    }
}

TEST(ZoomAtOnce, ZoomsAboutThePopup) {
    Graph graph;
    graph.Run(CommandId::ZoomBox);
    EXPECT_EQ(ZoomAtOnce(graph.state, {180, 60}, ZoomDirection::In), PictureChange::Curves);
    graph.ExpectBounds(0, 10, 0, 10);
    EXPECT_EQ(graph.Title(), u"Kalvex");
    graph.Run(CommandId::ZoomPre);
    graph.ExpectBounds(-10, 10, -10, 10);
}

TEST(ZoomAtOnce, SavesTheWindowBefore) {
    for (const ZoomDirection direction : {ZoomDirection::In, ZoomDirection::Out}) {
        Graph graph;
        graph.state.viewport.view.Xmax = 9;
        graph.state.viewport.view.Yfactor = 3;
        static_cast<void>(ZoomAtOnce(graph.state, {180, 60}, direction));
        EXPECT_EQ(graph.state.viewport.PreviousWindow.Xmax, 9);
        EXPECT_EQ(graph.state.viewport.PreviousWindow.Yfactor, 3);
    }
}

TEST(TraceMode, MovesInTheLowerBandOnly) {
    Graph graph;
    EXPECT_EQ(graph.Run(CommandId::Trace), PictureChange::Overlay);
    EXPECT_EQ(graph.Title(), u"x^2");
    EXPECT_EQ(graph.state.trace.index, 120);
    EXPECT_EQ(LowerBandStart(graph.state.viewport), 200);
    EXPECT_EQ(UpperBandEnd(graph.state.viewport), 40);
    EXPECT_EQ(graph.Press(30, 200), PictureChange::Overlay);
    EXPECT_EQ(graph.state.trace.index, 30);
    graph.Move(77, 5);
    EXPECT_EQ(graph.state.trace.index, 77) << "the drag may leave the band";
    graph.Move(-3, 5);
    EXPECT_EQ(graph.state.trace.index, 0);
    graph.Lift(1000, 5);
    EXPECT_EQ(graph.state.trace.index, 239);
    EXPECT_EQ(graph.Press(30, 199), PictureChange::None);
    EXPECT_EQ(graph.Move(60, 230), PictureChange::None);
    EXPECT_EQ(graph.Lift(60, 230), PictureChange::None);
    EXPECT_EQ(graph.state.trace.index, 239);
    graph.ExpectBounds(-10, 10, -10, 10);
}

TEST(TraceMode, SlidesToAnotherFunction) {
    Graph graph;
    graph.Run(CommandId::Trace);
    graph.Press(100, 39);
    EXPECT_EQ(graph.Move(139, 39), PictureChange::None);
    EXPECT_EQ(graph.Move(140, 39), PictureChange::Overlay);
    EXPECT_EQ(graph.state.trace.function, 2);
    EXPECT_EQ(graph.Title(), u"x");
    EXPECT_EQ(graph.Move(100, 120), PictureChange::Overlay);
    EXPECT_EQ(graph.state.trace.function, 0);
    graph.Lift(100, 120);
    // One long move changes the function several times; the rest of its distance is kept.
    graph.functions[5] = MakeEntry(EquationType::Decart, u"5");
    graph.functions[7] = MakeEntry(EquationType::Decart, u"7");
    graph.Press(10, 0);
    EXPECT_EQ(graph.Move(149, 0), PictureChange::Overlay);
    EXPECT_EQ(graph.state.trace.function, 7);
    EXPECT_EQ(graph.Move(169, 0), PictureChange::None);
    EXPECT_EQ(graph.Move(170, 0), PictureChange::Overlay);
    EXPECT_EQ(graph.state.trace.function, 0);
    graph.Move(INT32_MIN, 0);
    graph.Move(INT32_MAX, 0);
}

TEST(TraceMode, NeedsAFunction) {
    Graph graph;
    graph.functions[0].selected = 0;
    graph.functions[2].type = EquationType::Implicit;
    EXPECT_EQ(graph.Run(CommandId::Trace), PictureChange::None);
    EXPECT_EQ(graph.state.mode, GraphMode::Normal);
}

TEST(TraceMode, KeepsItsSampleThroughAZoom) {
    Graph graph;
    graph.Run(CommandId::Trace);
    MoveTraceTo(graph.state, graph.functions, 50);
    graph.Run(CommandId::QuickInit);
    graph.Redraw();
    EXPECT_EQ(graph.state.mode, GraphMode::Trace);
    EXPECT_EQ(graph.state.trace.index, 50);
    EXPECT_EQ(graph.state.trace.pixel.x, graph.functions[0].samples[50].column);
}

TEST(TraceMode, CutsALongTitle) {
    Graph graph;
    graph.functions[0].text.assign(5000, u'x');
    graph.Run(CommandId::Trace);
    EXPECT_EQ(graph.Title().size(), 200u);
}

TEST(NormalMode, Pans) {
    Graph graph;
    EXPECT_EQ(graph.Press(100, 100), PictureChange::None);
    EXPECT_EQ(graph.Move(112, 88), PictureChange::Curves);
    graph.ExpectBounds(-11, 9, -11, 9);
    EXPECT_EQ(graph.Move(112, 88), PictureChange::None);
    graph.Lift(100, 100);
    graph.ExpectBounds(-10, 10, -10, 10);
    EXPECT_EQ(graph.Move(0, 0), PictureChange::None) << "nothing is down";
    graph.Press(0, 0);
    graph.Move(INT32_MAX, INT32_MIN);
    graph.Move(INT32_MIN, INT32_MAX);
    EXPECT_TRUE(std::isfinite(graph.View().Xmin));
}

TEST(Cursor, MovesByKeysAndPicks) {
    Graph graph;
    EXPECT_EQ(MoveCursorBy(graph.state, 1, 1), PictureChange::None);
    EXPECT_EQ(graph.PickAt(), PictureChange::None);
    graph.Run(CommandId::ZoomBox);
    static_cast<void>(MoveCursorBy(graph.state, -60, -60));
    EXPECT_EQ(graph.PickAt(), PictureChange::Overlay);
    EXPECT_EQ(graph.Title(), u"Choose Second point");
    static_cast<void>(MoveCursorBy(graph.state, 60, 120));
    EXPECT_EQ(graph.PickAt(), PictureChange::Curves);
    graph.ExpectBounds(-5, 0, -5, 5);
    graph.Run(CommandId::ZoomIn);
    static_cast<void>(MoveCursorBy(graph.state, 100'000, -100'000));
    EXPECT_EQ(graph.state.trace.pixel, (PixelPoint{239, 0}));
}

TEST(Gesture, SavesOneWindow) {
    Graph graph;
    ZoomGesture gesture;
    for (int i = 0; i < 5; ++i)
        static_cast<void>(StepGesture(graph.state, gesture, {0, 0}, 0.5, 0.5));
    EXPECT_EQ(graph.state.viewport.PreviousWindow.Xmax, 10);
    EXPECT_EQ(graph.View().Xmin, -10);
    EXPECT_EQ(graph.View().Xmax, -10 + 20 / 32.0);
    gesture = {};
    static_cast<void>(StepGestureByFactors(graph.state, gesture, ZoomDirection::Out));
    EXPECT_EQ(graph.state.viewport.PreviousWindow.Xmax, -10 + 20 / 32.0);
}

TEST(Gesture, IgnoresFactorsThatAreNone) {
    for (const double factor : {0.0, -1.0, std::numeric_limits<double>::infinity(), std::nan("")}) {
        Graph graph;
        graph.state.viewport.view.Xfactor = factor;
        ZoomGesture gesture;
        static_cast<void>(StepGestureByFactors(graph.state, gesture, ZoomDirection::In));
        graph.ExpectBounds(-10, 10, -5, 5);
    }
}

TEST(PanByTenths, MovesTheWindow) {
    Graph graph;
    static_cast<void>(PanByTenths(graph.state, 1, 0));
    graph.ExpectBounds(-8, 12, -10, 10);
    static_cast<void>(PanByTenths(graph.state, 0, -2));
    graph.ExpectBounds(-8, 12, -14, 6);
}

TEST(Overlay, FollowsTheMode) {
    Graph graph;
    Options options;
    Overlay overlay = OverlayOf(graph.state, graph.functions, options);
    EXPECT_FALSE(overlay.cross || overlay.corner || !overlay.bands.empty());
    graph.Run(CommandId::ZoomBox);
    graph.Tap(60, 60);
    static_cast<void>(MoveCursorBy(graph.state, 10, 0));
    overlay = OverlayOf(graph.state, graph.functions, options);
    EXPECT_EQ(overlay.corner, (PixelPoint{60, 60}));
    EXPECT_EQ(overlay.cross, (PixelPoint{70, 60}));
    graph.Run(CommandId::Trace);
    overlay = OverlayOf(graph.state, graph.functions, options);
    ASSERT_EQ(overlay.bands.size(), 2u);
    EXPECT_EQ(overlay.bands[0].prompt, u"<< Slide to select function >>");
    EXPECT_EQ(overlay.bands[1].prompt, u" << Touch to select the coordinates >>");
    EXPECT_EQ(overlay.bands[1].top, 200);
    EXPECT_EQ(overlay.bands[1].bottom, 240);
    EXPECT_EQ(overlay.texts.size(), 3u);
    EXPECT_TRUE(overlay.cross.has_value());
    options.Diff = 0;
    EXPECT_EQ(OverlayOf(graph.state, graph.functions, options).texts.size(), 2u);
}

TEST(Overlay, HidesTheCrossOnAnUnplottedSample) {
    Graph graph;
    graph.functions[0] = MakeEntry(EquationType::Decart, u"ln(x)");
    graph.Redraw();
    graph.Run(CommandId::Trace);
    MoveTraceTo(graph.state, graph.functions, 3);
    const Overlay overlay = OverlayOf(graph.state, graph.functions, Options{});
    EXPECT_FALSE(overlay.cross);
    EXPECT_EQ(overlay.texts.at(1),
              u"ln error\nThe logarithm of a negative argument is not specified");
    EXPECT_EQ(overlay.texts.at(2), u"dy/dx: error");
}

TEST(Modes, SurviveEveryWindowAndSize) {
    for (const auto& [low, high] : fixtures::ExtremeBounds()) {
        for (const auto& size : fixtures::kExtremeSizes) {
            Graph graph;
            graph.state.viewport = MakeViewport(low, high, low, high, size.width, size.height);
            graph.Redraw();
            for (const CommandId command :
                 {CommandId::ZoomBox, CommandId::ZoomIn, CommandId::ZoomOut, CommandId::Trace,
                  CommandId::ZoomAuto, CommandId::ZoomPre}) {
                graph.Run(command);
                graph.Tap(0, size.height);
                graph.Tap(size.width, 0);
                static_cast<void>(OverlayOf(graph.state, graph.functions, Options{}));
                static_cast<void>(PanByTenths(graph.state, 1, 1));
                EnterNormalMode(graph.state);
            }
        }
    }
}

}  // namespace
}  // namespace kalvex
