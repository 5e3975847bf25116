// Everything goes through the language, so that the domain rules, the kernels of this processor
// and the routines are measured together. Both values are scaled by the power of two that brings
// the exact one to 1..2, so that the low double of the exact value counts at the ends of the range
// too.
#include "accuracy/reference_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <sstream>

#include "accuracy/goals.h"
#include "expr/program.h"

namespace kalvex::accuracy {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kDigits = std::numeric_limits<double>::digits;
constexpr int kLeastExponent = -1022;

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, '\t');)
        fields.push_back(field);
    return fields;
}

/// Decimal or, with the prefix 0x, hexadecimal.
bool ReadNumber(std::string_view text, double& number) {
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    const bool hexadecimal = text.starts_with("0x");
    if (hexadecimal) text.remove_prefix(2);
    const auto format = hexadecimal ? std::chars_format::hex : std::chars_format::general;
    const char* const end = text.data() + text.size();
    const auto [last, problem] = std::from_chars(text.data(), end, number, format);
    if (negative) number = -number;
    return problem == std::errc() && last == end;
}

ReferenceRow ReadRow(const std::string& line, int lineNumber) {
    ReferenceRow row;
    row.line = lineNumber;
    std::vector<double> numbers;
    for (const std::string& field : Fields(line)) {
        if (!ReadNumber(field, numbers.emplace_back())) return row;
    }
    if (numbers.size() < 4) return row;
    row.condition = numbers.back();
    row.low = numbers[numbers.size() - 2];
    row.high = numbers[numbers.size() - 3];
    row.arguments.assign(numbers.begin(), numbers.end() - 3);
    return row;
}

/// A constant in the notation of the language: without an exponent, a negative one as a difference.
std::u16string ConstantText(double value) {
    std::array<char, 400> digits{};
    const auto end =
        std::to_chars(digits.begin(), digits.end(), std::fabs(value), std::chars_format::fixed);
    const std::u16string text(digits.begin(), end.ptr);
    return value < 0 ? u"(0-" + text + u")" : text;
}

double Scaled(double value, int exponent) {
    if (!std::isinf(value)) return std::ldexp(value, -exponent);
    return std::copysign(std::ldexp(1.0, std::numeric_limits<double>::max_exponent - exponent),
                         value);
}

bool IsDenormal(const ReferenceRow& row) {
    return row.high == 0 || std::ilogb(row.high) < kLeastExponent;
}

}  // namespace

std::vector<ReferenceRow> ReadReferenceTable(std::string_view name) {
    std::vector<ReferenceRow> rows;
    std::ifstream file(std::string(KALVEX_TEST_DATA) + "/" + std::string(name) + ".tsv");
    for (std::string line; std::getline(file, line);)
        rows.push_back(ReadRow(line, static_cast<int>(rows.size()) + 1));
    return rows;
}

CompiledExpression ExpressionFor(std::string_view name, const ReferenceRow& row,
                                 const KernelTable& kernels) {
    if (name == "power") return {CompileProgram(u"y^x", kernels)};
    std::u16string text(name.begin(), name.end());
    text += u'(';
    const std::size_t count = row.arguments.size();
    for (std::size_t i = 0; i + 2 < count; ++i)
        text += ConstantText(row.arguments[i]) + u',';
    text += count > 1 ? u"y,x)" : u"x)";
    return {CompileProgram(text, kernels)};
}

double OrdinateOf(const ReferenceRow& row) {
    return row.arguments.size() > 1 ? row.arguments[row.arguments.size() - 2] : 0.0;
}

EvaluationResult ResultAt(std::string_view name, const ReferenceRow& row,
                          const KernelTable& kernels) {
    EvaluationResult result;
    EvaluateInto(ExpressionFor(name, row, kernels), {&row.arguments.back(), 1}, OrdinateOf(row),
                 {&result.value, 1}, {&result.error, 1});
    return result;
}

double MeasuredError(const ReferenceRow& row, const EvaluationResult& result) {
    if (std::isinf(row.high)) {
        return result.error != 0 || result.value == row.high ? 0.0 : kInfinity;
    }
    if (result.error != 0 || std::isnan(result.value)) return kInfinity;
    if (row.high == result.value && row.low == 0) return 0.0;
    const int exponent =
        row.high == 0 ? kLeastExponent : std::max(std::ilogb(row.high), kLeastExponent);
    const double distance =
        (Scaled(result.value, exponent) - Scaled(row.high, exponent)) - Scaled(row.low, exponent);
    return std::ldexp(std::fabs(distance), kDigits - 1) / (1 + row.condition);
}

double GoalAt(const ReferenceRow& row, double goal) {
    return IsDenormal(row) && goal > 0 ? std::max(goal, kDenormalUnits) : goal;
}

std::string CallText(std::string_view name, const ReferenceRow& row) {
    std::string text(name);
    char before = '(';
    for (const double argument : row.arguments) {
        std::array<char, 32> digits{};
        const auto end = std::to_chars(digits.begin(), digits.end(), argument);
        text += before;
        text.append(digits.data(), end.ptr);
        before = ',';
    }
    return text + ')';
}

}  // namespace kalvex::accuracy
