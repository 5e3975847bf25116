// In units of a full turn 2/3 x^(3/2) is x sqrt(x)/(3 pi). With x = a 4^(9 q), 1 <= a < 2^18, this
// is a sqrt(a) / (3 pi) B^q with B = 2^27. Only the digits to the base B behind the point of the
// product are needed, as in the reduction of x itself by Payne and Hanek (1983).
//
// The root is computed digit by digit. Let S be the number made of its first j digits. The
// remainder r = B^j (a - S^2) is kept. The next digit d is the integer nearest to B r/(2 S), which
// may be negative, and the next remainder is B r - d (2 S + d B^-(j+1)). Digits of the remainder
// beyond the fifth are left without carries: sums of 64 products of numbers up to 2^27 and 2^28
// still fit into an integer of 64 bits.
#include "specfun/airy/turns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "numbers/truncate.h"
#include "specfun/airy/turns_table.h"

namespace kalvex::specfun {
namespace {

constexpr std::int64_t kBase = std::int64_t{1} << kTurnBits;
constexpr double kUnit = 1.0 / kBase;
constexpr int kStep = 18;      // binary digits of x that move the product by one digit
constexpr int kMost = 56;      // 1023 / kStep
constexpr int kBehind = 7;     // digits behind the point
constexpr int kCarried = 5;    // digits of the remainder that are kept small
constexpr int kFractions = 2;  // digits of `a` behind its point

constexpr DoubleDouble kTurn = {2 * kPi.high, 2 * kPi.low};

using Digits = std::array<std::int64_t, kMost + kBehind + kFractions + 1>;
using Window = std::array<std::int64_t, kBehind + kFractions>;

/// Brings the digits from `last` down to `first` between -B/2 and B/2 and adds what exceeds that to
/// the digit before.
template <typename Array>
void Carry(Array& digits, int first, int last) {
    for (int i = last; i >= first; --i) {
        const std::int64_t carry = (digits[i] + kBase / 2) >> kTurnBits;
        digits[i] -= carry * kBase;
        if (i > 0) digits[i - 1] += carry;
    }
}

/// The first three digits.
double Leading(const Digits& digits) {
    return static_cast<double>(digits[0]) +
           kUnit * (static_cast<double>(digits[1]) + kUnit * static_cast<double>(digits[2]));
}

/// a as three digits to the base B, the first one whole: 1 <= a < 2^18.
std::array<std::int64_t, kFractions + 1> ExactDigits(double a) {
    std::array<std::int64_t, kFractions + 1> digits{};
    for (std::int64_t& digit : digits) {
        digit = TruncateToInt64(a);
        a = (a - static_cast<double>(digit)) * kBase;
    }
    return digits;
}

/// Twice the root of a: the whole part and `count` digits.
Digits TwiceRoot(double a, int count) {
    Digits twice{};
    Digits rest{};
    const double root = std::sqrt(a);
    const double whole = std::nearbyint(root);
    const auto digits = ExactDigits(a);
    std::copy(digits.begin(), digits.end(), rest.begin());
    twice[0] = TruncateToInt64(2 * whole);
    rest[0] -= TruncateToInt64(whole * whole);
    for (int j = 1; j <= count; ++j) {
        // From the second digit on the estimate is accurate enough.
        const double estimate = j == 1 ? root - whole : Leading(rest) / Leading(twice);
        const std::int64_t digit = TruncateToInt64(std::nearbyint(estimate * kBase));
        rest[0] = rest[0] * kBase + rest[1] - digit * twice[0];
        for (int i = 1; i < j; ++i)
            rest[i] = rest[i + 1] - digit * twice[i];
        rest[j] = rest[j + 1] - digit * digit;
        rest[j + 1] = 0;
        twice[j] = 2 * digit;
        Carry(rest, 1, kCarried);
    }
    return twice;
}

/// The value of the digits, without the last one, from the digit of weight 1/B on.
DoubleDouble Fraction(const Window& digits) {
    DoubleDouble sum;
    for (int i = kBehind - 2; i > 0; i -= 2) {
        sum = sum + static_cast<double>(digits[i] * kBase + digits[i + 1]);
        sum = {sum.high * (kUnit * kUnit), sum.low * (kUnit * kUnit)};
    }
    return sum;
}

}  // namespace

ReducedAngle TurnedPhase(double x) {
    const int q = std::ilogb(x) / kStep;
    const double a = std::ldexp(x, -kStep * q);
    const int count = q + kBehind - 1;
    const Digits twice = TwiceRoot(a, count);
    // Of sqrt(a)/(3 pi) B^q the digits with the weights B, 1, 1/B, ...
    Window product{};
    for (int i = 0; i < kBehind + kFractions; ++i) {
        const int sum = q + i + 1 - kFractions;
        for (int j = 0; j < sum; ++j)
            product[i] += twice[j] / 2 * kThirdOfInversePi[sum - j];
    }
    Carry(product, 0, kBehind + kFractions - 1);
    // The digits behind the point of the product with a, plus an eighth of a turn.
    Window turns{};
    const auto digits = ExactDigits(a);
    for (int i = 1; i <= kBehind; ++i)
        for (int l = 0; l <= kFractions; ++l)
            turns[i] += digits[l] * product[i - l + kFractions - 1];
    turns[1] += kBase / 8;
    Carry(turns, 1, kBehind);
    const std::int64_t quarters = (turns[1] + kBase / 8) >> (kTurnBits - 2);
    turns[1] -= quarters * (kBase / 4);
    return {Fraction(turns) * kTurn, static_cast<int>(quarters & 3)};
}

}  // namespace kalvex::specfun
