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
    {"sin", 1},     {"cos", 1},   {"tg", 1},     {"ln", 1},      {"lg", 1},       {"sh", 1},
    {"ch", 1},      {"th", 1},    {"exp", 1},    {"acos", 1},    {"asin", 1},     {"atg", 1},
    {"int", 0},     {"frac", 0},  {"abs", 0},    {"Gamma", 1},   {"Si", 1},       {"Ci", 1},
    {"Shi", 1},     {"Chi", 1},   {"Psi", 1},    {"DawsonF", 1}, {"Ei", 1},       {"Sf", 1},
    {"Cf", 1},      {"Ai", 1},    {"Bi", 1},     {"erf", 1},     {"Li", 1},       {"Beta", 1.5},
    {"J", 0.55},    {"Y", 0.55},  {"K", 0.55},   {"I", 0.55},    {"Hyper", 0.55}, {"log", 1.5},
    {"Cheb", 0.55}, {"Hi", 0.55}, {"Lag", 0.55}, {"Leg", 0.55},  {"power", 1},
}};

}  // namespace kalvex::accuracy
