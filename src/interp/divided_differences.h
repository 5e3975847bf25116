// The interpolating polynomial in Newton's form.
//
// In plain doubles the form is at the mercy of the order of the points: twenty points that are
// placed perfectly, but listed from left to right, lose half of the digits. So tables of up to
// kPreciseDifferences points are made and evaluated with twice the digits; then what is left is the
// condition of the problem itself, and the values agree with Lagrange's form to rounding. (For
// equally spaced points that condition grows like 2 to the power of their number.) Source: any text
// on numerical analysis, for instance P. Henrici, Elements of Numerical Analysis (Wiley 1964),
// chapter 9.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "interp/diagnostic.h"
#include "interp/work.h"

namespace kalvex {

inline constexpr std::size_t kPreciseDifferences = 2048;

/// The divided differences DIFTAB as sums of two doubles, the coefficients of Newton's form; zeros
/// at its end are left out. A large table has no low parts.
struct DifferenceTable {
    std::vector<double> high;
    std::vector<double> low;
};

/// Fills DIFTAB with the divided differences in the order of the table. Fails for two equal
/// abscissas, naming the first such pair (in the order of its first, then of its second member).
/// The time grows with the square of the number of points, but ends as soon as all differences of
/// one order have become 0, and so all higher ones are, or none is finite any more, and so no value
/// will be. When it has taken more than kMostOperations it fails.
/// Stopped work leaves DIFTAB empty.
Failure DATA_TO_DIF(std::span<const double> XTAB, std::span<const double> YTAB,
                    DifferenceTable& DIFTAB, Work& work);

/// The value at x by nested multiplication, from the last coefficient that is not 0; not-a-number
/// when the table has overflowed, 0 for an empty table. Stopped work gives not-a-number.
double DIF_VAL(std::span<const double> XTAB, const DifferenceTable& DIFTAB, double x, Work& work);

}  // namespace kalvex
