// Writes the accuracy page to standard output: for each function the worst error over its reference
// table and the time of a call. The time at a point is the shortest of several runs of the
// evaluator over 64 copies of the point; the page gives the median and the maximum over points of
// ordinary size.
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "accuracy/goals.h"
#include "accuracy/reference_table.h"
#include "expr/kernels.h"

namespace kalvex::accuracy {
namespace {

constexpr double kOrdinary = 50;  // times are measured at arguments, orders and degrees up to this
constexpr int kTimedPoints = 150;

struct Worst {
    double error = 0;
    std::string where;
};

Worst WorstOf(std::string_view name, const std::vector<ReferenceRow>& rows) {
    Worst worst;
    for (const ReferenceRow& row : rows) {
        const double error = MeasuredError(row, ResultAt(name, row));
        if (error > worst.error || worst.where.empty()) worst = {error, CallText(name, row)};
    }
    return worst;
}

double NanosecondsPerCall(std::string_view name, const ReferenceRow& row) {
    constexpr int kCopies = 64;
    std::array<double, kCopies> xs{};
    std::array<double, kCopies> values{};
    std::array<std::int32_t, kCopies> errors{};
    xs.fill(row.arguments.back());
    const CompiledExpression expression = ExpressionFor(name, row);
    double least = HUGE_VAL;
    for (int run = 0; run < 5; ++run) {
        const auto start = std::chrono::steady_clock::now();
        EvaluateInto(expression, xs, OrdinateOf(row), values, errors);
        const std::chrono::duration<double, std::nano> elapsed =
            std::chrono::steady_clock::now() - start;
        least = std::min(least, elapsed.count() / kCopies);
    }
    return least;
}

bool IsOrdinary(const ReferenceRow& row) {
    return std::all_of(row.arguments.begin(), row.arguments.end(), [](double argument) {
        const double magnitude = std::fabs(argument);
        return magnitude == 0 || (magnitude >= 1e-3 && magnitude <= kOrdinary);
    });
}

struct Times {
    double median = 0;
    double longest = 0;
};

Times TimesOf(std::string_view name, const std::vector<ReferenceRow>& rows) {
    std::vector<double> times;
    const std::size_t step = rows.size() / kTimedPoints + 1;
    for (std::size_t i = 0; i < rows.size(); i += step) {
        if (IsOrdinary(rows[i])) times.push_back(NanosecondsPerCall(name, rows[i]));
    }
    if (times.empty()) return {};
    std::sort(times.begin(), times.end());
    return {times[times.size() / 2], times.back()};
}

std::string Digits(double value, int precision) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(precision) << value;
    return text.str();
}

/// The result of scripts/search-worst for one function, in the form in which it prints it.
struct Searched {
    std::string points = "none";
    std::string error = "-";
    std::string where = "-";
};

/// The first row of the function in the file that keeps the results of the last search.
Searched SearchedOf(std::string_view name) {
    Searched searched;
    std::ifstream file(std::string(KALVEX_TEST_DATA) + "/searched.tsv");
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        std::string function;
        if (!std::getline(fields, function, '\t') || function != name) continue;
        std::getline(fields, searched.points, '\t');
        std::getline(fields, searched.error, '\t');
        std::getline(fields, searched.where, '\t');
        break;
    }
    return searched;
}

void WriteFunction(const Goal& goal) {
    const std::vector<ReferenceRow> rows = ReadReferenceTable(goal.name);
    const Worst worst = WorstOf(goal.name, rows);
    const Times times = TimesOf(goal.name, rows);
    const Searched searched = SearchedOf(goal.name);
    std::cout << "| `" << goal.name << "` | " << Digits(goal.most, 2) << " | "
              << Digits(worst.error, 2) << " | `" << worst.where << "` | " << rows.size() << " | "
              << searched.error << " | `" << searched.where << "` | " << searched.points << " | "
              << Digits(times.median, 0) << " | " << Digits(times.longest, 0) << " | "
              << goal.domain << " | " << goal.method << " | " << goal.source << " |\n";
}

void WritePage() {
    std::cout
        << "# Accuracy\n\n"
           "Made by `scripts/make-accuracy-page` from the reference tables in `tests/data`, whose "
           "values have some 32 digits (`scripts/make-reference-tables`). Everything is measured "
           "through the language, with the kernels for "
        << ActiveKernels().name
        << ".\n\n"
           "An error is counted in units in the last place of the exact value and divided by "
           "1 + |x f'(x)/f(x)| for the last argument: a function that is steep cannot be better "
           "than its argument is. The goal is the most that is allowed anywhere; "
           "`accuracy_tests` checks every row. Where the exact value is denormal, "
        << Digits(kDenormalUnits, 0)
        << " units of the least double are allowed; where it overflows, the value must be "
           "infinite or undefined.\n\n"
           "Times are nanoseconds for one call on the machine that made this page, over points "
           "whose arguments, orders and degrees are at most 50.\n\n"
           "The second worst, where and points are what `scripts/search-worst` found, which climbs "
           "towards the worst error for a given time (tests/data/searched.tsv keeps the last run): "
           "what it did not come across is not known. There an error up to half a unit counts as "
           "it is, without the division.\n\n"
           "| function | goal | worst | where | points | worst searched | where | points searched "
           "| median ns | longest ns | domain | method | source |\n"
           "|---|---|---|---|---|---|---|---|---|---|---|---|---|\n";
    for (const Goal& goal : kGoals)
        WriteFunction(goal);
}

}  // namespace
}  // namespace kalvex::accuracy

int main() {
    kalvex::accuracy::WritePage();
}
