// Run: scripts/fuzz
//
// Takes a typed text from its bytes to values: normalise, check, compile, evaluate. The text is
// also compiled without the check, because the compiler must survive texts that the checker
// rejects. Evaluating a single point and an array of points must give the same bits.
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "base/encoding.h"
#include "expr/checker.h"
#include "expr/evaluator.h"
#include "expr/normaliser.h"

namespace {

constexpr double kXs[] = {0.0,
                          1.0,
                          -2.5,
                          1e300,
                          -1e-300,
                          std::numeric_limits<double>::infinity(),
                          std::numeric_limits<double>::quiet_NaN()};

bool Same(double a, double b) {
    return (a != a && b != b) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void Evaluate(std::u16string_view text) {
    kalvex::CompiledExpression expression = kalvex::CompileExpression(text);
    const std::vector<kalvex::EvaluationResult> results = kalvex::EvaluateAt(expression, kXs);
    if (results.size() != std::size(kXs)) std::abort();
    for (std::size_t i = 0; i < results.size(); ++i) {
        kalvex::EvalError = 0;
        const double value = kalvex::EvaluateExpression(expression, kXs[i]);
        if (kalvex::EvalError != results[i].error) std::abort();
        if (kalvex::EvalError == 0 && !Same(value, results[i].value)) std::abort();
        kalvex::EvalError = 0;
        static_cast<void>(kalvex::EvaluateExpression(expression, kXs[i], -1.5));
    }
    kalvex::FreeExpression(expression);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string typed =
        kalvex::ToUtf16(std::string_view(reinterpret_cast<const char*>(data), size));
    Evaluate(typed);
    std::u16string text = typed;
    kalvex::NormaliseExplicit(text, nullptr);
    if (kalvex::CheckExpression(text, kalvex::CheckMode::OneVariable).code == 0) Evaluate(text);
    text = typed;
    kalvex::NormaliseImplicit(text);
    if (kalvex::CheckExpression(text, kalvex::CheckMode::TwoVariables).code == 0) Evaluate(text);
    return 0;
}
