// The calculator: a typed expression in, a result text and a small line out.
#pragma once

#include <string>
#include <string_view>

#include "base/message_box.h"
#include "expr/evaluator.h"

namespace kalvex {

/// A value as the edit line shows it: a value without a fractional part as a whole number of 32
/// bits (a larger one is the nearest that fits), any other with six decimals; "inf", "-inf", "nan".
[[nodiscard]] std::u16string ResultText(double value);

/// The small text under the result: every digit of the value, or why there is none: title and
/// message of its error code on two lines. `show` gets the diagnostic box of an unknown code, for
/// which the title stands alone.
[[nodiscard]] std::u16string ResultDetail(const EvaluationResult& result, const ShowMessage& show);

struct CalculatorAnswer {
    bool accepted = false;
    std::u16string text;    ///< replaces what was typed; of a rejected text the message of its box
    std::u16string detail;  ///< empty for a rejected text
};

/// Normalises, checks, compiles and evaluates a text of one variable at x = 0. `show` gets the
/// boxes of the normaliser and of ResultDetail; the box about a rejected text is the caller's.
[[nodiscard]] CalculatorAnswer Calculate(std::u16string_view typed, const ShowMessage& show);

}  // namespace kalvex
