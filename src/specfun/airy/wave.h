// The Airy functions where they oscillate.
#pragma once

namespace kalvex::specfun {

/// For smaller x Ai and Bi are computed by AiryWave.
inline constexpr double kWaveFrom = -1.875;

/// M sin(phase + quarters pi/2) at -x, for finite x of at least -kWaveFrom: Ai for quarters = 0, Bi
/// for quarters = 1. The error is that of the final rounding plus at most 2^-55 M.
[[nodiscard]] double AiryWave(double x, int quarters);

}  // namespace kalvex::specfun
