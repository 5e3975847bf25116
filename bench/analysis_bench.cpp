// What `Analyze` costs once the picture stands: the analysis of a curve with many roots and
// extremums, and its report, by the width of the picture. Goal: 4,000 columns below 1 ms.
#include <benchmark/benchmark.h>

#include "analysis/report.h"
#include "graph/graph.h"

namespace kalvex {
namespace {

struct Drawn {
    GraphState state;
    FunctionList functions;

    explicit Drawn(std::int32_t width) {
        functions[0].type = EquationType::Decart;
        functions[0].selected = 1;
        functions[0].text = u"sin(20*x)+0.3*cos(7*x)";
        functions[0].compiled[0] = CompileExpression(functions[0].text);
        state.viewport.ClientWidth = width;
        state.viewport.ClientHeight = 1000;
        const auto measure = [](std::u16string_view, std::int32_t) { return TextExtent{}; };
        static_cast<void>(DrawGraph(state, functions, {}, measure, {}));
    }
    void AnalyseInto(AnalysisResult& result) const {
        analyzeSampledCurve(result, functions[0], state.viewport.ClientHeight, state.viewport.view);
    }
};

void Analysis(benchmark::State& state) {
    const Drawn drawn(static_cast<std::int32_t>(state.range(0)));
    AnalysisResult result;
    for (auto _ : state) {
        drawn.AnalyseInto(result);
        benchmark::DoNotOptimize(result);
    }
    state.counters["roots"] = result.rootCount;
}
BENCHMARK(Analysis)->Arg(1000)->Arg(4000)->Arg(16000)->Unit(benchmark::kMicrosecond);

void Report(benchmark::State& state) {
    const Drawn drawn(static_cast<std::int32_t>(state.range(0)));
    AnalysisResult result;
    drawn.AnalyseInto(result);
    for (auto _ : state) {
        auto pages = ReportPages(result, drawn.functions[0].text);
        benchmark::DoNotOptimize(pages);
    }
}
BENCHMARK(Report)->Arg(1000)->Arg(4000)->Arg(16000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kalvex
