// A table of points.
#pragma once

#include <cstddef>
#include <vector>

namespace kalvex {

/// Points in the order of their file; both vectors have the same length.
struct PointTable {
    std::vector<double> x;
    std::vector<double> y;
};

[[nodiscard]] inline std::size_t CountOf(const PointTable& points) {
    return points.x.size();
}

}  // namespace kalvex
