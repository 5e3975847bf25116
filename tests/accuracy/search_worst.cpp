// Searches for the largest error of each function by comparing with exact values. Half of the
// points are random; the other half are neighbours of the worst points found so far, a few of which
// are kept. Sometimes, when one of two random points overflows, vanishes or is refused and the
// other does not, bisection finds the edge between them: values are most often wrong next to such
// an edge, and random points do not come close enough to it. The condition number takes most of the
// time. It is not computed for errors up to half a unit, which no routine can avoid.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "accuracy/exact_value.h"
#include "accuracy/goals.h"
#include "accuracy/search_points.h"

namespace kalvex::accuracy {
namespace {

struct Settings {
    double seconds = 20;
    std::uint64_t seed = 1;
    std::string kernels;
    std::vector<std::string> names;
    bool showsAll = false;
};

struct Found {
    double error = -1;
    ReferenceRow row;
    EvaluationResult result;
};

struct Search {
    const SearchedFunction& function;
    const KernelTable& kernels;
    double goal;
    bool showsAll;
    std::vector<Found> worst = {};  ///< the few worst points, in descending order of their errors
    long points = 0;
    long undecided = 0;  ///< without an exact value
    long beyondGoal = 0;
    long refused = 0;
    Found firstRefused = {};
};

double GoalOf(std::string_view name) {
    const auto found = std::ranges::find(kGoals, name, &Goal::name);
    return found == kGoals.end() ? 1.0 : found->most;
}

void Print(const Search& search, const Found& found) {
    std::cout << search.function.name << '\t' << search.points << '\t' << std::setprecision(4)
              << found.error << '\t' << CallText(search.function.name, found.row) << '\t'
              << std::setprecision(17) << found.result.value << '\t' << found.row.high << std::endl;
}

void Keep(Search& search, const Found& found) {
    constexpr std::size_t kKept = 24;
    auto& worst = search.worst;
    if (worst.size() == kKept && found.error <= worst.back().error) return;
    if (worst.empty() || found.error > worst.front().error) std::cerr << '.' << std::flush;
    const auto place =
        std::ranges::upper_bound(worst, found.error, std::ranges::greater(), &Found::error);
    worst.insert(place, found);
    if (worst.size() > kKept) worst.pop_back();
}

void Look(Search& search, const std::vector<double>& point) {
    constexpr double kRounding = 0.5;
    Found found;
    if (!ExactRowWithoutCondition(search.function.name, point, found.row)) {
        ++search.undecided;
        return;
    }
    ++search.points;
    found.result = ResultAt(search.function.name, found.row, search.kernels);
    found.error = MeasuredError(found.row, found.result);
    if (found.error > kRounding && std::isfinite(found.error)) {
        AddCondition(search.function.name, found.row);
        found.error = MeasuredError(found.row, found.result);
    }
    const double goal = GoalAt(found.row, search.goal);
    if (goal > search.goal) found.error *= search.goal / goal;  // a denormal result
    const bool isBeyond = !(found.error <= search.goal);
    search.beyondGoal += isBeyond ? 1 : 0;
    if (isBeyond && search.showsAll) Print(search, found);
    if (!isBeyond || found.result.error == 0) {
        Keep(search, found);
    } else if (search.refused++ == 0) {  // not kept: no neighbour can be worse
        search.firstRefused = found;
    }
}

std::vector<double> NextPoint(const Search& search, Random& random) {
    const auto& worst = search.worst;
    if (worst.empty() || random() % 2 == 0) return RandomPoint(search.function, random);
    return MovedPoint(search.function, worst[random() % worst.size()].row.arguments, random);
}

enum class Outcome { kFinite, kZero, kInfinite, kRefused };

Outcome OutcomeAt(const Search& search, const std::vector<double>& point) {
    const EvaluationResult result =
        ResultAt(search.function.name, {point, 0, 0, 0, 0}, search.kernels);
    if (result.error != 0) return Outcome::kRefused;
    if (!std::isfinite(result.value)) return Outcome::kInfinite;
    return result.value == 0 ? Outcome::kZero : Outcome::kFinite;
}

/// The double that halves the number of doubles between two others.
double Middle(double a, double b) {
    const auto place = [](double x) {
        const auto bits = std::bit_cast<std::int64_t>(x);
        return bits < 0 ? std::numeric_limits<std::int64_t>::min() - bits : bits;
    };
    const std::int64_t middle = std::midpoint(place(a), place(b));
    return std::bit_cast<double>(middle < 0 ? std::numeric_limits<std::int64_t>::min() - middle
                                            : middle);
}

/// Finds the edge between a random point and the same point with another last argument, and
/// measures the errors on both sides of it.
void LookAtEdge(Search& search, Random& random) {
    constexpr int kSteps = 64;
    constexpr int kNeighbours = 6;
    std::vector<double> point = RandomPoint(search.function, random);
    double& x = point.back();
    double near = x;
    double far = RandomPoint(search.function, random).back();
    const Outcome here = OutcomeAt(search, point);
    x = far;
    if (!IsSearched(search.function, point) || OutcomeAt(search, point) == here) return;
    for (int i = 0; i < kSteps; ++i) {
        x = Middle(near, far);
        (OutcomeAt(search, point) == here ? near : far) = x;
    }
    for (int i = 0; i < kNeighbours; ++i) {
        x = i < 2 ? (i == 0 ? near : far)
                  : near + near * std::ldexp(1.0, -20 - 5 * i) * (i % 2 * 2 - 1);
        if (IsSearched(search.function, point)) Look(search, point);
    }
}

void SearchFunction(const Settings& settings, const SearchedFunction& function,
                    const KernelTable& kernels) {
    using Clock = std::chrono::steady_clock;
    constexpr std::uint64_t kRoundsPerEdge = 256;
    Search search{function, kernels, GoalOf(function.name), settings.showsAll};
    Random random(settings.seed);
    const auto end = Clock::now() + std::chrono::duration<double>(settings.seconds);
    while (Clock::now() < end) {
        if (random() % kRoundsPerEdge == 0) LookAtEdge(search, random);
        const std::vector<double> point = NextPoint(search, random);
        if (IsSearched(function, point)) Look(search, point);
    }
    std::cerr << '\n';
    if (!search.worst.empty()) Print(search, search.worst.front());
    if (search.refused > 0) Print(search, search.firstRefused);
    std::cerr << function.name << ": goal " << search.goal << ", beyond it " << search.beyondGoal
              << " points, " << search.refused << " of them refused; no exact value for "
              << search.undecided << '\n';
}

const KernelTable* KernelsNamed(const std::string& name) {
    const KernelTables available = AvailableKernelTables();
    for (std::size_t i = 0; i < available.count; ++i) {
        if (name.empty() || available.tables[i]->name == name) return available.tables[i];
    }
    return nullptr;
}

int RunSearch(const Settings& settings) {
    const KernelTable* const kernels = KernelsNamed(settings.kernels);
    if (kernels == nullptr) {
        std::cerr << "this processor has no kernels named " << settings.kernels << '\n';
        return 2;
    }
    for (const std::string& name : settings.names) {
        if (std::ranges::find(SearchedFunctions(), name, &SearchedFunction::name) ==
            SearchedFunctions().end()) {
            std::cerr << "no function " << name << " to search\n";
            return 2;
        }
    }
    std::cout << "# function, points, worst n, where, value, exact value; kernels for "
              << kernels->name << ", seed " << settings.seed << ", " << settings.seconds
              << " seconds each" << std::endl;
    for (const SearchedFunction& function : SearchedFunctions()) {
        const bool wanted =
            settings.names.empty() ||
            std::ranges::find(settings.names, function.name) != settings.names.end();
        if (wanted) SearchFunction(settings, function, *kernels);
    }
    return 0;
}

}  // namespace
}  // namespace kalvex::accuracy

int main(int argc, char** argv) {
    kalvex::accuracy::Settings settings;
    CLI::App app{"Searches for the worst errors of the language's functions."};
    app.add_option("--seconds", settings.seconds, "time for each function")->capture_default_str();
    app.add_option("--seed", settings.seed, "of the random points")->capture_default_str();
    app.add_option("--kernels", settings.kernels, "a table of kernels; the best one if left out");
    app.add_flag("--all", settings.showsAll, "print every point beyond its goal");
    app.add_option("functions", settings.names, "all if none is named");
    CLI11_PARSE(app, argc, argv);
    return kalvex::accuracy::RunSearch(settings);
}
