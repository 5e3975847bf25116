// The points of a range are not stored; each is computed when it is needed, so that a long range
// takes no memory.
#include "cli/point_list.h"

#include <limits>

#include "cli/number_argument.h"

namespace kalvex {

std::optional<WorldPoint> ParsePoint(std::string_view text, bool withY) {
    if (withY) {
        if (const auto both = ParseNumbers(text, 2)) return WorldPoint{(*both)[0], (*both)[1]};
    }
    const std::optional<double> x = ParseNumber(text);
    if (!x) return std::nullopt;
    return WorldPoint{*x, 0.0};
}

std::optional<EvenRange> ParseRange(std::string_view text) {
    const std::vector<std::string_view> parts = Split(text, ',');
    if (parts.size() != 3) return std::nullopt;
    const std::optional<double> first = ParseNumber(parts[0]);
    const std::optional<double> last = ParseNumber(parts[1]);
    const auto count = ParseWhole(parts[2], 1, std::numeric_limits<std::int64_t>::max());
    if (!first || !last || !count) return std::nullopt;
    return EvenRange{*first, *last, *count};
}

std::int64_t CountOf(const PointList& points) {
    return static_cast<std::int64_t>(points.single.size()) +
           (points.range ? points.range->count : 0);
}

WorldPoint PointAt(const PointList& points, std::int64_t index) {
    const std::int64_t singles = static_cast<std::int64_t>(points.single.size());
    if (index < singles) return points.single[static_cast<std::size_t>(index)];
    const EvenRange& range = *points.range;
    if (range.count == 1) return {range.first, 0.0};
    const double i = static_cast<double>(index - singles);
    const double steps = static_cast<double>(range.count - 1);
    return {range.first + i * (range.last - range.first) / steps, 0.0};
}

}  // namespace kalvex
