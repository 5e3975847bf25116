// Elementary functions in the extended format of the processor. Where a part of a value is so small
// that a double holds all of its digits that count, it is computed as one: that is much quicker.
#pragma once

#include <cstddef>
#include <limits>

namespace kalvex::specfun {

using Extended = long double;
static_assert(std::numeric_limits<Extended>::digits >= 64 &&
              std::numeric_limits<Extended>::max_exponent10 >= 4932);

/// A power series: the first three coefficients, and the rest as doubles.
template <std::size_t count>
struct PowerCoefficients {
    Extended head[3];
    double tail[count - 3];
};

template <std::size_t count>
constexpr PowerCoefficients<count> Coefficients(const Extended (&all)[count]) {
    PowerCoefficients<count> result{{all[0], all[1], all[2]}, {}};
    for (std::size_t i = 3; i < count; ++i)
        result.tail[i - 3] = static_cast<double>(all[i]);
    return result;
}

/// Its sum; full precision where the terms from the fourth on are below 2^-10 of it together.
template <std::size_t count>
Extended Polynomial(const PowerCoefficients<count>& of, Extended t) {
    const double argument = static_cast<double>(t);
    double tail = 0;
    for (std::size_t i = count - 3; i-- > 0;)
        tail = tail * argument + of.tail[i];
    return ((tail * t + of.head[2]) * t + of.head[1]) * t + of.head[0];
}

/// ln(x/2) with an absolute error below 2^-62 + 2^-63 |ln(x)|. Finite x > 0.
Extended LogOfHalf(double x);

/// exp(t) with a relative error below 2^-61; infinite or zero beyond the range of the format.
Extended ExpOf(Extended t);

/// exp(t) - 1 with a relative error below 2^-58. |t| up to 1/2.
Extended ExpMinusOneOf(Extended t);

struct CosineSine {
    Extended cosine;
    Extended sine;
};

/// cos(pi t) and sin(pi t); exact at the multiples of 1/2. |t| up to 2^30.
CosineSine CosineSinePi(Extended t);

/// cos(x) and sin(x) with an absolute error below 2^-62. All finite x.
CosineSine CosineSineOf(Extended x);

}  // namespace kalvex::specfun
