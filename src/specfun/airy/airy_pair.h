// The Airy functions with their derivatives to some 64 bits, as the uniform expansions of the
// Bessel functions need them.
#pragma once

#include "numbers/extended.h"

namespace kalvex::specfun {

struct AiryPair {
    DoubleDouble value;
    double derivative;
};

/// Ai and Ai' for y from -13 to 13. The error of the value is below 2^-60 of it, of the derivative
/// some units in the last place; for negative y of their moduli.
AiryPair AiryAiPair(DoubleDouble y);

/// Bi and Bi'; likewise.
AiryPair AiryBiPair(DoubleDouble y);

}  // namespace kalvex::specfun
