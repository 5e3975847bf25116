// One step of 1 in a parameter of the Gauss hypergeometric function (DLMF 15.5.11 to 15.5.22, the
// contiguous relations): a linear map of the value and of z times the derivative. Internal to the
// special functions.
#pragma once

#include <array>
#include <cstddef>

#include "specfun/hypergeometric_lanes.h"
#include "specfun/hypergeometric_parts.h"

namespace kalvex::specfun {

inline DoubleDouble Reciprocal(DoubleDouble a) {
    const double high = 1 / a.high;
    const double rest = std::fma(-high, a.high, 1) - high * a.low;
    return {high, rest * high};
}

inline DoubleDouble Difference(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble highs = TwoSum(a.high, -b.high);
    return QuickTwoSum(highs.high, highs.low + (a.low - b.low));
}

// The functions below take numbers one by one (DoubleDouble) or four at once (LanesOf).

/// a b + c d; what is lost is measured against the greater product.
template <typename Number>
Number SumOfProducts(const Number& a, const Number& b, const Number& c, const Number& d) {
    Number sum = LooseProduct(a, b);
    const Number other = LooseProduct(c, d);
    Accumulate(sum, other.high, other.low);
    return sum;
}

template <typename Number>
Number QuickAdd(const Number& a, const Number& b) {
    Number sum = a;
    Accumulate(sum, b.high, b.low);
    return sum;
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

inline Place PlaceAt(DoubleDouble z, DoubleDouble w) {
    return {z, w, Divide(z, w), Divide(w, z), Divide({1, 0}, w), Divide({1, 0}, z)};
}

inline bool IsZero(double a) {
    return a == 0;
}

inline bool IsZero(const Four&) {
    return false;
}

/// A solution on its way, and another in plain arithmetic that takes the same steps: one that
/// started at right angles to it and shows how much what was rounded has grown since, or its own
/// twin, which shows what rounding does.
template <typename Number>
struct Column {
    using Plain = decltype(Number::high);
    Number value;
    Number slope;
    Plain companion = {};
    Plain companionSlope = {};
};

/// A walker with two columns carries twins, and one term of each of their sums is off by this
/// factor: so they tell of rounding even where plain arithmetic happens to be exact.
inline constexpr double kTwinOffset = 0x1p-40;

template <typename Number, std::size_t count>
struct WalkerOf {
    static constexpr double kOff = count == 2 ? 1 + kTwinOffset : 1;
    std::array<Number, 3> p;  // a, b and c
    std::array<Column<Number>, count> columns;
    bool collapsed = false;  // the last step left one solution only; not told of lanes
};

/// What is done to each column; the columns are counted out, so that they stay in registers.
template <typename Number, std::size_t count, typename Function>
void ForEachColumn(WalkerOf<Number, count>& at, const Function& function) {
    function(at.columns[0]);
    if constexpr (count > 1) function(at.columns[1]);
}

/// a + 1 in place of a, which is p[own], 0 or 1.
template <std::size_t own, typename Number, std::size_t count>
void Raise(WalkerOf<Number, count>& at, const PlaceOf<Number>& place) {
    const Number a = at.p[own];
    const Number inverse = Reciprocal(a);
    const Number next = PlusInteger(a, 1);
    const Number ofRise = LooseProduct(Difference(next, at.p[2]), place.inverse);
    const Number ofValue = LooseProduct(at.p[1 - own], place.odds);
    ForEachColumn(at, [&](Column<Number>& column) {
        const Number rise = LooseProduct(column.slope, inverse);
        column.value = QuickAdd(column.value, rise);
        column.slope = SumOfProducts(ofRise, rise, ofValue, column.value);
        const auto companionRise = column.companionSlope * inverse.high * at.kOff;
        column.companion += companionRise;
        column.companionSlope =
            ofRise.high * companionRise * at.kOff + ofValue.high * column.companion;
    });
    at.collapsed = IsZero(ofRise.high);
    at.p[own] = next;
}

/// a - 1 in place of a.
template <std::size_t own, typename Number, std::size_t count>
void Lower(WalkerOf<Number, count>& at, const PlaceOf<Number>& place) {
    const Number a = at.p[own];
    const Number inverse = Reciprocal(Difference(at.p[2], a));
    const Number ofSlope = LooseProduct(place.w, inverse);
    const Number ofValue = LooseProduct(LooseProduct(Negate(at.p[1 - own]), place.z), inverse);
    const Number before = PlusInteger(Negate(a), 1);
    ForEachColumn(at, [&](Column<Number>& column) {
        const Number rise = SumOfProducts(ofSlope, column.slope, ofValue, column.value);
        column.value = QuickAdd(column.value, rise);
        column.slope = LooseProduct(before, rise);
        const auto companionRise =
            ofSlope.high * column.companionSlope * at.kOff + ofValue.high * column.companion;
        column.companion = column.companion * at.kOff + companionRise;
        column.companionSlope = before.high * companionRise;
    });
    at.collapsed = IsZero(before.high);
    at.p[own] = PlusInteger(a, -1);
}

/// c + 1 in place of c.
template <typename Number, std::size_t count>
void RaiseThird(WalkerOf<Number, count>& at, const PlaceOf<Number>& place) {
    const Number c = at.p[2];
    const Number fromA = Difference(c, at.p[0]);
    const Number fromB = Difference(c, at.p[1]);
    const Number factor = LooseProduct(c, Reciprocal(LooseProduct(fromA, fromB)));
    const Number ofSlope = LooseProduct(factor, place.evens);
    const Number ofValue = LooseProduct(factor, Difference(fromA, at.p[1]));
    ForEachColumn(at, [&](Column<Number>& column) {
        const Number value = SumOfProducts(ofSlope, column.slope, ofValue, column.value);
        column.slope = LooseProduct(c, QuickAdd(column.value, Negate(value)));
        column.value = value;
        const auto companion =
            ofSlope.high * column.companionSlope * at.kOff + ofValue.high * column.companion;
        column.companionSlope = c.high * (column.companion * at.kOff - companion);
        column.companion = companion;
    });
    at.p[2] = PlusInteger(c, 1);
}

/// c - 1 in place of c.
template <typename Number, std::size_t count>
void LowerThird(WalkerOf<Number, count>& at, const PlaceOf<Number>& place) {
    const Number c = PlusInteger(at.p[2], -1);
    const Number inverse = Reciprocal(c);
    const Number fromA = Difference(c, at.p[0]);
    const Number fromB = Difference(c, at.p[1]);
    const Number ofBefore =
        LooseProduct(LooseProduct(LooseProduct(fromA, fromB), inverse), place.odds);
    const Number ofValue = LooseProduct(Difference(at.p[1], fromA), place.odds);
    ForEachColumn(at, [&](Column<Number>& column) {
        const Number value = QuickAdd(column.value, LooseProduct(column.slope, inverse));
        column.slope = SumOfProducts(ofBefore, column.value, ofValue, value);
        column.value = value;
        const auto companion = column.companion + column.companionSlope * inverse.high * at.kOff;
        column.companionSlope =
            ofBefore.high * column.companion * at.kOff + ofValue.high * companion;
        column.companion = companion;
    });
    at.collapsed = IsZero(ofBefore.high);
    at.p[2] = c;
}

/// One step of the parameter p[track] that raises or lowers s = c-a-b.
template <typename Number, std::size_t count>
void TakeStep(WalkerOf<Number, count>& at, std::size_t track, bool raises,
              const PlaceOf<Number>& place) {
    if (track == 2) {
        raises ? RaiseThird(at, place) : LowerThird(at, place);
    } else if (track == 0) {
        raises ? Lower<0>(at, place) : Raise<0>(at, place);
    } else {
        raises ? Lower<1>(at, place) : Raise<1>(at, place);
    }
}

/// Parameters of the same fractions next to 0, c-a-b between -1/2 and 1/2, c, c-a and c-b positive.
HypergeometricParameters GeneralStart(const HypergeometricParameters& p);

/// For an integer a from 0 down: where the polynomial has three terms at most, c-b has the sign it
/// will have if it is an integer, and c-a-b is not below -1/2.
HypergeometricParameters PolynomialStart(const HypergeometricParameters& p);

/// Value and slope at such parameters.
HypergeometricPoint AtStart(const HypergeometricParameters& p, const Place& place);

}  // namespace kalvex::specfun
