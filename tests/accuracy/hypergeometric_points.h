// Random arguments of the Gauss hypergeometric function, by what makes them hard, for measuring its
// times and its errors.
#pragma once

#include <array>
#include <random>
#include <string_view>

namespace kalvex::accuracy {

struct HypergeometricArguments {
    double a = 0;
    double b = 0;
    double c = 0;
    double x = 0;
};

/// One kind of arguments.
struct HypergeometricKind {
    std::string_view name;         ///< for the command line
    std::string_view description;  ///< for the table
    HypergeometricArguments (*draw)(std::mt19937_64& random);
};

inline constexpr std::size_t kHypergeometricKinds = 12;

/// All kinds. Points are the same on every machine for the same state of the generator.
const std::array<HypergeometricKind, kHypergeometricKinds>& HypergeometricKinds();

}  // namespace kalvex::accuracy
