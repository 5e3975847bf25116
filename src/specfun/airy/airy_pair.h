// The Airy functions and their derivatives to some 64 bits, for the uniform expansions of the
// Bessel functions.
#pragma once

#include "numbers/extended.h"

namespace kalvex::specfun {

struct AiryPair {
    DoubleDouble value;
    double derivative;
};

/// Ai and Ai' for y from -13 to 13. The relative error of the value is below 2^-60, that of the
/// derivative is some units in the last place of a double; for negative y relative to the modulus.
[[nodiscard]] AiryPair AiryAiPair(DoubleDouble y);

/// Bi and Bi', under the same conditions.
[[nodiscard]] AiryPair AiryBiPair(DoubleDouble y);

}  // namespace kalvex::specfun
