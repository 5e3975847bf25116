// One step of 1 in a parameter of the Gauss hypergeometric function (DLMF 15.5.11 to 15.5.22, the
// contiguous relations): a linear map of the value and of z times the derivative. Internal to the
// special functions.
#pragma once

#include <array>
#include <cstddef>

#include "specfun/hypergeometric/lanes.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

inline DoubleDouble Reciprocal(DoubleDouble a) {
    const double high = 1 / a.high;
    const double rest = std::fma(-high, a.high, 1) - high * a.low;
    return {high, rest * high};
}

/// With all digits where the high parts cancel: the step divides by it.
inline DoubleDouble Difference(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble highs = TwoSum(a.high, -b.high);
    const DoubleDouble lows = TwoSum(a.low, -b.low);
    const DoubleDouble sum = QuickTwoSum(highs.high, highs.low + lows.high);
    return {sum.high, sum.low + lows.low};
}

// The functions below take numbers one by one (DoubleDouble) or four at once (LanesOf).

inline DoubleDouble Normalised(DoubleDouble a) {
    return QuickTwoSum(a.high, a.low);
}

template <typename Unit>
LanesOf<Unit> Normalised(const LanesOf<Unit>& a) {  // Accumulate has done it
    return a;
}

/// a b + c d; what is lost is measured against the greater product.
template <typename Number>
Number SumOfProducts(const Number& a, const Number& b, const Number& c, const Number& d) {
    Number sum = LooseProduct(a, b);
    const Number other = LooseProduct(c, d);
    Accumulate(sum, other.high, other.low);
    return Normalised(sum);
}

template <typename Number>
Number QuickAdd(const Number& a, const Number& b) {
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

inline Place PlaceAt(DoubleDouble z, DoubleDouble w) {
    return {z, w, Divide(z, w), Divide(w, z), Divide({1, 0}, w), Divide({1, 0}, z)};
}

/// A solution on its way, and its twin in plain arithmetic that takes the same steps, terms of
/// each sum off by about kTwinOffset: how far the two come apart tells what rounding does, even
/// where plain arithmetic happens to be exact.
template <typename Number>
struct Column {
    using Plain = decltype(Number::high);
    Number value;
    Number slope;
    Plain twin = {};
    Plain twinSlope = {};
};

inline constexpr double kTwinOffset = 0x1p-40;
inline constexpr double kTwinError = 0x1p-100 / kTwinOffset;  // of a column by that of its twin
inline constexpr double kOff = 1 + kTwinOffset;
inline constexpr double kLess = 1 - kTwinOffset * 0.75;

/// What terms of the twin are multiplied by: other numbers in every step, lest one step takes out
/// what another has put in, and every product by its own, for where all of a step but its last
/// digits depends on one number, what counts later is only what rounding did to the one product and
/// not to the other. For the same reason the two columns of a map have other offsets.
struct Offsets {
    double first = 0.5;  // between 0 and 1
    double second = 0.25;
    double off = 1;
    double less = 1;

    void Next() {
        constexpr double kGolden = 0.6180339887498949;
        constexpr double kSilver = 0.4142135623730951;
        first += kGolden - (first + kGolden >= 1 ? 1 : 0);
        second += kSilver - (second + kSilver >= 1 ? 1 : 0);
        off = 1 + kTwinOffset * (0.5 + first);
        less = 1 - kTwinOffset * (0.5 + second);
    }
};

template <typename Number, std::size_t count>
struct WalkerOf {
    std::array<Number, 3> p;  // a, b and c
    std::array<Column<Number>, count> columns;
    Offsets offsets;
};

/// What is done to each column with its own offsets; the columns are counted out, so that they stay
/// in registers.
template <typename Number, std::size_t count, typename Function>
void ForEachColumn(WalkerOf<Number, count>& at, const Function& function) {
    const Offsets& offsets = at.offsets;
    function(at.columns[0], offsets.off, offsets.less);
    if constexpr (count > 1) function(at.columns[1], offsets.less, offsets.off);
}

/// a + 1 in place of a, which is p[own], 0 or 1.
template <std::size_t own, typename Number, std::size_t count>
void Raise(WalkerOf<Number, count>& at, const PlaceOf<Number>& place) {
    const Number a = at.p[own];
    const Number inverse = Reciprocal(a);
    const Number next = PlusInteger(a, 1);
    const Number ofRise = LooseProduct(Difference(next, at.p[2]), place.inverse);
    const Number ofValue = LooseProduct(at.p[1 - own], place.odds);
    ForEachColumn(at, [&](Column<Number>& column, double off, double less) {
        const Number rise = LooseProduct(column.slope, inverse);
        column.value = QuickAdd(column.value, rise);
        column.slope = SumOfProducts(ofRise, rise, ofValue, column.value);
        const auto twinRise = column.twinSlope * inverse.high * off;
        column.twin = column.twin * less + twinRise;
        column.twinSlope = ofRise.high * twinRise * off + ofValue.high * column.twin * less;
    });
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
    ForEachColumn(at, [&](Column<Number>& column, double off, double less) {
        const Number rise = SumOfProducts(ofSlope, column.slope, ofValue, column.value);
        column.value = QuickAdd(column.value, rise);
        column.slope = LooseProduct(before, rise);
        const auto twinRise =
            ofSlope.high * column.twinSlope * off + ofValue.high * column.twin * less;
        column.twin = column.twin * off + twinRise;
        column.twinSlope = before.high * twinRise * less;
    });
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
    ForEachColumn(at, [&](Column<Number>& column, double off, double less) {
        const Number value = SumOfProducts(ofSlope, column.slope, ofValue, column.value);
        column.slope = LooseProduct(c, QuickAdd(column.value, Negate(value)));
        column.value = value;
        const auto twin = ofSlope.high * column.twinSlope * off + ofValue.high * column.twin * less;
        column.twinSlope = c.high * (column.twin * off - twin);
        column.twin = twin;
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
    ForEachColumn(at, [&](Column<Number>& column, double off, double less) {
        const Number value = QuickAdd(column.value, LooseProduct(column.slope, inverse));
        column.slope = SumOfProducts(ofBefore, column.value, ofValue, value);
        column.value = value;
        const auto twin = column.twin * less + column.twinSlope * inverse.high * off;
        column.twinSlope = ofBefore.high * column.twin * off + ofValue.high * twin * less;
        column.twin = twin;
    });
    at.p[2] = c;
}

/// One step of the parameter p[track] that raises or lowers s = c-a-b.
template <typename Number, std::size_t count>
void TakeStep(WalkerOf<Number, count>& at, std::size_t track, bool raises,
              const PlaceOf<Number>& place) {
    at.offsets.Next();
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
/// will have if it is next to an integer, and c-a-b is not below -1/2.
HypergeometricParameters PolynomialStart(const HypergeometricParameters& p);

/// Value and slope at such parameters, about `tolerance` times their size off.
HypergeometricPoint AtStart(const HypergeometricParameters& p, const Place& place,
                            double tolerance);

}  // namespace kalvex::specfun
