// The language's vocabulary: forty functions, their arities and the order that numbers them.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kalvex {

/// A function's number in the name table; the compiler's operation index is 6 more.
enum class FunctionNumber : std::int32_t {
    // clang-format off
    Sin, Cos, Tg, Ln, Lg, Sh, Ch, Th, Exp, Acos, Asin, Atg, Int, Frac, Abs, Gamma, Si, Ci, Shi,
    Chi, Psi, DawsonF, Ei, Sf, Cf, Ai, Bi, Erf, Li, Beta, J, Y, K, I, Hyper, Log, Cheb, Hi, Lag,
    Leg,
    // clang-format on
};

struct FunctionName {
    std::u16string_view name;
    int arity;
};

/// Indexed by FunctionNumber. Names are case-sensitive.
inline constexpr std::array<FunctionName, 40> kFunctionNames = {{
    {u"sin", 1},  {u"cos", 1},  {u"tg", 1},  {u"ln", 1},      {u"lg", 1},    {u"sh", 1},
    {u"ch", 1},   {u"th", 1},   {u"exp", 1}, {u"acos", 1},    {u"asin", 1},  {u"atg", 1},
    {u"int", 1},  {u"frac", 1}, {u"abs", 1}, {u"Gamma", 1},   {u"Si", 1},    {u"Ci", 1},
    {u"Shi", 1},  {u"Chi", 1},  {u"Psi", 1}, {u"DawsonF", 1}, {u"Ei", 1},    {u"Sf", 1},
    {u"Cf", 1},   {u"Ai", 1},   {u"Bi", 1},  {u"erf", 1},     {u"Li", 1},    {u"Beta", 2},
    {u"J", 2},    {u"Y", 2},    {u"K", 2},   {u"I", 2},       {u"Hyper", 4}, {u"log", 2},
    {u"Cheb", 3}, {u"Hi", 2},   {u"Lag", 2}, {u"Leg", 2},
}};

inline constexpr int kFirstFunctionOperation = 6;

}  // namespace kalvex
