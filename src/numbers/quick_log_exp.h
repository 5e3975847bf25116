// Logarithm and exponential as double-doubles with some 68 correct bits, as quick as the runtime's
// own. They serve values that are rounded once afterwards. Tables of the logarithms of 128 numbers
// between 1 and 2 and of the powers 2^(k/64) leave a rest so small that only the first terms of its
// power series need more than a double (Tang 1989, 1990).
#pragma once

#include <cmath>
#include <cstddef>

#include "numbers/double_double.h"
#include "numbers/log_exp_tables.h"
#include "numbers/truncate.h"

namespace kalvex {

/// ln x for finite x above 0. Relative error below 2^-66, measured on a million points.
[[nodiscard]] inline DoubleDouble QuickLog(double x) {
    int exponent = 0;
    const double fraction = 2 * std::frexp(x, &exponent);  // 1 to 2
    const int interval = TruncateToInt32((fraction - 1) * 128);
    const double k = interval < kLogTurn ? exponent - 1 : exponent;
    // The product with the inverse from the table is 1 + r with |r| below 1/128.
    const DoubleDouble product = TwoProduct(fraction, kLogInverses[interval]);
    const DoubleDouble r = QuickTwoSum(product.high - 1, product.low);
    const double h = r.high;
    const double square = h * h;
    const double even = 1.0 / 4 + square * (1.0 / 6 + square * (1.0 / 8 + square / 10));
    const double odd = 1.0 / 3 + square * (1.0 / 5 + square * (1.0 / 7 + square / 9));
    const double curve = h * square * (odd - h * even);
    const DoubleDouble half = TwoProduct(-0.5 * h, h);
    const DoubleDouble start = QuickTwoSum(h, half.high);
    const double startLow = start.low + (half.low + (r.low - h * r.low) + curve);
    const DoubleDouble middle = kLogMiddles[interval];
    const DoubleDouble turns = TwoProduct(k, kLn2.high);
    const DoubleDouble base = TwoSum(turns.high, middle.high);
    const double baseLow = base.low + (turns.low + k * kLn2.low + middle.low);
    const DoubleDouble sum = TwoSum(base.high, start.high);
    return QuickTwoSum(sum.high, sum.low + (baseLow + startLow));
}

/// exp(a) 2^-exponent, a number between 0.99 and 2.01, for |a| up to 1400. Relative error below
/// 2^-66, measured on a million points with |a| up to 745.
[[nodiscard]] inline DoubleDouble QuickExp(DoubleDouble a, int& exponent) {
    const double k = std::nearbyint(a.high / (kExpStep.high + kExpStep.low));
    const int steps = TruncateToInt32(k);
    const int part = steps & 63;
    exponent = (steps - part) / 64;
    const DoubleDouble r = TwoSum(a.high - k * kExpStep.high, a.low - k * kExpStep.low);
    const double h = r.high;
    const double square = h * h;
    const double even = 0.5 + square * (1.0 / 24 + square / 720);
    const double odd = 1.0 / 6 + square * (1.0 / 120 + square / 5040);
    const double curve = square * (even + h * odd);
    const double rest = r.low + (curve + h * r.low);
    const DoubleDouble start = kExpParts[part];
    const DoubleDouble product = TwoProduct(start.high, h);
    const DoubleDouble sum = QuickTwoSum(start.high, product.high);
    return QuickTwoSum(sum.high,
                       sum.low + (product.low + (start.low + start.low * h + start.high * rest)));
}

}  // namespace kalvex
