// Where the search for wrong values looks: random arguments of a function, among which difficult
// ones are frequent, and small changes of arguments.
#pragma once

#include <random>
#include <span>
#include <string_view>
#include <vector>

namespace kalvex::accuracy {

using Random = std::mt19937_64;

/// The values that one argument may have.
struct ArgumentRange {
    double least = 0;  ///< magnitudes
    double most = 0;
    double ordinary = 0;  ///< evenly distributed values end here
    bool bothSigns = false;
    bool integral = false;
    double ordinaryLeast = 0;  ///< smaller magnitudes only where they are asked for
};

struct SearchedFunction {
    std::string_view name;
    std::vector<ArgumentRange> arguments;  ///< in written order
};

/// All functions that are searched, in the order of the language.
std::span<const SearchedFunction> SearchedFunctions();

/// Arguments inside the ranges, of one of these kinds: with evenly distributed logarithms, evenly
/// distributed, next to whole and half numbers, short decimals.
std::vector<double> RandomPoint(const SearchedFunction& function, Random& random);

/// The point with one argument changed: by some units in the last place, or by 2^-50 to 1/2 of
/// itself.
std::vector<double> MovedPoint(const SearchedFunction& function, const std::vector<double>& from,
                               Random& random);

/// Whether the function is defined at the point and its exact value takes less than a second.
bool IsSearched(const SearchedFunction& function, const std::vector<double>& point);

}  // namespace kalvex::accuracy
