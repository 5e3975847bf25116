// The arc sine is the runtime's, corrected by one step of Halley's method. The sine of that double,
// from its power series in double-double arithmetic, shows the error; terms of the second order in
// it matter, those of the third do not. For arguments above 0.7 the angle is 2 arcsin of
// sqrt((1-x)/2), where 1-x is exact. Cosine and sine of the reduced phase are power series too,
// with the first terms in double-double arithmetic.
#include "specfun/polynomials/angle.h"

#include <cmath>

#include "numbers/truncate.h"

namespace kalvex::specfun {
namespace {

/// (-1)^k / (2k+1)! for k from 13 down to 8. Plain doubles suffice for these terms of arguments
/// below pi/4.
constexpr double kSineTail[] = {-9.183689863795546e-29, 6.446950284384474e-26,
                                -3.868170170630684e-23, 1.9572941063391263e-20,
                                -8.22063524662433e-18,  2.8114572543455206e-15};
/// The same from 7 down to 1.
constexpr DoubleDouble kSineHead[] = {{-7.647163731819816e-13, -7.03872877733453e-30},
                                      {1.6059043836821613e-10, 1.2585294588752098e-26},
                                      {-2.505210838544172e-08, 1.448814070935912e-24},
                                      {2.7557319223985893e-06, -1.858393274046472e-22},
                                      {-0.0001984126984126984, -1.7209558293420705e-22},
                                      {0.008333333333333333, 1.1564823173178714e-19},
                                      {-0.16666666666666666, -9.25185853854297e-18}};

/// sin(a) - a for |a| up to 0.79.
DoubleDouble SineLessAngle(double a) {
    const DoubleDouble square = TwoProduct(a, a);
    double tail = 0;
    for (const double coefficient : kSineTail)
        tail = coefficient + square.high * tail;
    DoubleDouble sum = {tail, 0};
    for (const DoubleDouble coefficient : kSineHead) {
        // Each term is below a tenth of its coefficient, so that nothing cancels.
        const DoubleDouble product = sum * square;
        const DoubleDouble next = QuickTwoSum(coefficient.high, product.high);
        sum = QuickTwoSum(next.high, next.low + (coefficient.low + product.low));
    }
    return square * a * sum;
}

/// arcsin(s) for 0 <= s <= 0.71.
DoubleDouble ArcSine(DoubleDouble s) {
    constexpr double kLinear = 0x1p-54;  // s^2/6 vanishes beside 1
    if (s.high < kLinear) return s;
    const double first = std::asin(s.high);
    const DoubleDouble rest =
        QuickTwoSum(s.high - first, s.low) - SineLessAngle(first);  // s - sin(first)
    const double cosine = std::sqrt((1 - s.high) * (1 + s.high));
    const double step = rest.high / cosine;
    return QuickTwoSum(first, step + step * step * s.high / (2 * cosine));
}

/// (-1)^k / (2k+1)! from k = 8 down to 2, and (-1)^k / (2k)! from k = 8 down to 3.
constexpr double kSineSeries[] = {
    2.8114572543455206e-15, -7.647163731819816e-13, 1.6059043836821613e-10, -2.505210838544172e-08,
    2.7557319223985893e-06, -0.0001984126984126984, 0.008333333333333333};
constexpr double kCosineSeries[] = {4.7794773323873853e-14, -1.1470745597729725e-11,
                                    2.08767569878681e-09,   -2.755731922398589e-07,
                                    2.48015873015873e-05,   -0.001388888888888889};
constexpr DoubleDouble kSixth = {0.16666666666666666, 9.25185853854297e-18};
constexpr DoubleDouble kTwentyFourth = {0.041666666666666664, 2.3129646346357427e-18};

template <std::size_t count>
double Sum(const double (&series)[count], double square) {
    double sum = 0;
    for (const double coefficient : series)
        sum = coefficient + square * sum;
    return sum;
}

/// For |a| up to 0.8.
CosineSinePair NearZero(DoubleDouble a) {
    const DoubleDouble square = a * a;
    const DoubleDouble cube = square * a;
    const DoubleDouble fourth = square * square;
    const double sineTail = cube.high * (square.high * Sum(kSineSeries, square.high));
    const double cosineTail = fourth.high * (square.high * Sum(kCosineSeries, square.high));
    const DoubleDouble cosineRest =
        fourth * kTwentyFourth - DoubleDouble{square.high / 2, square.low / 2} + cosineTail;
    return {cosineRest + 1.0, a - (cube * kSixth - sineTail)};
}

}  // namespace

int QuartersOf(double n) {
    return TruncateToInt32(n - 4 * std::floor(n / 4));
}

KALVEX_WITH_FMA
Angle AngleOf(double x) {
    constexpr double kMiddle = 0.7;
    const DoubleDouble sine = Sqrt(TwoSum(1, -x) * TwoSum(1, x));
    if (x <= kMiddle) return {1, -ArcSine({x, 0}), sine};
    const DoubleDouble half = ArcSine(Sqrt({(1 - x) / 2, 0}));
    return {0, {2 * half.high, 2 * half.low}, sine};
}

KALVEX_WITH_FMA
CosineSinePair CosineSineAt(DoubleDouble phase, int quarters) {
    // For a large phase the first reduction can be off by one quarter, so that it is repeated.
    int first = 0;
    int second = 0;
    const DoubleDouble rest = ReduceByHalfPi(ReduceByHalfPi(phase, first), second);
    const auto [c, s] = NearZero(rest);
    switch ((quarters + first + second) % 4) {
        case 0:
            return {c, s};
        case 1:
            return {-s, c};
        case 2:
            return {-c, -s};
        default:
            return {s, -c};
    }
}

KALVEX_WITH_FMA
HyperbolicAngle HyperbolicAngleOf(double x) {
    const DoubleDouble less = TwoSum(x, -1);
    const DoubleDouble sine = Sqrt(less * TwoSum(x, 1));
    const DoubleDouble rise = less + sine;  // exp(eta) - 1
    return {rise.high < 0.5 ? LogOnePlus(rise) : Log(rise + 1.0), sine};
}

}  // namespace kalvex::specfun
