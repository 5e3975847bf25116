// Bessel functions J and Y of orders 0 to MaxOrder and finite x > 0.
#pragma once

#include "specfun/bessel_common.h"

namespace kalvex::specfun {

/// Both functions at one order.
struct OscillatingPair {
    Extended j;  ///< zero where even the extended format underflows
    Extended y;  ///< minus infinity where even the extended format overflows
};

/// One of them alone; quicker.
Extended OscillatingJ(double order, Extended x);
Extended OscillatingY(double order, Extended x);

/// Both; where J underflows beyond use it may be zero.
OscillatingPair Oscillating(double order, Extended x);

/// J and Y of an order in -1/2..1/2 and of the next, and J some steps of the order higher.
struct LowOrders {
    OrderPair j;
    OrderPair y;
    Extended higherJ;
};

/// By Neumann series; x up to 20.
LowOrders LowOrdersNear(Extended part, Extended x, int steps);

/// The member higherJ of it alone.
Extended HigherJNear(Extended part, Extended x, int steps);

/// J and Y by the confluent hypergeometric recurrence, higherJ is 0; x from 5.
LowOrders LowOrdersFar(Extended part, Extended x);

}  // namespace kalvex::specfun
