// Laguerre polynomials of degrees too large for a recurrence.
#pragma once

namespace kalvex::specfun {

/// From this degree on LargeLaguerre has values; below, its expansion is not good enough.
inline constexpr double kLeastLargeLaguerre = 600;

/// L(n,x) for integral n from kLeastLargeLaguerre on, all x but not-a-number: infinite or
/// not-a-number where the value overflows. Where sqrt((4n+2) x) is beyond 1e15, which takes a
/// degree above 1e26, it throws "Laguerre: the degree is too large". Computed with errors below
/// 2^-58 of the local amplitude and what 2^-95 of x does to the value, rounded once; 1 to 10 us.
double LargeLaguerre(double n, double x);

}  // namespace kalvex::specfun
