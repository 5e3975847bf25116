// The estimate of the error of a walk along the contiguous relations: a second solution tells how
// what was rounded has grown since. Internal to the special functions.
#pragma once

#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric_shift_steps.h"

namespace kalvex::specfun {

using Walker = WalkerOf<DoubleDouble, 1>;

inline constexpr double kStepError = 0x1p-99;

/// A walker, and what is known of its error: a part along the value, relative to it, and a part
/// along the companion, in units of that.
struct Traveller {
    Walker at;
    double scale = 1;  // of slopes beside values
    double relative = 0;
    double growth = 0;
    int exponent = 0;  // of two, of value and slope
};

inline double Size(double value, double slope, double scale) {
    return std::fabs(value) + std::fabs(slope) / scale;
}

inline double SizeOfValue(const Traveller& t) {
    const Column<DoubleDouble>& own = t.at.columns[0];
    return Size(own.value.high, own.slope.high, t.scale);
}

inline double SizeOfCompanion(const Traveller& t) {
    const Column<DoubleDouble>& own = t.at.columns[0];
    return Size(own.companion, own.companionSlope, t.scale);
}

/// What the slope of a solution may be beside its value, that of w^s above all.
inline double ScaleOf(const std::array<DoubleDouble, 3>& p, const Place& place) {
    const double size = 1 + std::fabs(p[0].high) + std::fabs(p[1].high) + std::fabs(p[2].high);
    return size * std::max(1.0, place.odds.high);
}

/// A companion at right angles to the value, where the error is known.
inline void StartNoise(Traveller& t, double error) {
    Column<DoubleDouble>& own = t.at.columns[0];
    own.companion = own.slope.high / t.scale;
    own.companionSlope = -own.value.high * t.scale;
    t.relative = error / SizeOfValue(t);
    t.growth = error / SizeOfCompanion(t);
}

/// Takes the part along the value off the companion and makes it as large as the value. What is
/// left tells what becomes of the other solution even where the value outgrows it for a while; when
/// it is no more than rounding a new companion takes over.
inline void Straighten(Traveller& t) {
    constexpr double kRounding = 0x1p-50;
    constexpr double kDoubtful = 0x1p-40;
    Column<DoubleDouble>& own = t.at.columns[0];
    const double size = SizeOfValue(t);
    const double u = own.value.high / size;
    const double v = own.slope.high / size / t.scale;
    const double before = SizeOfCompanion(t);
    const double along = (own.companion * u + own.companionSlope / t.scale * v) / (u * u + v * v);
    own.companion -= along * u;
    own.companionSlope -= along * v * t.scale;
    const double left = SizeOfCompanion(t);
    t.relative += t.growth * std::fabs(along) / size;
    const double across = t.growth * std::max(left, before * kRounding);
    if (left < before * kDoubtful) {
        own.companion = v;
        own.companionSlope = -u * t.scale;
    }
    const double stretch = size / SizeOfCompanion(t);
    own.companion *= stretch;
    own.companionSlope *= stretch;
    t.growth = across / size;
}

/// Relative to the value or to its slope.
inline double ErrorOf(const Traveller& t) {
    return kStepError + t.relative + t.growth * SizeOfCompanion(t) / SizeOfValue(t);
}

/// Keeps the numbers normalised and within the range.
inline void Tidy(Traveller& t) {
    constexpr double kLarge = 0x1p500;
    constexpr int kScale = 500;
    Column<DoubleDouble>& own = t.at.columns[0];
    own.value = QuickTwoSum(own.value.high, own.value.low);
    own.slope = QuickTwoSum(own.slope.high, own.slope.low);
    const double size = std::fabs(own.value.high) + std::fabs(own.slope.high);
    if (size < kLarge && size > 1 / kLarge) return;
    const int by = size > 1 ? -kScale : kScale;
    own.value = Scale(own.value, by);
    own.slope = Scale(own.slope, by);
    own.companion = std::ldexp(own.companion, by);
    own.companionSlope = std::ldexp(own.companionSlope, by);
    t.exponent -= by;
}

}  // namespace kalvex::specfun
