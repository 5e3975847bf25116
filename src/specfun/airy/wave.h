// The Airy functions where they oscillate.
#pragma once

namespace kalvex::specfun {

/// Ai and Bi from here down.
inline constexpr double kWaveFrom = -1.875;

/// M sin(phase + quarters pi/2) at -x, finite x of at least -kWaveFrom: Ai for 0 quarters, Bi for
/// 1. The error is that of the last rounding and 2^-55 M at most.
double AiryWave(double x, int quarters);

}  // namespace kalvex::specfun
