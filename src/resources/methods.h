// The approximation methods as the user chooses them: one row per method with its number, its
// command and its words. How a method computes stands in interp/method_table.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "resources/command_ids.h"
#include "resources/strings.h"

namespace kalvex {

/// The number of a method as it is stored with a line and given to the tool.
enum class ApproxMethod : std::int32_t {
    LeastSquares = 0,
    DividedDifferences = 1,
    BSplines = 2,
    BetaSplines = 3,
    OverhauserNonuniform = 4,
    OverhauserUniform = 5,
    Overhauser = 6,
    ConstantSpline = 7,
    LinearSpline = 8,
    QuadraticSpline = 9,
    CubicSpline = 10,
    CubicHermite = 11,
    Largange = 12,  // KEEP: spelled as its menu word
};

/// The submenu of "Approx. type" that offers a method; None: the method is in that menu itself.
enum class MethodSubmenu { None, Overhauser, Piecewise };

struct MethodChoice {
    ApproxMethod method{};
    CommandId command = CommandId::None;
    StringId word{};  ///< in the menu; also the title of the method's dialog
    MethodSubmenu submenu = MethodSubmenu::None;
    std::u16string_view keys;  ///< as in short_cuts.h
};

/// In the order of the numbers, which is the order of the menu: the index of a row is its method.
inline constexpr auto kMethods = std::to_array<MethodChoice>({
    {ApproxMethod::LeastSquares, CommandId::LeastSquares, StringId::MethodLeastSquares,
     MethodSubmenu::None, u"Ctrl+M, 0"},
    {ApproxMethod::DividedDifferences, CommandId::DividedDifferences,
     StringId::MethodDividedDifferences, MethodSubmenu::None, u"Ctrl+M, 1"},
    {ApproxMethod::BSplines, CommandId::BSplines, StringId::MethodBSplines, MethodSubmenu::None,
     u"Ctrl+M, 2"},
    {ApproxMethod::BetaSplines, CommandId::BetaSplines, StringId::MethodBetaSplines,
     MethodSubmenu::None, u"Ctrl+M, 3"},
    {ApproxMethod::OverhauserNonuniform, CommandId::OverhauserNonuniform,
     StringId::MethodOverhauserNonuniform, MethodSubmenu::Overhauser, u"Ctrl+M, 4"},
    {ApproxMethod::OverhauserUniform, CommandId::OverhauserUniform,
     StringId::MethodOverhauserUniform, MethodSubmenu::Overhauser, u"Ctrl+M, 5"},
    {ApproxMethod::Overhauser, CommandId::Overhauser, StringId::MethodOverhauser,
     MethodSubmenu::Overhauser, u"Ctrl+M, 6"},
    {ApproxMethod::ConstantSpline, CommandId::ConstantSpline, StringId::MethodConstantSpline,
     MethodSubmenu::Piecewise, u"Ctrl+M, 7"},
    {ApproxMethod::LinearSpline, CommandId::LinearSpline, StringId::MethodLinearSpline,
     MethodSubmenu::Piecewise, u"Ctrl+M, 8"},
    {ApproxMethod::QuadraticSpline, CommandId::QuadraticSpline, StringId::MethodQuadraticSpline,
     MethodSubmenu::Piecewise, u"Ctrl+M, 9"},
    {ApproxMethod::CubicSpline, CommandId::CubicSpline, StringId::MethodCubicSpline,
     MethodSubmenu::Piecewise, u"Ctrl+M, A"},
    {ApproxMethod::CubicHermite, CommandId::CubicHermite, StringId::MethodCubicHermite,
     MethodSubmenu::Piecewise, u"Ctrl+M, B"},
    {ApproxMethod::Largange, CommandId::Largange, StringId::MethodLargange, MethodSubmenu::None,
     u"Ctrl+M, C"},
});

inline constexpr int kMethodCount = static_cast<int>(kMethods.size());

/// The method that a command chooses; empty for any other command.
[[nodiscard]] constexpr std::optional<ApproxMethod> MethodOfCommand(CommandId command) {
    for (const MethodChoice& choice : kMethods)
        if (choice.command == command) return choice.method;
    return std::nullopt;
}

/// Whether a table has one row per method, row i for method i.
template <typename Rows>
[[nodiscard]] constexpr bool HasARowPerMethod(const Rows& rows) {
    if (std::size(rows) != kMethods.size()) return false;
    for (std::size_t i = 0; i < std::size(rows); ++i)
        if (static_cast<std::size_t>(rows[i].method) != i) return false;
    return true;
}
static_assert(HasARowPerMethod(kMethods));

}  // namespace kalvex
