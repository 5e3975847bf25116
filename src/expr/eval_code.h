// The codes of an evaluation's domain errors.
#pragma once

#include <cstdint>

namespace kalvex {

/// What went wrong at an undefined point. The numbers are part of the interface: the samples of a
/// curve keep them, and the command-line tool prints them.
enum class EvalCode : std::int32_t {
    None = 0,
    Divide = 1,
    Power = 2,
    // Codes of functions: each belongs to exactly one row of functions.inc.
    Ln = 3,
    Lg = 4,
    Acos = 5,
    Asin = 6,
    Ci = 7,
    Chi = 8,
    Psi = 9,
    Ei = 10,
    Beta = 11,
    J = 12,
    Y = 13,
    K = 14,
    I = 15,
    Hyper = 16,
    Log = 17,
    Cheb = 18,
    Hi = 19,
    Lag = 20,
    Leg = 21,
    EndOfFunctions,  ///< no code: one behind the last own code of a function
    /// The method of a point file, or a function without its own code, has no value at the point.
    NoValue = 1000,
};

inline constexpr EvalCode kFirstFunctionCode = EvalCode::Ln;

}  // namespace kalvex
