// How accurate each function must be. An error is counted in units in the last place of the exact
// value and divided by 1 + |x f'(x)/f(x)|: what a change of x by a rounding changes is no error of
// the routine. The goal is the most that this may be anywhere in the domain.
#pragma once

#include <array>
#include <string_view>

namespace kalvex::accuracy {

struct Goal {
    std::string_view name;  ///< of the table in tests/data, without its ending
    double most;
};

/// A denormal result has few digits: there an error of so many of the least double is allowed.
inline constexpr double kDenormalUnits = 4;

inline constexpr std::array<Goal, 41> kGoals = {{
    {"sin", 1},     {"cos", 1},   {"tg", 1},   {"ln", 1},   {"lg", 1},  {"sh", 1},    {"ch", 1},
    {"th", 1},      {"exp", 1},   {"acos", 1}, {"asin", 1}, {"atg", 1}, {"int", 0},   {"frac", 0},
    {"abs", 0},     {"Gamma", 2}, {"Si", 2},   {"Ci", 3},   {"Shi", 2}, {"Chi", 2},   {"Psi", 2},
    {"DawsonF", 2}, {"Ei", 2},    {"Sf", 2},   {"Cf", 2},   {"Ai", 3},  {"Bi", 3},    {"erf", 1.5},
    {"Li", 4},      {"Beta", 4},  {"J", 4},    {"Y", 4},    {"K", 4},   {"I", 4},     {"Hyper", 2},
    {"log", 4},     {"Cheb", 4},  {"Hi", 4},   {"Lag", 4},  {"Leg", 4}, {"power", 1},
}};

}  // namespace kalvex::accuracy
