// One pass of each method over 1,000 and 1,000,000 points: the set-up and 1,920 values across the
// range of the points, which are placed like the extreme points of a Chebyshev polynomial, because
// only there do the polynomials of methods 1 and 12 have values at all for so many points. Method
// 12 refuses 1,000,000; it has 50,000 instead.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

#include "interp/approximation.h"
#include "interp/point_file.h"

namespace kalvex {
namespace {

constexpr std::size_t kColumns = 1920;
constexpr std::size_t kLarge = 1000000;

struct Points {
    std::vector<double> x;
    std::vector<double> y;
};

Points PointsFor(std::int32_t method, std::size_t count) {
    // The quadratic spline wants an odd number.
    if (method == 9) --count;
    if (method == 12) count = std::min<std::size_t>(count, 50000);
    Points points;
    for (std::size_t i = 0; i < count; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(count - 1);
        points.x.push_back(-std::cos(std::numbers::pi * part));
        points.y.push_back(2.0 + std::sin(5.0 * points.x.back()));
    }
    return points;
}

void Pass(benchmark::State& state) {
    const auto method = static_cast<std::int32_t>(state.range(0));
    const Points points = PointsFor(method, static_cast<std::size_t>(state.range(1)));
    const ApproxParameters parameters{method, method == 0 ? 20 : 2, 2, 1.0, 0.0};
    std::vector<double> abscissas(kColumns);
    for (std::size_t i = 0; i < kColumns; ++i)
        abscissas[i] = -1.0 + 2.0 * static_cast<double>(i) / (kColumns - 1);
    std::vector<double> values(kColumns);
    for (auto _ : state) {
        Approximation approximation = SetUpApproximation(points.x, points.y, parameters);
        EvaluateApproximation(approximation, abscissas, values);
        if (approximation.failure) state.SkipWithError("the method failed");
        benchmark::DoNotOptimize(values.data());
    }
}

void ReadFile(benchmark::State& state) {
    std::string text;
    for (std::size_t i = 0; i < kLarge; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "%.6f %.9f\n", static_cast<double>(i) * 0.001,
                      std::sin(static_cast<double>(i)));
        text += line;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadPointText(text).points.x.data());
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

BENCHMARK(Pass)
    ->ArgNames({"method", "points"})
    ->ArgsProduct({benchmark::CreateDenseRange(0, kMethodCount - 1, 1), {1000, kLarge}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadFile)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kalvex
