// Y by recurrence upward from an order within 1/2 of 0, which is always stable. J likewise while
// the order stays below x. Beyond that J is the minimal solution. There J comes from its power
// series where that does not cancel; otherwise from the recurrence downward, started above the
// wanted order, or for large x from the Wronskian with Y and the ratio of two neighbouring J. The
// expansions for large orders, in large_orders.cpp, take over where they give all digits.
#include "specfun/bessel/oscillating.h"

#include <cmath>

namespace kalvex::specfun {
namespace {

/// Up to this x Y comes from the Neumann series; J always comes from its power series there.
constexpr double kNear = 1.5;
/// From this x on Hankel's expansion is used.
constexpr double kFar = 22;
/// Below this x Y of an order above 1/2 equals its leading term.
constexpr double kLeading = 0x1p-500;
/// Up to this x Steed's method gives J of orders above x.
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

/// Whether the power series of J has no cancellation.
bool HasSeries(double order, double x) {
    return x / 2 * (x / 2) <= order + 1;
}

Scaled SeriesJ(double order, double x) {
    return LeadingFactor(order, x) * PowerSeries(order, -QuarterOf(x));
}

/// J by the Wronskian, for orders of x or more.
DoubleDouble WronskianJ(double order, double x, OrderPair y) {
    return LooseQuotient(LooseQuotient(2.0, kPi * x),
                         LooseDifference(RatioOfVanishing(order, x, 1) * y.at, y.next));
}

/// Y of orders above 1/2 for x below kLeading, from `next`, which is Y of the order part + 1. That
/// lies between 2^-537 and 2^537, and a factor of up to 99! is still to come. Its power of two is
/// kept separately, so that nothing overflows and no low part is denormal. Y of the order part is
/// below x^-1/2 and does not change a digit of the orders from part + 2 on.
Scaled LeadingY(DoubleDouble next, SplitOrder order, const Step& step) {
    int power = 0;
    std::frexp(next.high, &power);
    const OrderPair pair{{}, TimesPower(next, std::ldexp(1.0, -power))};
    return {Upward(pair, order, step, 1).at, step.exponent * order.whole + power};
}

/// The pair of the higher orders, from a pair without powers of two. x is kNear or more.
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
