// Implicit pictures of 1920x1080 pixels over -10..10: by rows, and point by point with a walked
// tree. Both must set the same pixels before anything is timed.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "graph/implicit.h"
#include "tree_walk.h"

namespace kalvex {
namespace {

constexpr std::int32_t kWidth = 1920;
constexpr std::int32_t kHeight = 1080;
constexpr const char16_t* kTexts[] = {u"x*0+x^2+y^2-4", u"x*0+sin(x)*cos(y)-0.3",
                                      u"x*0+sin(x^2+y^2)-cos(x*y)"};

Viewport BenchViewport() {
    Viewport viewport;
    LayoutViewport(viewport, kWidth, kHeight);
    return viewport;
}

std::vector<PixelRun> WalkedRuns(const bench::TreeNode& tree, const Viewport& viewport) {
    const ViewWindow& view = viewport.view;
    const double hx = (view.Xmax - view.Xmin) / (kWidth - 1);
    const double hy = (view.Ymax - view.Ymin) / (kHeight - 1);
    std::vector<double> above(kWidth);
    for (int i = 0; i < kWidth; ++i)
        above[static_cast<std::size_t>(i)] =
            bench::WalkTree(tree, view.Xmin + i * hx, view.Ymax + hy / 2);
    std::vector<PixelRun> runs;
    for (int j = 0; j < kHeight; ++j) {
        const double y = view.Ymax - j * hy;
        double left = bench::WalkTree(tree, view.Xmin - hx / 2, y);
        for (int i = 0; i < kWidth; ++i) {
            const double x = view.Xmin + i * hx;
            const double right = bench::WalkTree(tree, x + hx / 2, y);
            const double below = bench::WalkTree(tree, x, y - hy / 2);
            double& upper = above[static_cast<std::size_t>(i)];
            if (right * left <= 0 || upper * below <= 0) {
                const bool joins = !runs.empty() && runs.back().row == j &&
                                   runs.back().column + runs.back().length == i;
                if (joins)
                    ++runs.back().length;
                else
                    runs.push_back({j, i, 1});
            }
            upper = below;
            left = right;
        }
    }
    return runs;
}

void RequireEqualPixels(const char16_t* text) {
    const Viewport viewport = BenchViewport();
    const auto tree = bench::ParseTree(text);
    const auto rows = ImplicitPixels(CompileExpression(text), viewport, {}, {});
    if (tree && !rows.runs.empty() && rows.runs == WalkedRuns(*tree, viewport)) return;
    std::fprintf(stderr, "the two methods set different pixels\n");
    std::exit(1);
}

void ByRows(benchmark::State& state) {
    const char16_t* const text = kTexts[state.range(0)];
    RequireEqualPixels(text);
    const CompiledExpression expression = CompileExpression(text);
    const Viewport viewport = BenchViewport();
    for (auto _ : state)
        benchmark::DoNotOptimize(ImplicitPixels(expression, viewport, {}, {}));
}
BENCHMARK(ByRows)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void PointByPointTree(benchmark::State& state) {
    const char16_t* const text = kTexts[state.range(0)];
    const auto tree = bench::ParseTree(text);
    const Viewport viewport = BenchViewport();
    for (auto _ : state)
        benchmark::DoNotOptimize(WalkedRuns(*tree, viewport));
}
BENCHMARK(PointByPointTree)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kalvex
