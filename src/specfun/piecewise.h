// Functions given by polynomials on pieces of the positive axis, four pieces to an octave. The
// value is a double-double. The constant and the linear coefficient are double-doubles too; the
// other terms are at most a few hundredths of the value, so that their rounding errors hardly
// matter. scripts/make-piecewise-coefficients makes the tables.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// One row for each piece, the first piece beginning at `from`, a power of two. A row holds the
/// middle of the piece, two double-double coefficients, and then single coefficients of the powers
/// of the distance from the middle.
template <std::size_t Rows, std::size_t Width>
struct PiecewiseTable {
    double from;
    double rows[Rows][Width];
};

/// The number of the quarter of an octave that a positive number lies in. Only differences of such
/// numbers are meaningful.
[[nodiscard]] inline std::size_t PieceOf(double x) {
    constexpr int kMantissaBitsBeyondTwo = 50;
    return static_cast<std::size_t>(std::bit_cast<std::uint64_t>(x) >> kMantissaBitsBeyondTwo);
}

/// c[0] + c[1] h + c[2] h^2 + ..., with the even and the odd powers summed separately, so that the
/// two sums can run in parallel.
template <std::size_t Count>
[[nodiscard]] double InTwoChains(const double* c, double h) {
    constexpr std::size_t kLast = Count - 1;
    const double square = h * h;
    double even = c[kLast - kLast % 2];
    double odd = c[kLast - 1 + kLast % 2];
    for (std::size_t i = kLast - kLast % 2; i >= 2; i -= 2)
        even = c[i - 2] + square * even;
    for (std::size_t i = kLast - 1 + kLast % 2; i >= 3; i -= 2)
        odd = c[i - 2] + square * odd;
    return even + h * odd;
}

/// The function at x.high + x.low. x.high lies in the range of the table.
template <std::size_t Rows, std::size_t Width>
[[nodiscard]] DoubleDouble AtPiece(const PiecewiseTable<Rows, Width>& table, DoubleDouble x) {
    const double(&c)[Width] = table.rows[PieceOf(x.high) - PieceOf(table.from)];
    const double h = x.high - c[0];  // exact: both lie in one quarter of an octave
    const double curve = InTwoChains<Width - 5>(c + 5, h);
    const double slope = c[3] + h * (2 * c[5] + h * (3 * c[6]));
    const DoubleDouble linear = TwoProduct(h, c[3]);
    const DoubleDouble sum = TwoSum(c[1], linear.high);
    const double rest = (c[2] + h * c[4]) + h * h * curve + slope * x.low;
    return QuickTwoSum(sum.high, sum.low + (linear.low + rest));
}

}  // namespace kalvex::specfun
