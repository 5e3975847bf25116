// Random expressions for tests, reproducible from a seed.
#pragma once

#include <random>
#include <string>

namespace kalvex::testing_support {

using Generator = std::mt19937;

inline std::size_t Below(Generator& generator, std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(generator);
}

inline std::string RandomLeaf(Generator& generator, bool withY) {
    static const char* const kLeaves[] = {"x", "x", "2", "0.5", "3.25", "10", "0.1", "y"};
    return kLeaves[Below(generator, withY ? 8 : 7)];
}

/// An expression of sums, differences, products, quotients and brackets.
inline std::string RandomArithmetic(Generator& generator, int depth, bool withY) {
    if (depth == 0) return RandomLeaf(generator, withY);
    std::string text;
    const std::size_t terms = 1 + Below(generator, 4);
    for (std::size_t i = 0; i < terms; ++i) {
        if (i > 0) text += "+-*/"[Below(generator, 4)];
        const std::string operand = RandomArithmetic(generator, depth - 1, withY);
        text += operand.size() > 1 && depth > 1 ? "(" + operand + ")" : operand;
    }
    return text;
}

/// An expression that also has powers and functions of one argument.
inline std::string RandomExpression(Generator& generator, int depth, bool withY) {
    static const char* const kFunctions[] = {"sin", "cos",  "tg",  "ln",   "lg",   "sh",
                                             "ch",  "th",   "exp", "acos", "asin", "atg",
                                             "int", "frac", "abs", "erf",  "Gamma"};
    static const char* const kPowers[] = {"^2", "^3", "^0.5", "^(0-3)", "^1.7", "^x", "^7", ""};
    if (depth == 0) return RandomLeaf(generator, withY);
    switch (Below(generator, 4)) {
        case 0:
            return std::string(kFunctions[Below(generator, 17)]) + "(" +
                   RandomExpression(generator, depth - 1, withY) + ")";
        case 1:
            return "(" + RandomExpression(generator, depth - 1, withY) + ")" +
                   kPowers[Below(generator, 8)];
        default:
            return "(" + RandomExpression(generator, depth - 1, withY) + ")" +
                   "+-*/"[Below(generator, 4)] + RandomExpression(generator, depth - 1, withY);
    }
}

}  // namespace kalvex::testing_support
