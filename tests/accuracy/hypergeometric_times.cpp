// Times the Gauss hypergeometric function at random points of each kind and, if asked to, checks
// the values against ball arithmetic, or the errors of walks along the contiguous relations against
// their bounds. A call is timed twice and the quicker one counts: on a
// machine with other work the slower one tells of that.
#include <time.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <string>
#include <vector>

#include "accuracy/exact_value.h"
#include "accuracy/hypergeometric_points.h"
#include "specfun/hypergeometric/best_value.h"
#include "specfun/hypergeometric/integral_value.h"
#include "specfun/hypergeometric/shifts.h"
#include "specfun/specfun.h"

namespace kalvex::accuracy {
namespace {

struct Settings {
    int count = 4000;
    std::uint64_t seed = 7;
    bool checks = false;
    bool bounds = false;
    std::string values;
    std::vector<std::string> kinds;
};

struct Outcome {
    double value = NAN;
    bool refused = false;
    double microseconds = INFINITY;
};

/// What the points of one kind come to.
struct Tally {
    std::vector<double> times;
    HypergeometricArguments slowest;
    int refused = 0;
    int refusedFinite = 0;  // of those that have an exact value
    int unchecked = 0;
    double worst = 0;
    HypergeometricArguments worstAt;
};

/// Of processor time, which work of others does not count into.
double Microseconds() {
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e6 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_nsec);
}

Outcome Call(const HypergeometricArguments& at) {
    constexpr double kLong = 200;  // not timed again
    constexpr int kTimes = 2;
    Outcome outcome;
    for (int i = 0; i < kTimes && !(outcome.microseconds > kLong && i > 0); ++i) {
        const double start = Microseconds();
        try {
            outcome.value = specfun::Hypergeometric2F1(at.a, at.b, at.c, at.x);
        } catch (const ap::ap_error&) {
            outcome.refused = true;
        }
        outcome.microseconds = std::min(outcome.microseconds, Microseconds() - start);
    }
    return outcome;
}

std::vector<double> ListOf(const HypergeometricArguments& at) {
    return {at.a, at.b, at.c, at.x};
}

void Check(const HypergeometricArguments& at, const Outcome& outcome, Tally& tally) {
    constexpr double kRounding = 0.5;
    ReferenceRow row;
    if (!ExactRowWithoutCondition("Hyper", ListOf(at), row)) {
        ++tally.unchecked;
        return;
    }
    if (outcome.refused) {
        tally.refusedFinite += std::isfinite(row.high) ? 1 : 0;
        return;
    }
    EvaluationResult result;
    result.value = outcome.value;
    double error = MeasuredError(row, result);
    if (error > kRounding) {
        AddCondition("Hyper", row);
        error = MeasuredError(row, result);
    }
    if (error <= tally.worst) return;
    tally.worst = error;
    tally.worstAt = at;
}

void PrintPoint(const char* what, const HypergeometricArguments& at) {
    std::printf("%s Hyper(%.17g,%.17g,%.17g,%.17g)\n", what, at.a, at.b, at.c, at.x);
}

void Print(const HypergeometricKind& kind, const Settings& settings, Tally& tally) {
    constexpr double kGoal = 50;  // microseconds
    std::sort(tally.times.begin(), tally.times.end());
    const auto below = [&tally](double part) {
        return tally
            .times[static_cast<std::size_t>(part * static_cast<double>(tally.times.size() - 1))];
    };
    const auto within = std::upper_bound(tally.times.begin(), tally.times.end(), kGoal);
    const double share =
        static_cast<double>(within - tally.times.begin()) / static_cast<double>(tally.times.size());
    std::printf("| %s | %.1f | %.0f | %.0f | %.0f | %.1f | %d |", kind.description.data(),
                below(0.5), below(0.99), below(0.999), tally.times.back(), 100 * share,
                tally.refused);
    if (settings.checks)
        std::printf(" %.3f | %d | %d |", tally.worst, tally.refusedFinite, tally.unchecked);
    std::printf("\n");
    PrintPoint("  slowest", tally.slowest);
    if (settings.checks) PrintPoint("  worst", tally.worstAt);
    std::fflush(stdout);
}

void Measure(const HypergeometricKind& kind, const Settings& settings, std::ostream& values) {
    std::mt19937_64 random(settings.seed);
    Tally tally;
    double longest = -1;
    for (int i = 0; i < settings.count; ++i) {
        const HypergeometricArguments at = kind.draw(random);
        const Outcome outcome = Call(at);
        tally.times.push_back(outcome.microseconds);
        tally.refused += outcome.refused ? 1 : 0;
        if (outcome.microseconds > longest) {
            longest = outcome.microseconds;
            tally.slowest = at;
        }
        values << kind.name << ' ' << std::setprecision(17) << at.a << ' ' << at.b << ' ' << at.c
               << ' ' << at.x << ' ' << outcome.value << '\n';
        if (settings.checks) Check(at, outcome, tally);
    }
    Print(kind, settings, tally);
}

/// Whether walks keep all bits of the parameters, which is what they are taken for.
bool KeepsBits(const specfun::HypergeometricParameters& p) {
    const double unit = specfun::ParameterUnit(p);
    const auto isMultiple = [unit](DoubleDouble a) {
        return std::floor(a.high / unit) == a.high / unit;
    };
    return isMultiple(p.a) && isMultiple(p.b) && isMultiple(p.c);
}

/// The walk to the parameters themselves, if it comes to something that can be compared: its error
/// by its bound, else a negative number.
double ErrorByBound(const HypergeometricArguments& at) {
    constexpr double kMostSteps = 3000;
    constexpr double kKnown = 0x1p-100;  // of the exact value
    constexpr double kWorthIt = 0x1p-30;
    constexpr double kLeast = 1e-270;  // with all its digits in two doubles
    const specfun::HypergeometricParameters p = {{at.a, 0}, {at.b, 0}, {at.c, 0}};
    const bool atPole = at.c <= 0 && std::floor(at.c) == at.c;
    if (!(at.x > 0) || atPole || !KeepsBits(p)) return -1;
    if (specfun::ShiftsTo(p) > kMostSteps) return -1;
    const specfun::HypergeometricPoint point =
        specfun::HypergeometricByShifts(p, {at.x, 0}, TwoSum(1, -at.x));
    if (point.failed || !(point.error < kWorthIt * std::fabs(point.value.high))) return -1;
    ReferenceRow row;
    if (!ExactRowWithoutCondition("Hyper", ListOf(at), row) || row.high == 0) return -1;
    const DoubleDouble exact = Scale({row.high, row.low}, -point.exponent);
    const double error = std::fabs(ToDouble(point.value - exact));
    const bool isKnown = std::fabs(row.high) > kLeast && std::isfinite(exact.high);
    return isKnown ? std::max(0.0, error - kKnown * std::fabs(exact.high)) / point.error : -1;
}

/// The same of the integrals, for the value that they give by themselves.
double IntegralErrorByBound(const HypergeometricArguments& at) {
    constexpr double kKnown = 0x1p-100;
    constexpr double kWorthIt = 0x1p-30;
    constexpr double kLeast = 1e-270;
    constexpr int kRange = 1000;
    if (at.x == 0 || (at.c <= 0 && std::floor(at.c) == at.c)) return -1;
    specfun::Value value;
    try {
        value = specfun::ByIntegral(specfun::FormsOf({{at.a, 0}, {at.b, 0}, {at.c, 0}}), at.x);
    } catch (const ap::ap_error&) {
        return -1;  // beyond the range
    }
    if (!(value.relative < kWorthIt) || std::abs(value.exponent) > kRange) return -1;
    ReferenceRow row;
    if (!ExactRowWithoutCondition("Hyper", ListOf(at), row)) return -1;
    if (!(std::fabs(row.high) > kLeast) || !std::isfinite(row.high)) return -1;
    const DoubleDouble exact = Scale({row.high, row.low}, -value.exponent);
    const double error = std::fabs(ToDouble(value.fraction - exact));
    const double size = std::fabs(exact.high);
    return std::max(0.0, error - kKnown * size) / (value.relative * size);
}

/// How the errors by one of these compare with their bounds.
void Calibrate(const HypergeometricKind& kind, const char* what,
               double (*errorByBound)(const HypergeometricArguments& at),
               const Settings& settings) {
    std::mt19937_64 random(settings.seed);
    std::vector<double> ratios;
    for (int i = 0; i < settings.count; ++i) {
        const double ratio = errorByBound(kind.draw(random));
        if (ratio >= 0) ratios.push_back(ratio);
    }
    if (ratios.empty()) return;
    std::sort(ratios.begin(), ratios.end());
    std::printf("| %s | %s | %zu | 2^%.1f | 2^%.1f |\n", kind.description.data(), what,
                ratios.size(), std::log2(ratios[ratios.size() / 2]), std::log2(ratios.back()));
    std::fflush(stdout);
}

int Run(const Settings& settings) {
    std::ofstream values;
    if (!settings.values.empty()) values.open(settings.values);
    if (settings.bounds)
        std::printf("| parameters | method | values | median | greatest |\n");
    else
        std::printf(
            "| parameters | median | 99 %% below | 99.9 %% below | longest | %% within 50 | "
            "refused |%s\n",
            settings.checks ? " worst n | refused though finite | no exact value |" : "");
    for (const HypergeometricKind& kind : HypergeometricKinds()) {
        const bool wanted = settings.kinds.empty() ||
                            std::ranges::find(settings.kinds, kind.name) != settings.kinds.end();
        if (wanted && settings.bounds) {
            Calibrate(kind, "walks", ErrorByBound, settings);
            Calibrate(kind, "integrals", IntegralErrorByBound, settings);
        }
        if (wanted && !settings.bounds) Measure(kind, settings, values);
    }
    return 0;
}

}  // namespace
}  // namespace kalvex::accuracy

int main(int argc, char** argv) {
    kalvex::accuracy::Settings settings;
    CLI::App app{"Times the Gauss hypergeometric function at random points."};
    app.add_option("--count", settings.count, "points of each kind")->capture_default_str();
    app.add_option("--seed", settings.seed, "of the random points")->capture_default_str();
    app.add_flag("--check", settings.checks, "compare with exact values");
    app.add_flag("--bounds", settings.bounds,
                 "compare the errors of walks and integrals with their bounds instead");
    app.add_option("--values", settings.values, "a file for the points and their values");
    app.add_option("kinds", settings.kinds, "all if none is named");
    CLI11_PARSE(app, argc, argv);
    return kalvex::accuracy::Run(settings);
}
