// One step of 1 in a parameter of the Gauss hypergeometric function (DLMF 15.5.11 to 15.5.22, the
// contiguous relations): a linear map of the value and of z times the derivative. Internal to the
// special functions.
#pragma once

#include <array>
#include <cstddef>

#include "specfun/hypergeometric/lanes.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// 1/a, not normalised: LooseQuotient(1, a) without its last step, which saves three operations.
/// The relative error is below 2^-102.
[[nodiscard]] inline DoubleDouble Reciprocal(DoubleDouble a) {
    const double high = 1 / a.high;
    const double rest = std::fma(-high, a.high, 1) - high * a.low;
    return {high, rest * high};
}

/// a - b, not normalised: operator- without its last step, which saves three operations. Unlike
/// LooseDifference it keeps all digits where the high parts cancel, because steps divide by it. The
/// relative error is below 2^-103.
[[nodiscard]] inline DoubleDouble Difference(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble highs = TwoSum(a.high, -b.high);
    const DoubleDouble lows = TwoSum(a.low, -b.low);
    const DoubleDouble sum = QuickTwoSum(highs.high, highs.low + lows.high);
    return {sum.high, sum.low + lows.low};
}

// The functions below take numbers one by one (DoubleDouble) or four at once (LanesOf).

[[nodiscard]] inline double Magnitude(double a) {
    return std::fabs(a);
}

