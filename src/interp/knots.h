// The search for the piece of a spline in which an abscissa lies, for knots in any order.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace kalvex {

/// The abscissas of a table, prepared for searching. `T` is a view: the table must outlive it.
struct Knots {
    std::span<const double> T;
    std::vector<double> highest;  ///< [i]: the maximum of T[1..i] without its not-a-numbers
};

/// Takes time and memory in proportion to the number of knots.
[[nodiscard]] Knots MakeKnots(std::span<const double> T);

/// The index (0-based) of the left end of the piece of t, for two knots or more. The rule, with
/// knots T(1)..T(n): the first i of 2..n-1 with t < T(i) gives the piece (i-1, i), none gives
/// (n-1, n). So the end pieces reach to infinity. When the knots are out of order, the first such i
/// in the order of the table still decides. A t that is not-a-number lies in the last piece. Takes
/// time in proportion to the logarithm of n.
[[nodiscard]] std::size_t LeftOf(const Knots& knots, double t);

/// The index of the point whose value holds at t, for one knot or more: the first i of 1..n-1 with
/// t <= T(i), otherwise n (here 0-based). Takes time in proportion to the logarithm of n.
[[nodiscard]] std::size_t HolderOf(const Knots& knots, double t);

}  // namespace kalvex
