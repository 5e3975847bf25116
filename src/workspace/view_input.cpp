// All texts are read before anything is taken, so a refused dialog changes nothing.
#include "workspace/view_input.h"

#include <cmath>
#include <string_view>

#include "base/decimal.h"
#include "base/encoding.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

std::u16string_view Trimmed(std::u16string_view text) {
    constexpr std::u16string_view kBlanks = u" \t\u00a0";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<double> WholeNumber(std::u16string_view text) {
    const std::u16string_view number = Trimmed(text);
    if (!IsWholeDecimal(number)) return std::nullopt;
    return ParseDecimalPrefix(number).value;
}

}  // namespace

std::u16string NumberForInput(double value) {
    return Widen(FormatShortest(value));
}

std::optional<InputProblem> ReadBounds(const std::array<std::u16string, 4>& texts,
                                       ViewWindow& view) {
    std::array<double, 4> bounds{};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::optional<double> number = WholeNumber(texts[i]);
        if (!number)
            return InputProblem{i, FillIn(Text(StringId::BoundNotANumber), {kBoundNames[i]})};
        if (!std::isfinite(*number))
            return InputProblem{i, FillIn(Text(StringId::BoundNotFinite), {kBoundNames[i]})};
        bounds[i] = *number;
    }
    for (std::size_t i = 0; i < texts.size(); i += 2) {
        if (bounds[i] != bounds[i + 1]) continue;
        return InputProblem{
            i + 1, FillIn(Text(StringId::BoundsEqual), {kBoundNames[i], kBoundNames[i + 1]})};
    }
    view.Xmin = bounds[0];
    view.Xmax = bounds[1];
    view.Ymin = bounds[2];
    view.Ymax = bounds[3];
    return std::nullopt;
}

std::optional<InputProblem> ReadFactors(const std::array<std::u16string, 2>& texts,
                                        ViewWindow& view) {
    std::array<double, 2> factors{};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::optional<double> number = WholeNumber(texts[i]);
        if (!number || !std::isfinite(*number) || !(*number > 0.0))
            return InputProblem{i, FillIn(Text(StringId::FactorInvalid), {kFactorNames[i]})};
        factors[i] = *number;
    }
    view.Xfactor = factors[0];
    view.Yfactor = factors[1];
    return std::nullopt;
}

}  // namespace kalvex
