// The factors a, a+1, a+2, ... of a power series as exact integers times a power of two. Internal
// to the special functions.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "numbers/limb_number.h"

namespace kalvex::specfun {

/// Of one parameter, chosen: 256 bits hold a number of two doubles down to 2^-140 in magnitude,
/// with the carry of a+k, and products of three such numbers fit into the 14 limbs of a Factor.
inline constexpr std::int64_t kMostOwnLimbs = 4;

/// The terms that a sum of many digits takes at most, chosen: with four limbs 24,000 terms times
/// limbs, which is nearly what WideValue spends on a value at all.
inline constexpr int kMostWideTerms = 6000;

/// 2^exponent, cut off at 2^-1000 and 2^1000.
[[nodiscard]] inline double PowerOfTwo(double exponent) {
    constexpr double kEnd = 1000;         // chosen: normal doubles reach 2^-1022 and 2^1023
    constexpr std::int64_t kBias = 1023;  // of the exponent of a double, which is above its 52 bits
    const double within = std::clamp(exponent, -kEnd, kEnd);
    const double whole = std::floor(within);
    const double power = std::bit_cast<double>(
        static_cast<std::uint64_t>(static_cast<std::int64_t>(whole) + kBias) << 52);
    return whole == within ? power : power * std::exp2(within - whole);
}

// Limbs have 64 bits: hence the 64, its logarithm 6 and the mask 63 below.

/// The exponent of the lowest bit that is set; 0 for 0.
template <std::size_t limbs>
[[nodiscard]] std::int64_t LowestBit(const Wide<limbs>& a) {
    if (a.sign == 0) return 0;
    std::size_t i = 0;
    while (a.digits[i] == 0)
        ++i;
    return a.exponent - Wide<limbs>::kBits + 64 * static_cast<std::int64_t>(i) +
           std::countr_zero(a.digits[i]);
}

/// The magnitude times 2^-scale, which is integral; false if it is too large.
template <std::size_t limbs>
[[nodiscard]] bool SetInteger(const Wide<limbs>& a, std::int64_t scale, Factor& result) {
    result.count = 0;
    if (a.sign == 0) return true;
    const std::int64_t bits = a.exponent - scale;
    if (bits > 64 * kMostOwnLimbs) return false;
    const auto limb = [&a](std::int64_t i) {
        const bool within = i >= 0 && i < static_cast<std::int64_t>(limbs);
        return within ? a.digits[static_cast<std::size_t>(i)] : 0;
    };
    const std::int64_t down = Wide<limbs>::kBits - bits;
    const std::int64_t whole = down >> 6;
    const int part = static_cast<int>(down & 63);
    result.count = static_cast<std::size_t>((bits + 63) / 64);
    for (std::size_t i = 0; i < result.count; ++i) {
        const std::int64_t from = whole + static_cast<std::int64_t>(i);
        const std::uint64_t own = limb(from) >> part;
        result.digits[i] = part == 0 ? own : own | (limb(from + 1) << (64 - part));
    }
    return true;
}

/// a+k for k = 0, 1, ..., as an integer times 2^scale.
struct Counter {
    Factor magnitude;
    std::int64_t scale = 0;
    std::size_t unitLimb = 0;
    std::uint64_t unit = 1;  // what 1 is, in that limb
    bool negative = false;
    bool failed = false;
    double bits = 0;  // about how many it takes

    template <std::size_t limbs>
    explicit Counter(const Wide<limbs>& a)
        : scale(std::min<std::int64_t>(0, LowestBit(a))),
          unitLimb(static_cast<std::size_t>(-scale / 64)),
          unit(std::uint64_t{1} << (-scale % 64)),
          negative(a.sign < 0) {
        // a+k has at most the bits of a or those of the last k, and one more by a carry.
        constexpr std::int64_t kGrows = std::bit_width(unsigned{kMostWideTerms});
        const std::int64_t most = std::max<std::int64_t>(a.exponent, kGrows) + 1 - scale;
        failed = most > 64 * kMostOwnLimbs || !SetInteger(a, scale, magnitude);
        constexpr std::int64_t kUsual = 8;  // bits of k, chosen: it ends at some hundred as a rule
        bits = static_cast<double>(std::max(a.exponent, kUsual) - scale);
    }

    void Next() {
        while (magnitude.count <= unitLimb)
            magnitude.digits[magnitude.count++] = 0;
        std::uint64_t carry = unit;
        std::size_t i = unitLimb;
        for (; carry != 0 && i < magnitude.count; ++i) {
            std::uint64_t& limb = magnitude.digits[i];
            const std::uint64_t next = negative ? limb - carry : limb + carry;
            carry = (negative ? next > limb : next < limb) ? 1 : 0;
            limb = next;
        }
        if (carry != 0 && negative) {
            Reflect();
        } else if (carry != 0) {
            magnitude.digits[magnitude.count++] = carry;
        }
        while (magnitude.count > 0 && magnitude.digits[magnitude.count - 1] == 0)
            --magnitude.count;
    }

    /// From below 0 to above.
    void Reflect() {
        negative = false;
        bool borrows = true;
        for (std::size_t j = 0; j < magnitude.count; ++j) {
            std::uint64_t& limb = magnitude.digits[j];
            limb = ~limb + (borrows ? 1 : 0);
            borrows = borrows && limb == 0;
        }
    }
};

}  // namespace kalvex::specfun
