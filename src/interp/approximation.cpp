// The passes over a table of points that are the same for all methods; what differs stands in the
// rows of method_table.cpp.
#include "interp/approximation.h"

#include <algorithm>

#include "expr/eval_error.h"
#include "interp/method_table.h"

namespace kalvex {
namespace {

constexpr std::size_t kBlock = 4096;  ///< values between two looks at the work

/// False when the rest is not to be evaluated.
bool EvaluateBlock(const MethodRow& row, Approximation& approximation,
                   std::span<const double> abscissas, std::span<double> values, Work& work) {
    for (std::size_t i = 0; i < abscissas.size(); ++i) {
        if (row.valueOrFailure != nullptr) {
            approximation.failure = row.valueOrFailure(approximation, abscissas[i], values[i]);
            if (approximation.failure) return false;
        } else {
            const double value = row.value(approximation, abscissas[i], work);
            if (work.stopped) return false;
            values[i] = value;
        }
    }
    if (row.spendsItself) return true;
    return Spend(work, row.valueCost(approximation) * static_cast<double>(abscissas.size()));
}

}  // namespace

Approximation SetUpApproximation(std::span<const double> x, std::span<const double> y,
                                 const ApproxParameters& parameters, const WorkProgress& progress) {
    Approximation approximation;
    approximation.parameters = parameters;
    approximation.x = x;
    approximation.y = y;
    const MethodRow* const row = FindMethod(parameters.approx);
    if (row == nullptr || x.size() < row->fewestPoints) return approximation;
    approximation.hasValues = true;
    Work work{&progress, row->setUpCost != nullptr ? row->setUpCost(approximation) : 0.0};
    if (row->setUp != nullptr) approximation.failure = row->setUp(approximation, work);
    approximation.stopped = work.stopped;
    if (approximation.failure || work.stopped) approximation.hasValues = false;
    if (approximation.hasValues && row->usesKnots) approximation.knots = MakeKnots(x);
    return approximation;
}

bool MayFailAtAValue(const Approximation& approximation) {
    const MethodRow* const row = FindMethod(approximation.parameters.approx);
    return row != nullptr && row->valueOrFailure != nullptr;
}

void EvaluateApproximation(Approximation& approximation, std::span<const double> abscissas,
                           std::span<double> values, const WorkProgress& progress) {
    std::fill(values.begin(), values.end(), UndefinedValue);
    const MethodRow* const row = FindMethod(approximation.parameters.approx);
    if (row == nullptr || !approximation.hasValues || approximation.failure ||
        approximation.stopped)
        return;
    Work work{&progress, row->valueCost(approximation) * static_cast<double>(abscissas.size())};
    for (std::size_t begin = 0; begin < abscissas.size(); begin += kBlock) {
        const std::size_t count = std::min(kBlock, abscissas.size() - begin);
        if (!EvaluateBlock(*row, approximation, abscissas.subspan(begin, count),
                           values.subspan(begin, count), work))
            break;
    }
    approximation.stopped = work.stopped;
    if (approximation.failure) std::fill(values.begin(), values.end(), UndefinedValue);
}

}  // namespace kalvex
