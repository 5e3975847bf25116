// Bessel functions J and Y of orders 0 to MaxOrder and finite x > 0.
#pragma once

#include "specfun/bessel_common.h"

namespace kalvex::specfun {

/// J of the order; zero where even the extended format underflows.
Extended OscillatingJ(double order, Extended x);

/// Y of the order; minus infinity where even the extended format overflows.
Extended OscillatingY(double order, Extended x);

/// J and Y of an order in -1/2..1/2 and of the next.
struct LowOrders {
    OrderPair j;
    OrderPair y;
};

/// The same by Neumann series: x up to some 25, best below 8. Where wanted is not null and
/// wantedSteps >= 0, it receives J of the order part + wantedSteps as well.
LowOrders LowOrdersNear(Extended part, Extended x, int wantedSteps, Extended* wanted);

/// The same by the confluent hypergeometric recurrence: x from 5.
LowOrders LowOrdersFar(Extended part, Extended x);

}  // namespace kalvex::specfun
