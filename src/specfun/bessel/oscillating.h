// Bessel functions J and Y of finite orders from 0 and finite x > 0.
#pragma once

#include "specfun/bessel/common.h"

namespace kalvex::specfun {

/// Below this order recurrences are used, except where IsFarBeyond says that the expansions for
/// large orders give all digits.
inline constexpr double kRecurrenceEnd = 100;

[[nodiscard]] Scaled OscillatingJ(double order, double x);
[[nodiscard]] Scaled OscillatingY(double order, double x);

/// ofJ J + ofY Y, for coefficients of magnitude 1 at most.
[[nodiscard]] Scaled OscillatingSum(double order, double x, DoubleDouble ofJ, DoubleDouble ofY);

/// Whether x is so far above the order that the expansions for large orders give all digits. The
/// order may have any value from 0 on.
[[nodiscard]] bool IsFarBeyond(double order, double x);

/// J and Y by the expansions for large orders: of orders from kRecurrenceEnd on, and where
/// IsFarBeyond.
[[nodiscard]] Scaled LargeOrderJ(double order, double x);
[[nodiscard]] Scaled LargeOrderY(double order, double x);

/// J and Y of an order in -1/2..1/2 and of the next order, and J of an order some steps higher.
struct LowOrders {
    OrderPair j;
    OrderPair y;
    DoubleDouble higherJ;
};

/// Y of an order in -1/2..1/2 and of the next order, by Neumann series. x is at most 2.
[[nodiscard]] OrderPair LowYNear(double part, double x, const Step& step);

/// By Steed's method. The pairs have no power of two. x is from 1 to 64, steps is at most x^2/4.
[[nodiscard]] LowOrders LowOrdersMiddle(double part, double x, int steps);

/// By Hankel's expansion. higherJ is 0. x is 22 or more.
[[nodiscard]] LowOrders LowOrdersFar(double part, double x);

}  // namespace kalvex::specfun
