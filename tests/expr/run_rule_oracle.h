// An independent slow model of evaluation for arithmetic texts: it reads the text again at every
// call, splits it at the loosest operator outside brackets, and applies the run rule as stated.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace kalvex::oracle {

struct Value {
    double value = 0.0;
    std::int32_t code = 0;
};

inline Value Apply(char op, Value a, Value b) {
    if (a.code != 0) return a;
    if (b.code != 0) return b;
    switch (op) {
        case '+':
            return {a.value + b.value, 0};
        case '-':
            return {a.value - b.value, 0};
        case '*':
            return {a.value * b.value, 0};
        default:
            return b.value == 0.0 ? Value{0.0, 1} : Value{a.value / b.value, 0};
    }
}

/// Position of the first operator `op` outside brackets; npos when there is none.
inline std::size_t FirstOutside(const std::string& text, char op) {
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '(') ++depth;
        if (text[i] == ')') --depth;
        if (depth == 0 && text[i] == op) return i;
    }
    return std::string::npos;
}

inline Value Evaluate(const std::string& text, double x, double y);

/// Value of the rest of a run of `op`, in which every operator acts as `companion`.
inline Value Rest(const std::string& text, char op, char companion, double x, double y) {
    const std::size_t at = FirstOutside(text, op);
    if (at == std::string::npos) return Evaluate(text, x, y);
    const Value left = Evaluate(text.substr(0, at), x, y);
    const Value right = Rest(text.substr(at + 1), op, companion, x, y);
    return Apply(companion, left, right);
}

inline Value Evaluate(const std::string& text, double x, double y) {
    const struct {
        char op;
        char companion;
    } levels[] = {{'+', '+'}, {'-', '+'}, {'*', '*'}, {'/', '*'}};
    for (const auto& level : levels) {
        const std::size_t at = FirstOutside(text, level.op);
        if (at == std::string::npos) continue;
        const Value left = Evaluate(text.substr(0, at), x, y);
        const Value right = Rest(text.substr(at + 1), level.op, level.companion, x, y);
        return Apply(level.op, left, right);
    }
    if (text.front() == '(') return Evaluate(text.substr(1, text.size() - 2), x, y);
    if (text == "x") return {x, 0};
    if (text == "y") return {y, 0};
    return {std::strtod(text.c_str(), nullptr), 0};
}

}  // namespace kalvex::oracle
