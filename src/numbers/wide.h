// Floating-point numbers of many digits, for computations that lose more digits than double-doubles
// have. The mantissa is an array of 64-bit limbs. Products and quotients use the classical
// algorithms (Knuth, The Art of Computer Programming 4.3.1). Results are cut off, not rounded;
// their relative errors are a few units in the last bit. The exponent has 64 bits and does not
// overflow.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "numbers/double_double.h"

namespace kalvex {

__extension__ using TwoLimbs = unsigned __int128;

/// The number sign * 0.digits * 2^exponent, where sign is -1, 0 or 1. The last limb is the most
/// significant one, and its highest bit is set. The number 0 has sign 0.
template <std::size_t limbs>
struct Wide {
    static constexpr int kBits = 64 * static_cast<int>(limbs);
    std::array<std::uint64_t, limbs> digits = {};
    std::int64_t exponent = 0;
    int sign = 0;
};

/// -a, exactly.
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Negate(Wide<limbs> a) {
    a.sign = -a.sign;
    return a;
}

/// a times 2^exponent, exactly.
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Scale(Wide<limbs> a, std::int64_t exponent) {
    a.exponent += exponent;
    return a;
}

/// The number sign * 0.all * 2^exponent, where leading zeros are shifted out and the rest is cut
/// off to the limbs of the result. The result is 0 if all limbs are 0.
template <std::size_t limbs, std::size_t more>
[[nodiscard]] Wide<limbs> Normalised(const std::array<std::uint64_t, more>& all,
                                     std::int64_t exponent, int sign) {
    static_assert(more >= limbs);
    std::size_t top = more;
    while (top > 0 && all[top - 1] == 0)
        --top;
    Wide<limbs> result;
    if (top == 0) return result;
    const int shift = __builtin_clzll(all[top - 1]);
    for (std::size_t i = 0; i < limbs; ++i) {
        const std::size_t from =
            top - limbs + i;  // wraps around below 0, which the comparison with top finds
        const std::uint64_t own = from < top ? all[from] : 0;
        const std::uint64_t below = from - 1 < top ? all[from - 1] : 0;
        result.digits[i] = shift == 0 ? own : (own << shift) | (below >> (64 - shift));
    }
    result.exponent = exponent - 64 * static_cast<std::int64_t>(more - top) - shift;
    result.sign = sign;
    return result;
}

/// The number a, exactly. a is finite.
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> WideOf(double a) {
    Wide<limbs> result;
    if (a == 0) return result;
    int exponent = 0;
    const double fraction = std::frexp(std::fabs(a), &exponent);
    result.digits[limbs - 1] = static_cast<std::uint64_t>(std::ldexp(fraction, 64));
    result.exponent = exponent;
    result.sign = a < 0 ? -1 : 1;
    return result;
}

/// The number a with another number of limbs. With fewer limbs it is cut off.
template <std::size_t limbs, std::size_t from>
[[nodiscard]] Wide<limbs> WideOf(const Wide<from>& a) {
    Wide<limbs> result;
    result.exponent = a.exponent;
    result.sign = a.sign;
    for (std::size_t i = 1; i <= std::min(limbs, from); ++i)
        result.digits[limbs - i] = a.digits[from - i];
    return result;
}

/// Adds digit times the row of limbs to as many limbs from `sum` on. Returns the carry.
template <std::size_t limbs>
[[nodiscard]] std::uint64_t AddRow(std::uint64_t digit, const std::array<std::uint64_t, limbs>& row,
                                   std::uint64_t* sum) {
    std::uint64_t carry = 0;
    for (std::size_t j = 0; j < limbs; ++j) {
        const TwoLimbs next = static_cast<TwoLimbs>(digit) * row[j] + sum[j] + carry;
        sum[j] = static_cast<std::uint64_t>(next);
        carry = static_cast<std::uint64_t>(next >> 64);
    }
    return carry;
}

/// a b, cut off to the limbs of the result.
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Multiply(const Wide<limbs>& a, const Wide<limbs>& b) {
    if (a.sign == 0 || b.sign == 0) return {};
    std::array<std::uint64_t, 2 * limbs> product = {};
    for (std::size_t i = 0; i < limbs; ++i) {
        if (a.digits[i] == 0) continue;
        product[i + limbs] = AddRow(a.digits[i], b.digits, &product[i]);
    }
    return Normalised<limbs>(product, a.exponent + b.exponent, a.sign * b.sign);
}

/// The mantissa of a, shifted down by `bits`. The result has one limb more at either end: the
/// lowest limb takes bits that are shifted out, the highest one is 0 and has room for a carry.
template <std::size_t limbs>
[[nodiscard]] std::array<std::uint64_t, limbs + 2> ShiftedDown(const Wide<limbs>& a,
                                                               std::uint64_t bits) {
    std::array<std::uint64_t, limbs + 2> result = {};
    const std::size_t whole = bits / 64;
    const int part = static_cast<int>(bits % 64);
    for (std::size_t i = 0; i <= limbs; ++i) {
        const auto limb = [&](std::size_t at) {  // of the mantissa with a limb 0 below and above it
            return at >= 1 && at <= limbs ? a.digits[at - 1] : 0;
        };
        const std::uint64_t own = limb(i + whole);
        const std::uint64_t above = limb(i + whole + 1);
        result[i] = part == 0 ? own : (own >> part) | (above << (64 - part));
    }
    return result;
}

/// a + b. The result is exact where the arguments cancel and their exponents differ by less
/// than 64.
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Add(const Wide<limbs>& a, const Wide<limbs>& b) {
    if (a.sign == 0) return b;
    if (b.sign == 0) return a;
    if (a.exponent < b.exponent) return Add(b, a);
    const std::uint64_t apart = static_cast<std::uint64_t>(a.exponent - b.exponent);
    if (apart > Wide<limbs>::kBits + 64) return a;
    std::array<std::uint64_t, limbs + 2> sum = ShiftedDown(a, 0);
    const std::array<std::uint64_t, limbs + 2> other = ShiftedDown(b, apart);
    const bool adds = a.sign == b.sign;
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < sum.size(); ++i) {
        const TwoLimbs both = static_cast<TwoLimbs>(other[i]) + carry;
        const TwoLimbs next = adds ? sum[i] + both : sum[i] - both;
        carry = static_cast<std::uint64_t>(next >> 64) != 0 ? 1 : 0;
        sum[i] = static_cast<std::uint64_t>(next);
    }
    int sign = a.sign;
    if (carry != 0) {  // |b| > |a| with equal exponents
        sign = -sign;
        bool borrows = true;
        for (std::uint64_t& limb : sum) {
            limb = ~limb + (borrows ? 1 : 0);
            borrows = borrows && limb == 0;
        }
    }
    return Normalised<limbs>(sum, a.exponent + 64, sign);
}

