// A whole redraw: nine curves y(x) at 1920x1080, pen width 2, from the compiled expressions to the
// finished picture. Goal: below 16 ms on one core. DrawPointFile draws one line of a million
// points.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <filesystem>
#include <fstream>

#include "base/encoding.h"
#include "expr/normaliser.h"
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

/// The same picture with soft edges; the argument is the device pixel ratio.
void SmoothRedraw(benchmark::State& state) {
    FunctionList functions = NineCurves();
    GraphState graph = BenchState();
    const MeasureText measure = PainterTextMeasure();
    const auto ratio = static_cast<double>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(PaintPicture(DrawGraph(graph, functions, WidePen(), measure, {}),
                                              ratio, Playing::Smooth));
}
BENCHMARK(SmoothRedraw)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

/// Two implicit curves beside each other; the argument says whether they get their lines.
void ImplicitRedraw(benchmark::State& state) {
    FunctionList functions;
    constexpr std::u16string_view kTexts[] = {u"y^2-x^3+12*x-5", u"sin(x)*cos(y)-0.3"};
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        functions[i].type = EquationType::Implicit;
        functions[i].color = static_cast<std::int32_t>(i) + 1;
        functions[i].selected = 1;
        functions[i].text = kTexts[i];
        functions[i].workingText = kTexts[i];
        NormaliseImplicit(functions[i].workingText);
        functions[i].compiled[0] = CompileExpression(functions[i].workingText);
    }
    GraphState graph = BenchState();
    graph.contours = state.range(0) != 0;
    const Playing playing = graph.contours ? Playing::Smooth : Playing::Classic;
    const MeasureText measure = PainterTextMeasure();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            PaintPicture(DrawGraph(graph, functions, {}, measure, {}), 1.0, playing));
}
BENCHMARK(ImplicitRedraw)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);

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
