// All texts are read before anything is taken, so a refused dialog changes nothing.
#include "commands/view_input.h"

#include <cmath>

#include "resources/strings.h"

namespace kalvex {

std::array<std::u16string_view, 4> BoundNames() {
    return {Text(StringId::LeastX), Text(StringId::GreatestX), Text(StringId::LeastY),
            Text(StringId::GreatestY)};
}

std::array<std::u16string_view, 2> FactorNames() {
    return {Text(StringId::FactorX), Text(StringId::FactorY)};
}

std::optional<InputProblem> ReadBounds(const std::array<std::u16string, 4>& texts,
                                       ViewWindow& view) {
    std::array<double, 4> bounds{};
    const auto names = BoundNames();
    if (auto problem = ReadFiniteNumbers(texts, names, bounds)) return problem;
    for (std::size_t i = 0; i < texts.size(); i += 2) {
        if (bounds[i] != bounds[i + 1]) continue;
        return InputProblem{i + 1, FillIn(Text(StringId::BoundsEqual), {names[i], names[i + 1]})};
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
            return InputProblem{i, FillIn(Text(StringId::FactorInvalid), {FactorNames()[i]})};
        factors[i] = *number;
    }
    view.Xfactor = factors[0];
    view.Yfactor = factors[1];
    return std::nullopt;
}

}  // namespace kalvex
