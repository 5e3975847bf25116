// Laguerre polynomials of degrees too large for a recurrence.
#pragma once

namespace kalvex::specfun {

/// LargeLaguerre has values from this degree on; for lower degrees its expansion is not accurate
/// enough.
inline constexpr double kLeastLargeLaguerre = 600;

/// L(n,x) for integral n from kLeastLargeLaguerre on and all x except not-a-number. Infinite or
/// not-a-number where the value overflows. Throws "Laguerre: the degree is too large" where
/// sqrt((4n+2) x) is above 1e15, which takes a degree above 1e26. The error before the final
/// rounding is below 2^-58 of the local amplitude plus the effect of a change of x by 2^-95; 1 to
/// 10 us.
[[nodiscard]] double LargeLaguerre(double n, double x);

}  // namespace kalvex::specfun
