// Sorting that can be stopped in between.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <vector>

#include "interp/work.h"

namespace kalvex {

/// Sorts like std::sort, in pieces that are merged afterwards. The comparisons count as operations
/// until the end of the sorting and not beyond it, because the limit of operations is about what
/// follows. False when the work was stopped; then the order is any.
template <typename Value, typename Less = std::less<>>
[[nodiscard]] bool SortStoppably(std::vector<Value>& values, Work& work, Less less = {}) {
    constexpr std::size_t kPiece = std::size_t{1} << 15;
    constexpr double kComparison = 2.0;  // operations; a comparison takes about 2 ns
    const double before = work.done;
    const auto at = [&](std::size_t i) {
        return values.begin() + static_cast<std::ptrdiff_t>(std::min(i, values.size()));
    };
    for (std::size_t i = 0; i < values.size(); i += kPiece) {
        std::sort(at(i), at(i + kPiece), less);
        if (!Spend(work, kComparison * kPiece * std::bit_width(kPiece))) return false;
    }
    for (std::size_t size = kPiece; size < values.size(); size *= 2) {
        for (std::size_t i = 0; i + size < values.size(); i += 2 * size) {
            std::inplace_merge(at(i), at(i + size), at(i + 2 * size), less);
            if (!Spend(work, kComparison * 2.0 * static_cast<double>(size))) return false;
        }
    }
    work.told -= work.done - before;
    work.done = before;
    return true;
}

}  // namespace kalvex
