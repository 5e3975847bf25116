// The interpolating polynomial in Newton's form.
//
// In double precision the accuracy of this form depends on the order of the points: for twenty
// Chebyshev points in ascending order half of the digits are lost. Tables of up to
// kPreciseDifferences points are therefore made and evaluated in double-double arithmetic. The
// error is then that of the condition of the problem itself, and the values agree with Lagrange's
// form up to rounding. (For equally spaced points the condition number grows like 2 to the power of
// their number.) Source: any text on numerical analysis, for instance P. Henrici, Elements of
// Numerical Analysis (Wiley 1964), chapter 9.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "interp/diagnostic.h"
#include "interp/work.h"

namespace kalvex {

inline constexpr std::size_t kPreciseDifferences = 2048;

/// The divided differences DIFTAB, the coefficients of Newton's form, as double-doubles. Zeros at
/// the end are left out. The low parts are empty for tables of more than kPreciseDifferences
/// points.
struct DifferenceTable {
    std::vector<double> high;
    std::vector<double> low;
};

/// Fills DIFTAB with the divided differences in the order of the table. Fails for two equal
/// abscissas, naming the first such pair (in the order of its first, then of its second member).
/// The time grows with the square of the number of points. It ends early when all differences of
/// one order are 0, because then all higher ones are 0 too, and when none of them is finite,
/// because then no value will be finite. Fails after kMostOperations. Stopped work leaves DIFTAB
/// empty.
[[nodiscard]] Failure DATA_TO_DIF(std::span<const double> XTAB, std::span<const double> YTAB,
                                  DifferenceTable& DIFTAB, Work& work);

/// The value at x by nested multiplication that begins at the last coefficient. It is not-a-number
/// when the table has overflowed, and 0 for an empty table. Stopped work gives not-a-number.
[[nodiscard]] double DIF_VAL(std::span<const double> XTAB, const DifferenceTable& DIFTAB, double x,
                             Work& work);

}  // namespace kalvex
