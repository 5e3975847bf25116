// The form in which generated tables hold a power series; Polynomial() of extended.h sums it.
#pragma once

#include <cstddef>

#include "numbers/double_double.h"

namespace kalvex {

/// A power series: the first three coefficients as double-doubles, the others as doubles.
template <std::size_t count>
struct PowerCoefficients {
    DoubleDouble head[3];
    double tail[count];
};

}  // namespace kalvex
