// The approximation method of a line with its parameters, as the settings store them.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

#include "resources/methods.h"

namespace kalvex {

/// What a parameter means depends on the method: see interp/method_table.cpp. The record is stored
/// and read without being checked, so any number can stand in it.
struct ApproxParameters {
    std::int32_t approx = 0;  ///< an ApproxMethod; any other number gives no curve
    std::int32_t approx_val = 1;
    std::int32_t approx_val2 = 0;
    double beta1 = 1.0;
    double beta2 = 0.0;
};

/// A field of the record under the name by which the settings and the tool know it. The tool takes
/// numbers from `lowest` to `highest`; the settings take any.
template <typename Number>
struct ParameterField {
    std::string_view name;
    Number ApproxParameters::*field = nullptr;
    Number lowest = std::numeric_limits<Number>::lowest();
    Number highest = std::numeric_limits<Number>::max();
};

/// All fields in the order in which they are stored: the method itself, its whole parameters, its
/// real parameters.
inline constexpr auto kWholeParameters = std::to_array<ParameterField<std::int32_t>>({
    {"approx", &ApproxParameters::approx, 0, kMethodCount - 1},
    {"approx_val", &ApproxParameters::approx_val},
    {"approx_val2", &ApproxParameters::approx_val2},
});
inline constexpr auto kRealParameters = std::to_array<ParameterField<double>>({
    {"beta1", &ApproxParameters::beta1},
    {"beta2", &ApproxParameters::beta2},
});

}  // namespace kalvex
