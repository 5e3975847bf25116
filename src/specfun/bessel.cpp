// Reduces each Bessel function to a positive integral order and a positive finite argument by its
// symmetries and limits.
#include <cmath>
#include <limits>
#include <string>

#include "base/truncate.h"
#include "specfun/integer_bessel.h"
#include "specfun/library_call.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// The magnitude of an integral order; throws for any other.
int OrderMagnitude(double order, const char* name) {
    if (!std::isfinite(order) || std::floor(order) != order) {
        throw ap::ap_error{std::string(name) + ": no routine for an order that is not integral"};
    }
    if (std::fabs(order) > MaxOrder) {
        throw ap::ap_error{std::string(name) + ": the order is too large"};
    }
    return TruncateToInt32(std::fabs(order));
}

/// (-1)^n when the function is reflected, else 1.
double ReflectionSign(int n, bool reflected) {
    return reflected && n % 2 != 0 ? -1.0 : 1.0;
}

}  // namespace

double BesselJ(double order, double x) {
    if (std::isnan(x)) return x;
    const int n = OrderMagnitude(order, "BesselJ");
    if (x == 0) return n == 0 ? 1 : 0;
    if (std::isinf(x)) return 0;
    const bool reflected = (order < 0) != (x < 0);
    return ReflectionSign(n, reflected) * IntegerBesselJ(n, std::fabs(x));
}

double BesselY(double order, double x) {
    if (std::isnan(x)) return x;
    const int n = OrderMagnitude(order, "BesselY");
    if (x <= 0) throw ap::ap_error{"Domain error in BesselY"};
    if (std::isinf(x)) return 0;
    return ReflectionSign(n, order < 0) * IntegerBesselY(n, x);
}

double BesselK(double order, double x) {
    if (std::isnan(x)) return x;
    const int n = OrderMagnitude(order, "BesselK");
    if (x <= 0) throw ap::ap_error{"Domain error in BesselKN"};
    if (std::isinf(x)) return 0;
    return IntegerBesselK(n, x);
}

double BesselI(double order, double x) {
    if (std::isnan(x)) return x;
    const int n = OrderMagnitude(order, "BesselI");
    if (n > 1) throw ap::ap_error{"BesselI: no routine for this order"};
    if (std::isinf(x)) return n == 0 ? std::numeric_limits<double>::infinity() : x;
    return FromLibrary([n, x] { return n == 0 ? alglib::besseli0(x) : alglib::besseli1(x); });
}

}  // namespace kalvex::specfun
