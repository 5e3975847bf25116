// Y by recurrence upward from an order within 1/2 of 0, which is stable always. J likewise while
// the order stays below x. Beyond, J is the vanishing solution: its power series where that does
// not cancel, else the Wronskian with Y and the ratio of two neighbouring J; for small x all comes
// out of one recurrence downward.
#include "specfun/bessel_oscillating.h"

#include <cmath>
#include <numbers>

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

/// From here the confluent recurrence is the quicker one, for Y or both and for J alone.
constexpr Extended kFar = 11;
constexpr Extended kFarJ = 18;

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

/// J by the Wronskian, for orders from x.
Extended WronskianJ(double order, Extended x, OrderPair y) {
    if (!std::isfinite(y.next)) return 0;
    return 2 / (kPi * x) / (RatioOfVanishing(order, x, 1) * y.at - y.next);
}

}  // namespace

Extended OscillatingJ(double order, Extended x) {
    const Extended quarter = x * x / 4;
    if (quarter <= order + Extended{1}) return SeriesJ(order, quarter, x);
    const SplitOrder split = Split(order);
    if (x < kFarJ) return HigherJNear(split.part, x, split.whole);
    const LowOrders low = LowOrdersFar(split.part, x);
    if (order <= x) return Upward(low.j, split, x).at;
    return WronskianJ(order, x, Upward(low.y, split, x));
}

Extended OscillatingY(double order, Extended x) {
    const SplitOrder split = Split(order);
    const LowOrders low = x < kFar ? LowOrdersNear(split.part, x, 0) : LowOrdersFar(split.part, x);
    return Upward(low.y, split, x).at;
}

OscillatingPair Oscillating(double order, Extended x) {
    const Extended quarter = x * x / 4;
    const SplitOrder split = Split(order);
    const bool series = quarter <= order + Extended{1};
    const bool near = x < kFar;
    const LowOrders low =
        near ? LowOrdersNear(split.part, x, series ? 0 : split.whole) : LowOrdersFar(split.part, x);
    const OrderPair y = Upward(low.y, split, x);
    if (series) return {SeriesJ(order, quarter, x), y.at};
    if (near) return {low.higherJ, y.at};
    if (order <= x) return {Upward(low.j, split, x).at, y.at};
    return {WronskianJ(order, x, y), y.at};
}

}  // namespace kalvex::specfun
