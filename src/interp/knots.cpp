// The first i with t < T(i) is also the first i at which the running maximum of T exceeds t,
// because the maximum changes only when it becomes T(i). The running maximum ascends for knots in
// any order, so a binary search finds that i. std::fmax ignores not-a-numbers. As long as all knots
// so far are not-a-numbers, the maximum is one too; the predicate "not (t < m)" then holds, as it
// must for a knot that is not greater than t.
#include "interp/knots.h"

#include <algorithm>
#include <cmath>

namespace kalvex {

Knots MakeKnots(std::span<const double> T) {
    Knots knots{T, {T.begin(), T.end()}};
    for (std::size_t i = 2; i < T.size(); ++i)
        knots.highest[i] = std::fmax(knots.highest[i - 1], T[i]);
    return knots;
}

std::size_t LeftOf(const Knots& knots, double t) {
    const auto begin = knots.highest.begin();
    const auto found = std::partition_point(begin + 1, knots.highest.end() - 1,
                                            [t](double m) { return !(t < m); });
    return static_cast<std::size_t>(found - begin) - 1;
}

std::size_t HolderOf(const Knots& knots, double t) {
    if (knots.T.size() < 2 || t <= knots.T[0]) return 0;
    const auto begin = knots.highest.begin();
    const auto found = std::partition_point(begin + 1, knots.highest.end() - 1,
                                            [t](double m) { return !(t <= m); });
    return static_cast<std::size_t>(found - begin);
}

}  // namespace kalvex
