// The table is computed in place: each order of differences overwrites the one before it, beginning
// at the last point. One template serves doubles and double-doubles. To find equal abscissas,
// indices are sorted instead of comparing all pairs; the result is the pair that comparing all
// pairs in order would have found first.
#include "interp/divided_differences.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "interp/stoppable_sort.h"
#include "numbers/decimal.h"
#include "numbers/double_double.h"

namespace kalvex {
namespace {

constexpr std::string_view kRoutine = "DATA_TO_DIF";
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kBlock = 4096;  ///< numbers between two looks at the work

/// Operations for one difference or one step of the nested multiplication.
template <typename Number>
constexpr double CostOf() {
    return std::is_same_v<Number, double> ? 2.0 : 15.0;
}

struct Pair {
    std::size_t first = 0;
    std::size_t second = 0;
};

/// The first pair of equal abscissas; none when the work was stopped. Infinities and not-a-numbers
/// are skipped: no difference of theirs is 0.
std::optional<Pair> FirstEqualPair(std::span<const double> X, Work& work) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < X.size(); ++i)
        if (std::isfinite(X[i])) order.push_back(i);
    const auto less = [&](std::size_t a, std::size_t b) {
        return X[a] != X[b] ? X[a] < X[b] : a < b;
    };
    if (!SortStoppably(order, work, less)) return std::nullopt;
    std::optional<Pair> found;
    for (std::size_t i = 1; i < order.size(); ++i) {
        const bool groupStart = i < 2 || X[order[i - 2]] != X[order[i - 1]];
        if (X[order[i - 1]] != X[order[i]] || !groupStart) continue;
        if (!found || order[i - 1] < found->first) found = Pair{order[i - 1], order[i]};
    }
    return found;
}

std::string ValueLine(double value) {
    // KEEP: the "%d" is part of the text; no index is put in.
    return "  XTAB[%d] = " + FormatGeneral6(value);
}

/// Computes the differences of one order. False when those of higher orders need not be computed.
template <typename Number>
bool NextColumn(std::span<const double> X, std::span<Number> table, std::size_t order, Work& work) {
    bool allZero = true;
    bool anyFinite = false;
    for (std::size_t end = table.size(); end > order;) {
        const std::size_t begin = end - std::min(kBlock, end - order);
        for (std::size_t j = end; j-- > begin;) {
            table[j] = (table[j] - table[j - 1]) / DifferenceOf<Number>(X[j], X[j - order]);
            allZero = allZero && HighOf(table[j]) == 0.0;
            anyFinite = anyFinite || std::isfinite(HighOf(table[j]));
        }
        if (!Spend(work, CostOf<Number>() * static_cast<double>(end - begin))) return false;
        end = begin;
    }
    if (anyFinite) return !allZero;
    // Differences of numbers that are not finite are not finite either.
    for (Number& number : table.subspan(order))
        number = Number{kNan};
    return false;
}

template <typename Number>
void MakeColumns(std::span<const double> X, std::span<Number> table, Work& work) {
    for (std::size_t order = 1; order < table.size(); ++order)
        if (work.done > kMostOperations || !NextColumn(X, table, order, work)) return;
}

void MakePrecise(std::span<const double> X, std::span<const double> Y, DifferenceTable& DIFTAB,
                 Work& work) {
    std::vector<DoubleDouble> table(Y.size());
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i].high = Y[i];
    MakeColumns<DoubleDouble>(X, table, work);
    for (const DoubleDouble& number : table) {
        DIFTAB.high.push_back(number.high);
        DIFTAB.low.push_back(number.low);
    }
}

double NumberAt(const DifferenceTable& table, std::size_t i, double) {
    return table.high[i];
}

DoubleDouble NumberAt(const DifferenceTable& table, std::size_t i, DoubleDouble) {
    return {table.high[i], table.low[i]};
}

template <typename Number>
double NestedValue(std::span<const double> X, const DifferenceTable& DIFTAB, double x, Work& work) {
    std::size_t i = DIFTAB.high.size() - 1;
    Number value = NumberAt(DIFTAB, i, Number{});
    while (i > 0) {
        const std::size_t begin = i - std::min(kBlock, i);
        if (!Spend(work, CostOf<Number>() * static_cast<double>(i - begin))) return kNan;
        for (; i > begin; --i)
            value = NumberAt(DIFTAB, i - 1, Number{}) + DifferenceOf<Number>(x, X[i - 1]) * value;
    }
    return HighOf(value);
}

}  // namespace

Failure DATA_TO_DIF(std::span<const double> XTAB, std::span<const double> YTAB,
                    DifferenceTable& DIFTAB, Work& work) {
    DIFTAB = {};
    if (const std::optional<Pair> pair = FirstEqualPair(XTAB, work)) {
        return FatalError(kRoutine,
                          {"  Two entries of XTAB are equal!", ValueLine(XTAB[pair->first]),
                           ValueLine(XTAB[pair->second])},
                          StringId::DifferencesEqual);
    }
    if (work.stopped) return std::nullopt;
    if (YTAB.size() <= kPreciseDifferences) {
        MakePrecise(XTAB, YTAB, DIFTAB, work);
    } else {
        DIFTAB.high.assign(YTAB.begin(), YTAB.end());
        MakeColumns<double>(XTAB, DIFTAB.high, work);
    }
    if (work.stopped) DIFTAB = {};
    if (work.done > kMostOperations)
        return FatalError(kRoutine, {"  Too many points."}, StringId::TooMuchWork);
    while (DIFTAB.high.size() > 1 && DIFTAB.high.back() == 0.0)
        DIFTAB.high.pop_back();
    return std::nullopt;
}

double DIF_VAL(std::span<const double> XTAB, const DifferenceTable& DIFTAB, double x, Work& work) {
    if (DIFTAB.high.empty()) return 0.0;
    if (!std::isfinite(DIFTAB.high.back())) return kNan;
    return DIFTAB.low.empty() ? NestedValue<double>(XTAB, DIFTAB, x, work)
                              : NestedValue<DoubleDouble>(XTAB, DIFTAB, x, work);
}

}  // namespace kalvex
