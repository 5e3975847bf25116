// Y by recurrence upward from an order within 1/2 of 0, which is stable always. J likewise while
// the order stays below x. Beyond, J is the vanishing solution: its power series where that does
// not cancel, else the recurrence downward that starts above the wanted order, or for large x the
// Wronskian with Y and the ratio of two neighbouring J. Expansions for large orders, which have a
// file of their own, take over where they have all digits.
#include "specfun/bessel/oscillating.h"

#include <cmath>

namespace kalvex::specfun {
namespace {

/// Up to here the Neumann series for Y; J is always its power series there.
constexpr double kNear = 1.5;
/// From here Hankel's expansion.
constexpr double kFar = 22;
/// Below, Y of an order above 1/2 is its leading term.
constexpr double kLeading = 0x1p-500;
/// Up to here Steed's method for J alone of orders above x.
constexpr double kMiddleEnd = 64;
/// Below this order a recurrence is as quick as an expansion.
constexpr double kFewSteps = 24;

bool HasExpansion(double order, double x) {
    return order >= kRecurrenceEnd || (order >= kFewSteps && IsFarBeyond(order, x));
}

/// x^2/4.
DoubleDouble QuarterOf(double x) {
    return TwoProduct(x / 2, x / 2);
}

/// Whether the power series of J does not cancel.
bool HasSeries(double order, double x) {
    return x / 2 * (x / 2) <= order + 1;
}

Scaled SeriesJ(double order, double x) {
    return LeadingFactor(order, x) * PowerSeries(order, -QuarterOf(x));
}

/// J by the Wronskian, for orders from x.
DoubleDouble WronskianJ(double order, double x, OrderPair y) {
    return LooseQuotient(LooseQuotient(2.0, kPi * x),
                         LooseDifference(RatioOfVanishing(order, x, 1) * y.at, y.next));
}

/// Y of orders above 1/2 for x below kLeading, from Y at part + 1. That is between 2^-537 and 2^537
/// and a factor of up to 99! is to come: its power of two is kept apart, so that nothing overflows
/// and no low part is denormal. Y at part, below x^-1/2, changes no digit of the orders from
/// part + 2 on.
Scaled LeadingY(DoubleDouble next, SplitOrder order, const Step& step) {
    int power = 0;
    std::frexp(next.high, &power);
    const OrderPair pair{{}, TimesPower(next, std::ldexp(1.0, -power))};
    return {Upward(pair, order, step, 1).at, step.exponent * order.whole + power};
}

/// The orders above a pair without powers; x from kNear.
OrderPair UpwardFrom(OrderPair pair, SplitOrder order, double x) {
    const Step step = StepOf(x);
    pair.next = TimesPower(pair.next, std::ldexp(1.0, -step.exponent));
    const OrderPair above = Upward(pair, order, step, 1);
    return {TimesPower(above.at, std::ldexp(1.0, step.exponent * order.whole)),
            TimesPower(above.next, std::ldexp(1.0, step.exponent * (order.whole + 1)))};
}

}  // namespace

Scaled OscillatingJ(double order, double x) {
    if (HasExpansion(order, x)) return LargeOrderJ(order, x);
    if (HasSeries(order, x)) return SeriesJ(order, x);
    const SplitOrder split = Split(order);
    if (x < kFar || (x < order && x < kMiddleEnd))
        return {LowOrdersMiddle(split.part, x, split.whole).higherJ};
    const LowOrders low = LowOrdersFar(split.part, x);
    if (order <= x) return {UpwardFrom(low.j, split, x).at};
    return {WronskianJ(order, x, UpwardFrom(low.y, split, x))};
}

Scaled OscillatingY(double order, double x) {
    if (HasExpansion(order, x)) return LargeOrderY(order, x);
    const SplitOrder split = Split(order);
    if (x < kNear) {
        const Step step = StepOf(x);
        const OrderPair low = LowYNear(split.part, x, step);
        if (x < kLeading && split.whole > 0) return LeadingY(low.next, split, step);
        return {Upward(low, split, step, 1).at, step.exponent * split.whole};
    }
    const LowOrders low =
        x < kFar ? LowOrdersMiddle(split.part, x, 0) : LowOrdersFar(split.part, x);
    return {UpwardFrom(low.y, split, x).at};
}

Scaled OscillatingSum(double order, double x, DoubleDouble ofJ, DoubleDouble ofY) {
    if (HasExpansion(order, x))
        return Sum(LargeOrderJ(order, x) * ofJ, LargeOrderY(order, x) * ofY);
    if (HasSeries(order, x)) {
        if (ofY.high == 0) return SeriesJ(order, x) * ofJ;
        return Sum(OscillatingY(order, x) * ofY, SeriesJ(order, x) * ofJ);
    }
    const SplitOrder split = Split(order);
    const bool far = x >= kFar;
    const LowOrders low =
        far ? LowOrdersFar(split.part, x) : LowOrdersMiddle(split.part, x, split.whole);
    const OrderPair y = UpwardFrom(low.y, split, x);
    const DoubleDouble j = !far         ? low.higherJ
                           : order <= x ? UpwardFrom(low.j, split, x).at
                                        : WronskianJ(order, x, y);
    return {LooseSum(ofJ * j, ofY * y.at)};
}

}  // namespace kalvex::specfun
