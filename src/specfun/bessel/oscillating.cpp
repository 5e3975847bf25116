// Y by recurrence upward from an order within 1/2 of 0, which is stable always. J likewise while
// the order stays below x. Beyond, J is the vanishing solution: its power series where that does
// not cancel, else the recurrence downward that starts above the wanted order, or for large x the
// Wronskian with Y and the ratio of two neighbouring J. Expansions for large orders, which have a
// file of their own, take over where they have all digits.
#include "specfun/bessel/oscillating.h"

#include <cmath>
#include <numbers>

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

/// Up to here the Neumann series for Y; J is always its power series there.
constexpr Extended kNear = 1.5;
/// From here Hankel's expansion.
constexpr Extended kFar = 22;
/// Up to here Steed's method for J alone of orders above x.
constexpr Extended kMiddleEnd = 64;

/// The pair some steps of the order higher.
OrderPair Upward(OrderPair pair, SplitOrder order, Extended x) {
    const Extended scale = 2 / x;
    for (int k = 1; k <= order.whole && std::isfinite(pair.next); ++k) {
        const Extended above = scale * (order.part + k) * pair.next - pair.at;
        pair.at = pair.next;
        pair.next = above;
    }
    return pair;
}

Extended SeriesJ(double order, Extended quarter, Extended x) {
    const Extended factor = LeadingFactor(order, x);
    return factor == 0 ? 0 : factor * PowerSeries(order, -quarter);
}

/// Below this order a recurrence is as quick as an expansion.
constexpr double kFewSteps = 24;

bool HasExpansion(double order, Extended x) {
    return order >= kRecurrenceEnd || (order >= kFewSteps && IsFarBeyond(order, x));
}

/// J by the Wronskian, for orders from x.
Extended WronskianJ(double order, Extended x, OrderPair y) {
    if (!std::isfinite(y.next)) return 0;
    return 2 / (kPi * x) / (RatioOfVanishing(order, x, 1) * y.at - y.next);
}

/// a times b; zero whenever a is, b may be infinite.
Extended Weighted(Extended a, Extended b) {
    return a == 0 ? 0 : a * b;
}

}  // namespace

Extended OscillatingJ(double order, Extended x) {
    if (HasExpansion(order, x)) return LargeOrderJ(order, x);
    const Extended quarter = x * x / 4;
    if (quarter <= order + Extended{1}) return SeriesJ(order, quarter, x);
    const SplitOrder split = Split(order);
    if (x < kFar || (x < order && x < kMiddleEnd))
        return LowOrdersMiddle(split.part, x, split.whole).higherJ;
    const LowOrders low = LowOrdersFar(split.part, x);
    if (order <= x) return Upward(low.j, split, x).at;
    return WronskianJ(order, x, Upward(low.y, split, x));
}

Extended OscillatingY(double order, Extended x) {
    if (HasExpansion(order, x)) return LargeOrderY(order, x);
    const SplitOrder split = Split(order);
    if (x < kNear) return Upward(LowYNear(split.part, x), split, x).at;
    const LowOrders low =
        x < kFar ? LowOrdersMiddle(split.part, x, 0) : LowOrdersFar(split.part, x);
    return Upward(low.y, split, x).at;
}

Extended OscillatingSum(double order, Extended x, Extended ofJ, Extended ofY) {
    if (HasExpansion(order, x))
        return Weighted(ofJ, LargeOrderJ(order, x)) + Weighted(ofY, LargeOrderY(order, x));
    const Extended quarter = x * x / 4;
    if (quarter <= order + Extended{1}) {
        if (ofY == 0) return ofJ * SeriesJ(order, quarter, x);
        const Extended y = OscillatingY(order, x);
        const Extended main = ofY * y;
        // J is below 1/|Y| here.
        if (std::fabs(main * y) > 0x1p70L) return main;
        return main + Weighted(ofJ, SeriesJ(order, quarter, x));
    }
    const SplitOrder split = Split(order);
    const bool far = x >= kFar;
    const LowOrders low =
        far ? LowOrdersFar(split.part, x) : LowOrdersMiddle(split.part, x, split.whole);
    const OrderPair y = Upward(low.y, split, x);
    const Extended j = !far         ? low.higherJ
                       : order <= x ? Upward(low.j, split, x).at
                                    : WronskianJ(order, x, y);
    return Weighted(ofJ, j) + Weighted(ofY, y.at);
}

}  // namespace kalvex::specfun
