// Floating-point numbers of many digits whose exponents count limbs of 64 bits, and their products
// with exact integers. No operation shifts bits, which makes them fast. They serve long sums of
// rational terms.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "numbers/wide.h"

namespace kalvex {

inline constexpr std::size_t kMostFactorLimbs = 14;

/// An integer without a sign, made of the first `count` limbs of `digits`. The last of these limbs
/// is the most significant one and is not 0. The number 0 has no limbs.
struct Factor {
    std::array<std::uint64_t, kMostFactorLimbs> digits;
    std::size_t count = 0;
};

/// a = b c, exactly. b and c together have at most kMostFactorLimbs limbs. a is another object than
/// b and c.
inline void SetProduct(const Factor& b, const Factor& c, Factor& a) {
    a.count = 0;
    if (b.count == 0 || c.count == 0) return;
    for (std::size_t i = 0; i < b.count; ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < c.count; ++j) {
            const TwoLimbs sum = static_cast<TwoLimbs>(b.digits[i]) * c.digits[j] +
                                 (i == 0 ? 0 : a.digits[i + j]) + carry;
            a.digits[i + j] = static_cast<std::uint64_t>(sum);
            carry = static_cast<std::uint64_t>(sum >> 64);
        }
        a.digits[i + c.count] = carry;
    }
    a.count = b.count + c.count;
    if (a.digits[a.count - 1] == 0) --a.count;
}

/// The number that the two most significant limbs make up, digits[count-1] 2^64 + digits[count-2].
/// The integer is about 2^(64 (count-2)) times this number. a is not 0.
[[nodiscard]] inline double LeadingPart(const Factor& a) {
    constexpr double kLimb = 0x1p64;
    const double low = a.count > 1 ? static_cast<double>(a.digits[a.count - 2]) : 0;
    return static_cast<double>(a.digits[a.count - 1]) * kLimb + low;
}

/// The number sign * digits * 2^(64 exponent), where the digits make up an integer. The last limb
/// is the most significant one and is not 0. It may be as small as 1, so that only 64 (limbs-1)
/// bits are certain to be significant. The number 0 has sign 0.
template <std::size_t limbs>
struct LimbNumber {
    static constexpr int kBits = 64 * (static_cast<int>(limbs) - 1);
    std::array<std::uint64_t, limbs> digits = {};
    std::int64_t exponent = 0;
    int sign = 0;
};

/// The number 1.
template <std::size_t limbs>
[[nodiscard]] LimbNumber<limbs> OneInLimbs() {
    LimbNumber<limbs> one;
    one.digits[limbs - 1] = 1;
    one.exponent = 1 - static_cast<std::int64_t>(limbs);
    one.sign = 1;
    return one;
}

/// a *= factor, cut off to the limbs of a. The factor is not 0. `known` is the number of limbs of
/// the factor where the compiler knows it, so that it can keep the limbs in registers. It is 0
/// where the number is known at run time only.
template <std::size_t known, std::size_t limbs>
void MultiplyByLimbs(const Factor& factor, LimbNumber<limbs>& a) {
    const std::size_t count = known != 0 ? known : factor.count;
    std::array<std::uint64_t, limbs + (known != 0 ? known : kMostFactorLimbs)> product;
    std::uint64_t carry = 0;  // the first row is stored and not added, so nothing is cleared before
    for (std::size_t j = 0; j < limbs; ++j) {
        const TwoLimbs sum = static_cast<TwoLimbs>(factor.digits[0]) * a.digits[j] + carry;
        product[j] = static_cast<std::uint64_t>(sum);
        carry = static_cast<std::uint64_t>(sum >> 64);
    }
    product[limbs] = carry;
    for (std::size_t i = 1; i < count; ++i) {
        carry = AddRow(factor.digits[i], a.digits, &product[i]);
        product[i + limbs] = carry;
    }
    const bool isFull = carry != 0;
    for (std::size_t j = 0; j < limbs; ++j)
        a.digits[j] = isFull ? product[count + j] : product[count - 1 + j];
    a.exponent += static_cast<std::int64_t>(count) - (isFull ? 0 : 1);
}

