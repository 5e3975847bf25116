// Where the search for wrong values looks: random arguments of a function, made so that what is
// hard turns up often, and small changes of arguments.
#pragma once

#include <random>
#include <span>
#include <string_view>
#include <vector>

namespace kalvex::accuracy {

using Random = std::mt19937_64;

/// What one argument may be.
struct ArgumentRange {
    double least = 0;  ///< magnitudes
    double most = 0;
    double ordinary = 0;  ///< up to which even spreads go
    bool bothSigns = false;
    bool integral = false;
    double ordinaryLeast = 0;  ///< magnitudes below are drawn on purpose only
};

struct SearchedFunction {
    std::string_view name;
    std::vector<ArgumentRange> arguments;  ///< in written order
};

/// All functions that are searched, in the order of the language.
std::span<const SearchedFunction> SearchedFunctions();

/// Arguments inside the ranges: by magnitude over the whole range, evenly, next to whole and half
/// numbers, short decimals.
std::vector<double> RandomPoint(const SearchedFunction& function, Random& random);

/// The same with one argument moved a little: by units in the last place or by a part of itself
/// between 2^-50 and 1/2.
std::vector<double> MovedPoint(const SearchedFunction& function, const std::vector<double>& from,
                               Random& random);

/// Whether the language defines the function there and an exact value can be had within a second.
bool IsSearched(const SearchedFunction& function, const std::vector<double>& point);

}  // namespace kalvex::accuracy