/// a - b, exact where Add is.
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Subtract(const Wide<limbs>& a, const Wide<limbs>& b) {
    return Add(a, Negate(b));
}

/// Divides by a limb whose highest bit is set. It multiplies by the reciprocal, which is computed
/// once (Moeller and Granlund 2011).
struct LimbDivisor {
    std::uint64_t by;
    std::uint64_t reciprocal;  // floor((2^128-1)/by) - 2^64

    explicit LimbDivisor(std::uint64_t divisor)
        : by(divisor), reciprocal(static_cast<std::uint64_t>(~TwoLimbs{0} / divisor)) {}

    /// The quotient of the number 2^64 upper + lower by the divisor. `upper` is less than the
    /// divisor. `lower` becomes the remainder.
    [[nodiscard]] std::uint64_t Divide(std::uint64_t upper, std::uint64_t& lower) const {
        const TwoLimbs guess = static_cast<TwoLimbs>(reciprocal) * upper +
                               ((static_cast<TwoLimbs>(upper) << 64) | lower);
        std::uint64_t quotient = static_cast<std::uint64_t>(guess >> 64) + 1;
        std::uint64_t rest = lower - quotient * by;
        if (rest > static_cast<std::uint64_t>(guess)) {
            --quotient;
            rest += by;
        }
        if (rest >= by) {
            ++quotient;
            rest -= by;
        }
        lower = rest;
        return quotient;
    }
};

/// Estimates one limb of a quotient from the three highest limbs of the remainder, `rest`, and the
/// two highest limbs of the divisor, `top` and `next`. The estimate is exact or too large by 1.
[[nodiscard]] inline std::uint64_t QuotientDigit(const std::array<std::uint64_t, 3>& rest,
                                                 LimbDivisor top, std::uint64_t next) {
    std::uint64_t left = rest[1];
    std::uint64_t guess = ~std::uint64_t{0};
    if (rest[2] < top.by) {
        guess = top.Divide(rest[2], left);
    } else {
        left = rest[1] + top.by;
        if (left < top.by) return guess;
    }
    while (static_cast<TwoLimbs>(guess) * next > ((static_cast<TwoLimbs>(left) << 64) | rest[0])) {
        --guess;
        left += top.by;
        if (left < top.by) break;
    }
    return guess;
}