/// a *= factor, cut off to the limbs of a. The factor is not 0.
template <std::size_t limbs>
void MultiplyBy(const Factor& factor, LimbNumber<limbs>& a) {
    constexpr std::size_t kMostInRegisters = 8;
    if constexpr (limbs <= kMostInRegisters) {
        switch (factor.count) {
            case 1:
                return MultiplyByLimbs<1>(factor, a);
            case 2:
                return MultiplyByLimbs<2>(factor, a);
            case 3:
                return MultiplyByLimbs<3>(factor, a);
            case 4:
                return MultiplyByLimbs<4>(factor, a);
            default:
                break;
        }
    }
    MultiplyByLimbs<0>(factor, a);
}

/// Moves the limbs up until the most significant one is not 0. A difference needs this where its
/// leading limbs cancel.
template <std::size_t limbs>
void LiftUp(LimbNumber<limbs>& a) {
    std::size_t zeros = 0;
    while (zeros < limbs && a.digits[limbs - 1 - zeros] == 0)
        ++zeros;
    if (zeros == limbs) a.sign = 0;
    if (zeros == 0 || zeros == limbs) return;
    for (std::size_t j = limbs; j-- > 0;)
        a.digits[j] = j >= zeros ? a.digits[j - zeros] : 0;
    a.exponent -= static_cast<std::int64_t>(zeros);
}

/// a += b, cut off at the lowest limb of a. The exponent of a is at least that of b, and neither
/// number is 0.
template <std::size_t limbs>
void AddLower(const LimbNumber<limbs>& b, LimbNumber<limbs>& a) {
    const std::uint64_t apart = static_cast<std::uint64_t>(a.exponent - b.exponent);
    if (apart >= limbs) return;
    std::array<std::uint64_t, limbs> lower = {};
    for (std::size_t j = apart; j < limbs; ++j)
        lower[j - apart] = b.digits[j];
    std::uint64_t carry = 0;
    const bool adds = a.sign == b.sign;
    for (std::size_t j = 0; j < limbs; ++j) {
        const TwoLimbs both = static_cast<TwoLimbs>(lower[j]) + carry;
        const TwoLimbs next = adds ? a.digits[j] + both : a.digits[j] - both;
        carry = static_cast<std::uint64_t>(next >> 64) != 0 ? 1 : 0;
        a.digits[j] = static_cast<std::uint64_t>(next);
    }
    if (adds && carry != 0) {
        std::copy(a.digits.begin() + 1, a.digits.end(), a.digits.begin());
        a.digits[limbs - 1] = 1;
        a.exponent += 1;
    }
    if (adds) return;
    if (carry != 0) {  // |b| > |a| with equal exponents
        a.sign = -a.sign;
        bool borrows = true;
        for (std::uint64_t& limb : a.digits) {
            limb = ~limb + (borrows ? 1 : 0);
            borrows = borrows && limb == 0;
        }
    }
    if (a.digits[limbs - 1] == 0) LiftUp(a);
}

/// a += b. The number with the smaller exponent is cut off at the lowest limb of the other one.
template <std::size_t limbs>
void AddTo(const LimbNumber<limbs>& b, LimbNumber<limbs>& a) {
    if (b.sign == 0) return;
    if (a.sign != 0 && a.exponent >= b.exponent) return AddLower(b, a);
    LimbNumber<limbs> sum = b;
    if (a.sign != 0) AddLower(a, sum);
    a = sum;
}

/// The number a as a Wide. With fewer limbs than a has it is cut off.
template <std::size_t limbs, std::size_t from>
[[nodiscard]] Wide<limbs> WideOf(const LimbNumber<from>& a) {
    if (a.sign == 0) return {};
    std::array<std::uint64_t, std::max(limbs, from)> all = {};
    std::copy(a.digits.begin(), a.digits.end(), all.end() - from);
    return Normalised<limbs>(all, 64 * (a.exponent + static_cast<std::int64_t>(from)), a.sign);
}

}  // namespace kalvex
