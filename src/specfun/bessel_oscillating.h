// Bessel functions J and Y of orders 0 to MaxOrder and finite x > 0.
#pragma once

#include "specfun/bessel_common.h"

namespace kalvex::specfun {

Extended OscillatingJ(double order, Extended x);

/// Minus infinity where even the extended format overflows.
Extended OscillatingY(double order, Extended x);

/// ofJ J + ofY Y for coefficients of at most 1.
Extended OscillatingSum(double order, Extended x, Extended ofJ, Extended ofY);

/// J and Y of an order in -1/2..1/2 and of the next, and J some steps of the order higher.
struct LowOrders {
    OrderPair j;
    OrderPair y;
    Extended higherJ;
};

/// Y of an order in -1/2..1/2 and of the next, by Neumann series; x up to 2.
OrderPair LowYNear(Extended part, Extended x);

/// By Steed's method; x from 1 to 64, steps up to x^2/4.
LowOrders LowOrdersMiddle(Extended part, Extended x, int steps);

/// By Hankel's expansion, higherJ is 0; x from 22.
LowOrders LowOrdersFar(Extended part, Extended x);

}  // namespace kalvex::specfun
