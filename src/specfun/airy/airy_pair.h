// The Airy functions with their derivatives in the extended format, as the uniform expansions of
// the Bessel functions need them.
#pragma once

#include "specfun/precision/extended.h"

namespace kalvex::specfun {

struct AiryPair {
    Extended value;
    Extended derivative;
};

/// Ai and Ai'. Up to 1000 in magnitude; the error is below 2^-58 + 2^-63 |y|^(3/2) of the value,
/// for negative y of the modulus.
AiryPair AiryAiPair(Extended y);

/// Bi and Bi'; likewise.
AiryPair AiryBiPair(Extended y);

}  // namespace kalvex::specfun
