// The special functions one call at a time: each over ordinary arguments, orders and degrees up to
// 50, and the hypergeometric function by the kind of its parameters. Time per call.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

struct Arguments {
    double order;
    double x;
};

constexpr int kPoints = 64;

/// Fractional parts of multiples of irrational numbers: evenly spread, the same in every run.
double Spread(int i, double by) {
    return i * by - std::floor(i * by);
}

std::vector<Arguments> Sample(double most, double least, double highest, bool integral) {
    std::vector<Arguments> sample;
    for (int i = 1; i <= kPoints; ++i) {
        const double order = Spread(i, std::sqrt(2)) * most;
        const double x = least + Spread(i, std::sqrt(3)) * (highest - least);
        sample.push_back({integral ? std::floor(order) : order, x});
    }
    return sample;
}

template <typename Function>
void Run(benchmark::State& state, const std::vector<Arguments>& sample, const Function& function) {
    std::size_t i = 0;
    for (auto _ : state) {
        const Arguments& at = sample[i];
        benchmark::DoNotOptimize(function(at));
        i = i + 1 == sample.size() ? 0 : i + 1;
    }
}

struct OfOne {
    const char* name;
    double (*function)(double);
    double least;
    double highest;
};

constexpr OfOne kOfOne[] = {
    {"Psi", Psi, 0.1, 50},     {"DawsonF", DawsonF, -50, 50}, {"Ei", Ei, 0.01, 50},
    {"Li", Li, 1.01, 50},      {"Si", Si, -50, 50},           {"Ci", Ci, 0.01, 50},
    {"Shi", Shi, -50, 50},     {"Chi", Chi, 0.01, 50},        {"Sf", FresnelS, -50, 50},
    {"Cf", FresnelC, -50, 50}, {"Ai", AiryAi, -50, 50},       {"Bi", AiryBi, -50, 50},
};

struct OfTwo {
    const char* name;
    double (*function)(double, double);
    double least;
    double highest;
    bool integral;
};

double FirstKind(double degree, double x) {
    return Chebyshev(1, degree, x);
}

constexpr OfTwo kOfTwo[] = {
    {"Beta", Beta, 0.1, 50, false},         {"J", BesselJ, 0.1, 50, false},
    {"J integral", BesselJ, 0.1, 50, true}, {"Y", BesselY, 0.1, 50, false},
    {"Y integral", BesselY, 0.1, 50, true}, {"K", BesselK, 0.1, 50, false},
    {"I", BesselI, 0.1, 50, false},         {"Cheb", FirstKind, -1, 1, true},
    {"Hi", Hermite, -10, 10, true},         {"Lag", Laguerre, 0, 50, true},
    {"Leg", Legendre, -1, 1, true},
};

struct Hyper {
    const char* name;
    double a, b, c, x;
};

constexpr Hyper kHyper[] = {
    {"small", 0.3, 0.7, 1.6, 0.4},
    {"small, x below 0", 0.3, 0.7, 1.6, -0.8},
    {"small, x = 0.9", 0.3, 0.7, 1.6, 0.9},
    {"small, next to 1", 0.3, 0.7, 1.6, 0.999999},
    {"integral c-a-b, next to 1", 1.5, 2.5, 4, 0.9999},
    {"parameters to 20, x = 0.96", 8.3, -17.6, 12.1, 0.96},
    {"Legendre, degree 50", -50, 51, 1, 0.3},
    {"Legendre, degree 500", -500, 501, 1, 0.95},
    {"swings, generic", 413.3, -402.6, 1.7, 0.87},
    {"swings, next to 1", -640.5, 420.4, 1.5, 1 - 1e-15},
    {"c far below 0", -252.1, -647.9, -897.5, -0.9999},
    {"long walk", -875.5, -894.4, -1767.7, 0.87},
    {"outgrown, positive", 121.8, 157, 278.8, 0.949},
    {"outgrown, next to 1", 266, 496, 763.128, 0.99216},
    {"outgrown, long walk", -847.25, -152.5, 863.9, -0.29984},
    {"outgrown polynomial", -604, 170, 2, 0.8277},
    {"polynomial at a pole", -12, 486.6, -12, 0.2389},
    {"polynomial at a far pole", -925.5, -399, -570, 0.982},
};

void Register() {
    for (const OfOne& entry : kOfOne) {
        const auto run = [entry](benchmark::State& state) {
            Run(state, Sample(0, entry.least, entry.highest, false),
                [entry](const Arguments& at) { return entry.function(at.x); });
        };
        benchmark::RegisterBenchmark(entry.name, run);
    }
    for (const OfTwo& entry : kOfTwo) {
        const auto run = [entry](benchmark::State& state) {
            Run(state, Sample(50, entry.least, entry.highest, entry.integral),
                [entry](const Arguments& at) { return entry.function(at.order, at.x); });
        };
        benchmark::RegisterBenchmark(entry.name, run);
    }
    for (const Hyper& entry : kHyper) {
        const auto run = [entry](benchmark::State& state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(Hypergeometric2F1(entry.a, entry.b, entry.c, entry.x));
        };
        benchmark::RegisterBenchmark((std::string("Hyper: ") + entry.name).c_str(), run);
    }
}

}  // namespace
}  // namespace kalvex::specfun

int main(int argc, char** argv) {
    kalvex::specfun::Register();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
