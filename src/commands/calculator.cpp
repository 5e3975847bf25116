// A text is treated like a function line and evaluated once. The result text depends on the value
// only, so an undefined value looks like any other whole number; the small line below it says why
// there is no value.
#include "commands/calculator.h"

#include <array>
#include <cmath>
#include <limits>

#include "base/encoding.h"
#include "expr/checker.h"
#include "expr/normaliser.h"
#include "numbers/decimal.h"
#include "numbers/truncate.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

/// Removes the sign of a not-a-number, which has no meaning and is not shown.
double WithoutNanSign(double value) {
    return std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : value;
}

}  // namespace

std::u16string ResultText(double value) {
    // KEEP: the error code is not looked at: an undefined value (1e30) has no fractional part and
    // shows as the largest whole number.
    if (value - std::floor(value) == 0.0) return NumberText(TruncateToInt32(value));
    return Widen(FormatFixed(WithoutNanSign(value)));
}

std::u16string ResultDetail(const EvaluationResult& result, const ShowMessage& show) {
    if (result.error == 0) return Widen(FormatShortest(WithoutNanSign(result.value)));
    std::u16string title;
    std::u16string message;
    DescribeEvalError(result.error, title, message, show);
    return message.empty() ? title : title + u'\n' + message;
}

CalculatorAnswer Calculate(std::u16string_view typed, const ShowMessage& show) {
    std::u16string text(typed);
    NormaliseExplicit(text, show);
    const CheckResult check = CheckExpression(text, CheckMode::OneVariable);
    if (check.code < 0) return {false, FillIn(Text(StringId::ErrorFormat), {check.message}), {}};
    const CompiledExpression expression = CompileExpression(text);
    constexpr std::array kX = {0.0};
    const EvaluationResult result = EvaluateAt(expression, kX).front();
    return {true, ResultText(result.value), ResultDetail(result, show)};
}

}  // namespace kalvex
