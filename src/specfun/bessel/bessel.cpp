// Reduces each Bessel function to an order from 0 and a positive finite argument by its symmetries
// and limits. Sine and cosine of the order times pi come from its exact fraction, and a function
// whose coefficient is zero is left out, so that integral and half-integral orders lose nothing.
#include <cmath>
#include <limits>
#include <string>

#include "specfun/bessel/modified.h"
#include "specfun/bessel/oscillating.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

/// Throws for an order that is out of range or not a number.
void CheckOrder(double order, double most, const char* name) {
    if (!(std::fabs(order) <= most)) {
        throw ap::ap_error{std::string(name) + ": the order is too large"};
    }
}

bool IsIntegral(double order) {
    return std::floor(order) == order;
}

bool IsOdd(double order) {
    return std::fmod(order, 2.0) != 0;
}

/// The value as a double; throws where it overflows.
double Finite(Scaled value, const char* message) {
    const double result = ToDouble(value);
    if (!(std::fabs(result) <= kLargest)) throw ap::ap_error{message};
    return result;
}

/// J of the order -order, order > 0 not integral, x > 0.
Scaled ReflectedJ(double order, double x) {
    const auto [cosine, sine] = CosineSinePi({std::fmod(order, 2.0), 0});
    return OscillatingSum(order, x, cosine, -sine);
}

/// Y of the order -order, order > 0, x > 0.
Scaled ReflectedY(double order, double x) {
    const auto [cosine, sine] = CosineSinePi({std::fmod(order, 2.0), 0});
    return OscillatingSum(order, x, sine, cosine);
}

}  // namespace

double BesselJ(double order, double x) {
    if (std::isnan(x)) return x;
    CheckOrder(order, kLargest, "BesselJ");
    const bool integral = IsIntegral(order);
    if (x < 0 && !integral) throw ap::ap_error{"Domain error in BesselJV"};
    if (std::isinf(x)) return 0;
    const double n = std::fabs(order);
    if (x == 0) {
        if (order < 0 && !integral) throw ap::ap_error{"Overflow in BesselJV"};
        return order == 0 ? 1 : 0;
    }
    if (order < 0 && !integral) return Finite(ReflectedJ(n, x), "Overflow in BesselJV");
    const double value = ToDouble(OscillatingJ(n, std::fabs(x)));
    return integral && IsOdd(n) && (order < 0) != (x < 0) ? -value : value;
}

double BesselY(double order, double x) {
    if (std::isnan(x)) return x;
    CheckOrder(order, kLargest, "BesselY");
    if (x <= 0) throw ap::ap_error{"Domain error in BesselY"};
    if (std::isinf(x)) return 0;
    return ToDouble(order < 0 ? ReflectedY(-order, x) : OscillatingY(order, x));
}

double BesselK(double order, double x) {
    if (std::isnan(x)) return x;
    CheckOrder(order, MaxModifiedOrder, "BesselK");
    if (x <= 0) throw ap::ap_error{"Domain error in BesselKN"};
    if (std::isinf(x)) return 0;
    return Finite(ModifiedK(std::fabs(order), x), "Overflow in BesselKN");
}

double BesselI(double order, double x) {
    if (std::isnan(x)) return x;
    CheckOrder(order, MaxModifiedOrder, "BesselI");
    if (!IsIntegral(order) && (order < 0 || x < 0)) throw ap::ap_error{"Domain error in BesselIV"};
    const double n = std::fabs(order);
    const double sign = x < 0 && IsOdd(n) ? -1 : 1;
    if (x == 0) return n == 0 ? 1 : 0;
    if (std::isinf(x)) return sign * kInfinity;
    return sign * Finite(ModifiedI(n, std::fabs(x)), "Overflow in BesselIV");
}

}  // namespace kalvex::specfun
