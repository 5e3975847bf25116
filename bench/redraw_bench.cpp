// A whole redraw: nine curves y(x) at 1920x1080, pen width 2, from the compiled expressions to the
// finished picture. Goal: below 16 ms on one core. DrawPointFile draws one line of a million
// points.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <filesystem>
#include <fstream>

#include "base/encoding.h"
#include "graph/file_lines.h"
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

/// One line of a million points, from its table to the records; without reading the file.
void DrawPointFile(benchmark::State& state) {
    const std::string path = std::filesystem::temp_directory_path() / "kalvex-redraw-bench.txt";
    std::ofstream file(path);
    for (int i = 0; i < 1000000; ++i)
        file << -10.0 + i * 2e-5 << ' ' << i % 7 << '\n';
    file.close();
    FunctionList functions;
    functions[0].type = EquationType::File;
    functions[0].selected = 1;
    functions[0].method.approx = static_cast<std::int32_t>(ApproxMethod::LinearSpline);
    functions[0].workingText = ToUtf16(path);
    if (!ReadPointFiles(functions, PathsOf(functions)))
        state.SkipWithError("the points cannot be read");
    std::filesystem::remove(path);
    GraphState graph = BenchState();
    const MeasureText measure = PainterTextMeasure();
    for (auto _ : state)
        benchmark::DoNotOptimize(DrawGraph(graph, functions, WidePen(), measure, {}));
}
BENCHMARK(DrawPointFile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kalvex

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
