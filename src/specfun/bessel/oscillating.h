// Bessel functions J and Y of finite orders from 0 and finite x > 0.
#pragma once

#include "specfun/bessel/common.h"

namespace kalvex::specfun {

/// Recurrences below this order, except where IsFarBeyond says that the expansions for large orders
/// have all digits.
inline constexpr double kRecurrenceEnd = 100;

Scaled OscillatingJ(double order, double x);
Scaled OscillatingY(double order, double x);

/// ofJ J + ofY Y for coefficients of at most 1.
Scaled OscillatingSum(double order, double x, DoubleDouble ofJ, DoubleDouble ofY);

/// Whether x is so far above the order, as large as that may be or 0, that the expansions for large
/// orders have all digits.
bool IsFarBeyond(double order, double x);

/// J and Y of orders from kRecurrenceEnd, or where IsFarBeyond.
Scaled LargeOrderJ(double order, double x);
Scaled LargeOrderY(double order, double x);

/// J and Y of an order in -1/2..1/2 and of the next, and J some steps of the order higher.
struct LowOrders {
    OrderPair j;
    OrderPair y;
    DoubleDouble higherJ;
};

/// Y of an order in -1/2..1/2 and of the next, by Neumann series; x up to 2.
OrderPair LowYNear(double part, double x, const Step& step);

/// By Steed's method, the pairs without a power; x from 1 to 64, steps up to x^2/4.
LowOrders LowOrdersMiddle(double part, double x, int steps);

/// By Hankel's expansion, higherJ is 0; x from 22.
LowOrders LowOrdersFar(double part, double x);

}  // namespace kalvex::specfun
