// A whole redraw: nine curves y(x) at 1920x1080, pen width 2, from the compiled expressions to the
// finished picture. Goal: below 16 ms on one core.
#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "graph/graph.h"
#include "painter/painter.h"

namespace kalvex {
namespace {

constexpr const char16_t* kTexts[kSlotCount] = {
    u"sin(x)/x",  u"x^3-3*x+1",  u"5*sin(x)", u"exp(0-x^2)*cos(5*x)",   u"ln(abs(x))+atg(x)",
    u"1/(x-0.1)", u"4*sin(x^2)", u"x^2-5",    u"8*cos(3*x)*sin(0.3*x)",
};

FunctionList NineCurves() {
    FunctionList functions;
    for (std::size_t i = 0; i < functions.size(); ++i) {
        FunctionEntry& entry = functions[i];
        entry.type = static_cast<std::int32_t>(EquationType::Decart);
        entry.color = static_cast<std::int32_t>(i) + 1;
        entry.selected = 1;
        entry.text = kTexts[i];
        entry.compiled[0] = CompileExpression(kTexts[i]);
    }
    return functions;
}

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
