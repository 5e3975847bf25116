// The points at which a text is evaluated: single points, then a range with equal steps.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "graph/viewport.h"

namespace kalvex {

struct EvenRange {
    double first = 0.0;
    double last = 0.0;
    std::int64_t count = 0;
};

struct PointList {
    std::vector<WorldPoint> single;
    std::optional<EvenRange> range;
};

/// Reads "X" or, where a y is allowed, "X,Y"; y is 0 when it is left out.
[[nodiscard]] std::optional<WorldPoint> ParsePoint(std::string_view text, bool withY);

/// Reads "A,B,N"; N is at least 1.
[[nodiscard]] std::optional<EvenRange> ParseRange(std::string_view text);

/// How many points there are.
[[nodiscard]] std::int64_t CountOf(const PointList& points);

/// Point 0 .. CountOf - 1. Point i of the range is A + i*(B-A)/(N-1); a range of one point is A.
[[nodiscard]] WorldPoint PointAt(const PointList& points, std::int64_t index);

}  // namespace kalvex
