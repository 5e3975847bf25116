// A whole redraw: nine curves y(x) at 1920x1080, pen width 2, from the compiled expressions to the
// finished picture. Goal: below 16 ms on one core.
#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "graph/graph.h"
#include "nine_curves.h"
#include "painter/painter.h"

namespace kalvex {
namespace {

GraphState BenchState() {
    GraphState state;
    state.viewport.ClientWidth = 1920;
    state.viewport.ClientHeight = 1080;
    return state;
}

Options WidePen() {
    Options options;
    options.Wight = 2;
    return options;
}

void DrawRecords(benchmark::State& state) {
    FunctionList functions = NineCurves();
    GraphState graph = BenchState();
    const MeasureText measure = PainterTextMeasure();
    for (auto _ : state)
        benchmark::DoNotOptimize(DrawGraph(graph, functions, WidePen(), measure, {}));
}
BENCHMARK(DrawRecords)->Unit(benchmark::kMillisecond);

void Redraw(benchmark::State& state) {
    FunctionList functions = NineCurves();
    GraphState graph = BenchState();
    const MeasureText measure = PainterTextMeasure();
    for (auto _ : state)
        benchmark::DoNotOptimize(PaintPicture(DrawGraph(graph, functions, WidePen(), measure, {})));
}
BENCHMARK(Redraw)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kalvex

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
