// Looking at a graph: from an event to the painted frame in a real window, nine curves y(x) at
// 1920x1080, and redraws of extreme windows. Goals: a drag keeps 60 frames a second (16 ms), moving
// the trace cursor costs no redraw, no window takes more than 100 ms at 1280x800.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <limits>

#include "graph/graph.h"
#include "nine_curves.h"
#include "painter/painter.h"
#include "ui/graph/graph_canvas.h"

namespace kalvex {
namespace {

struct Screen {
    GraphState graph;
    Workspace workspace;
    std::unique_ptr<GraphCanvas> canvas;

    Screen() {
        workspace.functions = NineCurves();
        workspace.options.Wight = 2;
        canvas = std::make_unique<GraphCanvas>(
            graph, workspace, [](QPointF) { return false; },
            [](const MessageBox&) { return MessageAnswer::Ok; }, nullptr);
        canvas->resize(1920, 1080);
        canvas->show();
        while (canvas->RedrawCount() == 0)
            QCoreApplication::processEvents();
    }
    void Send(QEvent::Type type, QPointF at) {
        QMouseEvent event(type, at, canvas->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(canvas.get(), &event);
    }
};

void DragToFrame(benchmark::State& state) {
    Screen screen;
    screen.Send(QEvent::MouseButtonPress, {900, 500});
    int turn = 0;
    for (auto _ : state) {
        const int count = screen.canvas->RedrawCount();
        ++turn;
        screen.Send(QEvent::MouseMove, {900.0 + turn % 40, 500.0 + turn % 30});
        while (screen.canvas->RedrawCount() == count)
            QCoreApplication::processEvents();
        screen.canvas->repaint();
    }
}
BENCHMARK(DragToFrame)->Unit(benchmark::kMillisecond);

void TraceMoveToFrame(benchmark::State& state) {
    Screen screen;
    static_cast<void>(
        RunExploreCommand(screen.graph, screen.workspace.functions, CommandId::Trace, {}));
    screen.Send(QEvent::MouseButtonPress, {900, 1079});
    const int count = screen.canvas->RedrawCount();
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        screen.Send(QEvent::MouseMove, {900.0 + turn % 40, 1079});
        screen.canvas->repaint();
    }
    if (screen.canvas->RedrawCount() != count) state.SkipWithError("a move computed a picture");
}
BENCHMARK(TraceMoveToFrame)->Unit(benchmark::kMillisecond);

struct Window {
    const char* name;
    double low;
    double high;
};

constexpr Window kWindows[] = {
    {"ordinary", -10.0, 10.0},
    {"huge", -1e300, 1e300},
    {"tiny", 1e-300, 2e-300},
    {"one last place", 1.0, 1.0 + 2.3e-16},
    {"a million units", -1e6, 1e6},
    {"equal", 3.0, 3.0},
    {"reversed", 10.0, -10.0},
    {"infinite", -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()},
    {"not-a-number", std::numeric_limits<double>::quiet_NaN(), 1.0},
};

void ExtremeRedraw(benchmark::State& state) {
    const Window& window = kWindows[state.range(0)];
    FunctionList functions = NineCurves();
    GraphState graph;
    graph.viewport.ClientWidth = 1280;
    graph.viewport.ClientHeight = 800;
    ViewWindow& view = graph.viewport.view;
    view.Xmin = view.Ymin = window.low;
    view.Xmax = view.Ymax = window.high;
    Options options;
    options.Setka = static_cast<std::uint8_t>(state.range(1));
    const MeasureText measure = PainterTextMeasure();
    for (auto _ : state)
        benchmark::DoNotOptimize(PaintPicture(DrawGraph(graph, functions, options, measure, {})));
    state.SetLabel(window.name);
}
BENCHMARK(ExtremeRedraw)
    ->Unit(benchmark::kMillisecond)
    ->ArgsProduct({benchmark::CreateDenseRange(0, std::size(kWindows) - 1, 1), {1, 2}});

}  // namespace
}  // namespace kalvex

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