/// rest -= digit * b, where the limbs of b below index `from` are 0 and skipped. Returns whether
/// the result is negative.
template <std::size_t limbs>
[[nodiscard]] bool TakeOff(std::uint64_t digit, const Wide<limbs>& b, std::size_t from,
                           std::uint64_t* rest) {
    std::uint64_t borrow = 0;
    std::uint64_t carry = 0;
    for (std::size_t i = from; i <= limbs; ++i) {
        const TwoLimbs product =
            static_cast<TwoLimbs>(digit) * (i < limbs ? b.digits[i] : 0) + carry;
        carry = static_cast<std::uint64_t>(product >> 64);
        const TwoLimbs less =
            static_cast<TwoLimbs>(rest[i]) - static_cast<std::uint64_t>(product) - borrow;
        borrow = static_cast<std::uint64_t>(less >> 64) != 0 ? 1 : 0;
        rest[i] = static_cast<std::uint64_t>(less);
    }
    return borrow != 0;
}

/// rest += b, after TakeOff has made rest negative.
template <std::size_t limbs>
void PutBack(const Wide<limbs>& b, std::size_t from, std::uint64_t* rest) {
    std::uint64_t carry = 0;
    for (std::size_t i = from; i <= limbs; ++i) {
        const TwoLimbs sum = static_cast<TwoLimbs>(rest[i]) + (i < limbs ? b.digits[i] : 0) + carry;
        rest[i] = static_cast<std::uint64_t>(sum);
        carry = static_cast<std::uint64_t>(sum >> 64);
    }
}

/// a / b by Knuth's algorithm D. The quotient is computed with one limb more than the result has
/// and cut off. b is not 0.
template <std::size_t limbs>
[[nodiscard]] Wide<limbs> Divide(const Wide<limbs>& a, const Wide<limbs>& b) {
    if (a.sign == 0) return {};
    constexpr std::size_t kQuotient = limbs + 1;
    std::array<std::uint64_t, 2 * limbs + 1> rest = {};
    for (std::size_t i = 0; i < limbs; ++i)
        rest[kQuotient - 1 + i] = a.digits[i];
    std::array<std::uint64_t, kQuotient> quotient = {};
    const LimbDivisor top(b.digits[limbs - 1]);
    const std::uint64_t next = b.digits[limbs - 2];
    std::size_t from = 0;
    while (b.digits[from] == 0)
        ++from;
    for (std::size_t j = kQuotient; j-- > 0;) {
        const std::size_t last = j + limbs;
        quotient[j] = QuotientDigit({rest[last - 2], rest[last - 1], rest[last]}, top, next);
        if (!TakeOff(quotient[j], b, from, &rest[j])) continue;
        --quotient[j];
        PutBack(b, from, &rest[j]);
    }
    return Normalised<limbs>(quotient, a.exponent - b.exponent + 64, a.sign * b.sign);
}

/// The number without its factor 2^exponent, as a double-double. Its magnitude is between 1/2 and
/// 1, or 0 for the number 0.
template <std::size_t limbs>
[[nodiscard]] DoubleDouble FractionOf(const Wide<limbs>& a) {
    if (a.sign == 0) return {};
    constexpr std::uint64_t kLow = (std::uint64_t{1} << 11) - 1;
    const std::uint64_t top = a.digits[limbs - 1];
    const double high = std::ldexp(static_cast<double>(top & ~kLow), -64);
    const double low = std::ldexp(static_cast<double>(top & kLow), -64) +
                       std::ldexp(static_cast<double>(a.digits[limbs - 2] >> 11), -117);
    const DoubleDouble sum = QuickTwoSum(high, low);
    return a.sign > 0 ? sum : -sum;
}

/// The double nearest to a. It is infinite or 0 where a is out of the range of doubles.
template <std::size_t limbs>
[[nodiscard]] double ToDouble(const Wide<limbs>& a) {
    constexpr std::int64_t kBeyond = 2000;
    const std::int64_t exponent = a.exponent > kBeyond    ? kBeyond
                                  : a.exponent < -kBeyond ? -kBeyond
                                                          : a.exponent;
    return std::ldexp(ToDouble(FractionOf(a)), static_cast<int>(exponent));
}

}  // namespace kalvex
