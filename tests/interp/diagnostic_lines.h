// A helper that the tests of the interpolation routines share.
#pragma once

#include <string>

#include "interp/diagnostic.h"

namespace kalvex {

/// What a failure writes to standard error; "none" for no failure.
inline std::string LinesOf(const Failure& failure) {
    return failure ? StandardErrorText(*failure) : "none";
}

}  // namespace kalvex