[[nodiscard]] inline DoubleDouble Normalised(DoubleDouble a) {
    return QuickTwoSum(a.high, a.low);
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> Normalised(const LanesOf<Unit>& a) {  // Accumulate has done it
    return a;
}

/// a b + c d, normalised. The error is below 2^-102 (|a b| + |c d|): digits are lost where the two
/// products cancel, which the maps composed of magnitudes count (TraceOf).
template <typename Number>
[[nodiscard]] Number SumOfProducts(const Number& a, const Number& b, const Number& c,
                                   const Number& d) {
    Number sum = LooseProduct(a, b);
    const Number other = LooseProduct(c, d);
    Accumulate(sum, other.high, other.low);
    return Normalised(sum);
}

/// a + b: LooseSum for numbers one by one and in lanes alike, with low + (b.low + ...) in another
/// order, so that its last bits may differ. The error is below 2^-104 (|a| + |b|).
template <typename Number>
[[nodiscard]] Number QuickAdd(const Number& a, const Number& b) {
    Number sum = a;
    Accumulate(sum, b.high, b.low);
    return Normalised(sum);
}

/// The point and what depends on it alone.
template <typename Number>
struct PlaceOf {
    Number z;
    Number w;
    Number odds;      // z/w
    Number evens;     // w/z
    Number inverse;   // 1/w
    Number inverseZ;  // 1/z
};

using Place = PlaceOf<DoubleDouble>;

[[nodiscard]] inline Place PlaceAt(DoubleDouble z, DoubleDouble w) {
    return {z, w, z / w, w / z, 1 / w, 1 / z};
}

/// A solution on its way: its value and its slope, z times the derivative.
template <typename Number>
struct Column {
    Number value;
    Number slope;
};

/// A linear map of value and slope.
template <typename Plain>
struct MapOf {
    Plain valueOfValue;
    Plain valueOfSlope;
    Plain slopeOfValue;
    Plain slopeOfSlope;
};

/// A step as its error analysis sees it, in plain arithmetic. What rounding adds to the value and
/// the slope that it takes is at most kStepError times `bound` times their magnitudes.
template <typename Plain>
struct TraceOf {
    MapOf<Plain> map;
    MapOf<Plain> bound;  // the map composed of magnitudes
    Plain determinant;
};

/// 256 u^2, u = 2^-53. In the longest step eight operations of at most 32 u^2 each follow each
/// other, the rounding of z and of what depends on it included.
inline constexpr double kStepError = 0x1p-98;

template <typename Number, std::size_t count>
struct WalkerOf {
    std::array<Number, 3> p;  // a, b and c
    std::array<Column<Number>, count> columns;
};

template <typename Number>
using PlainOf = decltype(Number::high);

/// a + 1 in place of a, which is p[own], 0 or 1.
template <std::size_t own, typename Number, std::size_t count>
[[nodiscard]] TraceOf<PlainOf<Number>> Raise(WalkerOf<Number, count>& at,
                                             const PlaceOf<Number>& place) {
    using Plain = PlainOf<Number>;
    const Number a = at.p[own];
    const Number inverse = Reciprocal(a);
    const Number next = a + 1;
    const Number ofRise = LooseProduct(Difference(next, at.p[2]), place.inverse);
    const Number ofValue = LooseProduct(at.p[1 - own], place.odds);
    for (Column<Number>& column : at.columns) {
        const Number rise = LooseProduct(column.slope, inverse);
        column.value = QuickAdd(column.value, rise);
        column.slope = SumOfProducts(ofRise, rise, ofValue, column.value);
    }
    at.p[own] = next;
    const Plain one = Plain{} + 1.0;
    const Plain all = Magnitude(ofRise.high) + Magnitude(ofValue.high);
    return {{one, inverse.high, ofValue.high, (ofRise.high + ofValue.high) * inverse.high},
            {one, Magnitude(inverse.high), Magnitude(ofValue.high), all * Magnitude(inverse.high)},
            ofRise.high * inverse.high};
}

/// a - 1 in place of a.
template <std::size_t own, typename Number, std::size_t count>
[[nodiscard]] TraceOf<PlainOf<Number>> Lower(WalkerOf<Number, count>& at,
                                             const PlaceOf<Number>& place) {
    const Number a = at.p[own];
    const Number inverse = Reciprocal(Difference(at.p[2], a));
    const Number ofSlope = LooseProduct(place.w, inverse);
    const Number ofValue = LooseProduct(LooseProduct(-at.p[1 - own], place.z), inverse);
    const Number before = -a + 1;
    for (Column<Number>& column : at.columns) {
        const Number rise = SumOfProducts(ofSlope, column.slope, ofValue, column.value);
        column.value = QuickAdd(column.value, rise);
        column.slope = LooseProduct(before, rise);
    }
    at.p[own] = a - 1;
    const PlainOf<Number> size = Magnitude(before.high);
    const PlainOf<Number> sizeOfSlope = Magnitude(ofSlope.high);
    const PlainOf<Number> sizeOfValue = Magnitude(ofValue.high);
    return {
        {1 + ofValue.high, ofSlope.high, before.high * ofValue.high, before.high * ofSlope.high},
        {1 + sizeOfValue, sizeOfSlope, size * sizeOfValue, size * sizeOfSlope},
        before.high * ofSlope.high};
}

/// c + 1 in place of c.
template <typename Number, std::size_t count>
[[nodiscard]] TraceOf<PlainOf<Number>> RaiseThird(WalkerOf<Number, count>& at,
                                                  const PlaceOf<Number>& place) {
    const Number c = at.p[2];
    const Number fromA = Difference(c, at.p[0]);
    const Number fromB = Difference(c, at.p[1]);
    const Number factor = LooseProduct(c, Reciprocal(LooseProduct(fromA, fromB)));
    const Number ofSlope = LooseProduct(factor, place.evens);
    const Number ofValue = LooseProduct(factor, Difference(fromA, at.p[1]));
    for (Column<Number>& column : at.columns) {
        const Number value = SumOfProducts(ofSlope, column.slope, ofValue, column.value);
        column.slope = LooseProduct(c, QuickAdd(column.value, -value));
        column.value = value;
    }
    at.p[2] = c + 1;
    const PlainOf<Number> size = Magnitude(c.high);
    const PlainOf<Number> sizeOfSlope = Magnitude(ofSlope.high);
    const PlainOf<Number> sizeOfValue = Magnitude(ofValue.high);
    return {{ofValue.high, ofSlope.high, c.high * (1 - ofValue.high), -c.high * ofSlope.high},
            {sizeOfValue, sizeOfSlope, size * (1 + sizeOfValue), size * sizeOfSlope},
            -c.high * ofSlope.high};
}

/// c - 1 in place of c.
template <typename Number, std::size_t count>
[[nodiscard]] TraceOf<PlainOf<Number>> LowerThird(WalkerOf<Number, count>& at,
                                                  const PlaceOf<Number>& place) {
    using Plain = PlainOf<Number>;
    const Number c = at.p[2] - 1;
    const Number inverse = Reciprocal(c);
    const Number fromA = Difference(c, at.p[0]);
    const Number fromB = Difference(c, at.p[1]);
    const Number ofBefore =
        LooseProduct(LooseProduct(LooseProduct(fromA, fromB), inverse), place.odds);
    const Number ofValue = LooseProduct(Difference(at.p[1], fromA), place.odds);
    for (Column<Number>& column : at.columns) {
        const Number value = QuickAdd(column.value, LooseProduct(column.slope, inverse));
        column.slope = SumOfProducts(ofBefore, column.value, ofValue, value);
        column.value = value;
    }
    at.p[2] = c;
    const Plain one = Plain{} + 1.0;
    const Plain sizeOfValue = Magnitude(ofValue.high);
    const Plain size = Magnitude(inverse.high);
    return {{one, inverse.high, ofBefore.high + ofValue.high, ofValue.high * inverse.high},
            {one, size, Magnitude(ofBefore.high) + sizeOfValue, sizeOfValue * size},
            -ofBefore.high * inverse.high};
}

/// One step of the parameter p[track] that raises or lowers s = c-a-b.
template <typename Number, std::size_t count>
[[nodiscard]] TraceOf<PlainOf<Number>> TakeStep(WalkerOf<Number, count>& at, std::size_t track,
                                                bool raises, const PlaceOf<Number>& place) {
    if (track == 2) return raises ? RaiseThird(at, place) : LowerThird(at, place);
    if (track == 0) return raises ? Lower<0>(at, place) : Raise<0>(at, place);
    return raises ? Lower<1>(at, place) : Raise<1>(at, place);
}

}  // namespace kalvex::specfun
