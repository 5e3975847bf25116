// Y by recurrence upward from an order within 1/2 of 0, which is stable always. J likewise while
// the order stays below x. Beyond, J is the vanishing solution: its power series where that does
// not cancel, else the Wronskian with Y and the ratio of two neighbouring J; for small x all comes
// out of one recurrence downward.
#include "specfun/bessel_oscillating.h"

#include <cmath>
#include <numbers>

#include "base/truncate.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

/// From here the confluent recurrence is the quicker one.
constexpr Extended kFar = 7;

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

}  // namespace

Extended OscillatingJ(double order, Extended x) {
    const Extended quarter = x * x / 4;
    if (quarter <= order + Extended{1}) {
        const Extended factor = LeadingFactor(order, x);
        return factor == 0 ? 0 : factor * PowerSeries(order, -quarter);
    }
    const SplitOrder split = Split(order);
    if (x < kFar) {
        Extended wanted = 0;
        LowOrdersNear(split.part, x, split.whole, &wanted);
        return wanted;
    }
    const LowOrders low = LowOrdersFar(split.part, x);
    if (order <= x) return Upward(low.j, split, x).at;
    const OrderPair y = Upward(low.y, split, x);
    if (!std::isfinite(y.next)) return 0;
    return 2 / (kPi * x) / (RatioOfVanishing(order, x, 1) * y.at - y.next);
}

Extended OscillatingY(double order, Extended x) {
    const SplitOrder split = Split(order);
    const LowOrders low =
        x < kFar ? LowOrdersNear(split.part, x, -1, nullptr) : LowOrdersFar(split.part, x);
    return Upward(low.y, split, x).at;
}

}  // namespace kalvex::specfun
