// Logarithm and exponential of numbers of many digits, by power series.
#pragma once

#include <cstdint>

#include "numbers/wide.h"

namespace kalvex {

/// ln((1+t)/(1-t)) = 2 (t + t^3/3 + ...), for |t| up to 1/3; relative error 2^-(bits-6).
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> LogOfQuotient(const Wide<limbs>& t) {
    const Wide<limbs> square = Multiply(t, t);
    Wide<limbs> power = t;
    Wide<limbs> sum = t;
    for (int k = 3; power.sign != 0; k += 2) {
        power = Multiply(square, power);
        if (power.exponent < sum.exponent - Wide<limbs>::kBits - 1) break;
        sum = Add(sum, Divide(power, WideOf<limbs>(k)));
    }
    return Scale(sum, 1);
}

template <std::size_t limbs>
[[nodiscard]] const Wide<limbs>& LnTwo() {
    static const Wide<limbs> value = LogOfQuotient(Divide(WideOf<limbs>(1), WideOf<limbs>(3)));
    return value;
}

/// ln(a) for a above 0; error 2^-(bits-8) (1 + |ln(a)|).
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Log(const Wide<limbs>& a) {
    const Wide<limbs> one = WideOf<limbs>(1);
    const Wide<limbs> fraction = Scale(a, -a.exponent);  // 1/2 to 1
    const Wide<limbs> t = Divide(Subtract(fraction, one), Add(fraction, one));
    const Wide<limbs> whole =
        Multiply(WideOf<limbs>(static_cast<double>(a.exponent)), LnTwo<limbs>());
    return Add(whole, LogOfQuotient(t));
}

/// exp(a) for |a| up to 2^30; relative error 2^-(bits-24) (1 + |a|).
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Exp(const Wide<limbs>& a) {
    constexpr int kHalvings = 16;
    const double multiple = std::nearbyint(ToDouble(a) / 0.6931471805599453);
    const Wide<limbs> rest = Subtract(a, Multiply(WideOf<limbs>(multiple), LnTwo<limbs>()));
    const Wide<limbs> part = Scale(rest, -kHalvings);
    Wide<limbs> sum = WideOf<limbs>(1);
    Wide<limbs> term = sum;
    for (int k = 1; term.sign != 0 && term.exponent > -Wide<limbs>::kBits - 1; ++k) {
        term = Divide(Multiply(part, term), WideOf<limbs>(k));
        sum = Add(sum, term);
    }
    for (int i = 0; i < kHalvings; ++i)
        sum = Multiply(sum, sum);
    return Scale(sum, static_cast<std::int64_t>(multiple));
}

}  // namespace kalvex
