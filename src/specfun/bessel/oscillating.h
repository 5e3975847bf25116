// Bessel functions J and Y of finite orders from 0 and finite x > 0.
#pragma once

#include "specfun/bessel/common.h"

namespace kalvex::specfun {

/// Recurrences below this order, except where IsFarBeyond says that the expansions for large orders
/// have all digits.
inline constexpr double kRecurrenceEnd = 100;

Extended OscillatingJ(double order, Extended x);

/// Minus infinity where even the extended format overflows.
Extended OscillatingY(double order, Extended x);

/// ofJ J + ofY Y for coefficients of at most 1.
Extended OscillatingSum(double order, Extended x, Extended ofJ, Extended ofY);

/// Whether x is so far above the order, as large as that may be or 0, that the expansions for large
/// orders have all digits.
bool IsFarBeyond(double order, Extended x);

/// J and Y of orders from kRecurrenceEnd, or where IsFarBeyond. Zero and minus infinity where the
/// extended format underflows and overflows.
Extended LargeOrderJ(double order, Extended x);
Extended LargeOrderY(double order, Extended x);

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
