// What the program knows of each approximation method, one row per method: its parameters, how it
// is set up from a table of points, how it gives a value, and what that costs.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "interp/approx_parameters.h"
#include "interp/diagnostic.h"
#include "interp/work.h"
#include "resources/strings.h"

namespace kalvex {

struct Approximation;

enum class ParameterKind {
    Terms,   ///< how many terms: a whole number, at least 1 and at most the number of points
    Choice,  ///< one of the whole numbers from 0 up that have a tip
    Number,  ///< any finite number
};

/// A parameter that a method asks for in its dialog.
struct MethodParameter {
    ParameterKind kind{};
    std::int32_t ApproxParameters::*whole = nullptr;  ///< its field, of Terms and Choice
    double ApproxParameters::*real = nullptr;         ///< its field, of Number
    std::string_view meaning;                         ///< in the help of the tool
    const char* control = "";                         ///< name of its field in the dialog
    StringId label{};
    std::array<StringId, 3> tips{};  ///< for Choice one per number, otherwise at most one
};

/// The dialog of a method; a method without parameters has none.
struct MethodForm {
    const char* name = "";  ///< of the dialog
    StringId note{};        ///< a paragraph above the fields, if any
    std::span<const MethodParameter> parameters;
};

/// A method gives its values by `value` or, when a single abscissa can be fatal, by
/// `valueOrFailure`.
struct MethodRow {
    ApproxMethod method{};
    MethodForm form = {};
    std::size_t fewestPoints = 0;  ///< with fewer there is no curve, and no failure either
    bool usesKnots = false;        ///< the abscissas are prepared for the search of a piece

    /// Fills the part of the approximation that belongs to the method, and clears `hasValues` when
    /// there is no curve. Null: nothing to set up.
    Failure (*setUp)(Approximation& approximation, Work& work) = nullptr;
    /// Operations of the set-up. Null: too few to be watched.
    double (*setUpCost)(const Approximation& approximation) = nullptr;

    double (*value)(Approximation& approximation, double t, Work& work) = nullptr;
    Failure (*valueOrFailure)(const Approximation& approximation, double t,
                              double& value) = nullptr;
    /// Operations of one value.
    double (*valueCost)(const Approximation& approximation) = nullptr;
    bool spendsItself = false;  ///< `value` itself adds its operations to `work`
};

/// All methods; the index of a row is its method.
[[nodiscard]] std::span<const MethodRow> MethodRows();

/// The row of the method with a stored number; null when no method has this number.
[[nodiscard]] const MethodRow* FindMethod(std::int32_t approx);

}  // namespace kalvex
