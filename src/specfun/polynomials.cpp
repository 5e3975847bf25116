// The library's three-term recurrences. A step that overflows makes the next ones subtract
// infinities; a result that is not finite is therefore reported as an overflow.
#include <cmath>
#include <string>

#include "base/truncate.h"
#include "specfun/library_call.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// An integral degree within the bounds; throws for any other.
alglib::ae_int_t Degree(double degree, double least, const std::string& name) {
    if (!std::isfinite(degree) || std::floor(degree) != degree || degree < least) {
        throw ap::ap_error{"Domain error in " + name};
    }
    if (std::fabs(degree) > MaxOrder) throw ap::ap_error{name + ": the degree is too large"};
    return TruncateToInt32(degree);
}

template <typename Call>
double Finite(const std::string& name, double x, const Call& call) {
    if (std::isnan(x)) return x;
    const double value = FromLibrary(call);
    if (!std::isfinite(value)) throw ap::ap_error{"Overflow in " + name};
    return value;
}

double FirstKind(alglib::ae_int_t n, double x) {
    return alglib::chebyshevcalculate(1, n < 0 ? -n : n, x);
}

double SecondKind(alglib::ae_int_t n, double x) {
    if (n == -1) return 0;
    return n < 0 ? -alglib::chebyshevcalculate(2, -n - 2, x) : alglib::chebyshevcalculate(2, n, x);
}

}  // namespace

double Chebyshev(int kind, double degree, double x) {
    const alglib::ae_int_t n = Degree(degree, -INFINITY, "Chebyshev");
    if (kind != 1 && kind != 2) throw ap::ap_error{"Domain error in Chebyshev"};
    return Finite("Chebyshev", x, [=] { return kind == 1 ? FirstKind(n, x) : SecondKind(n, x); });
}

double Hermite(double degree, double x) {
    const alglib::ae_int_t n = Degree(degree, 0, "Hermite");
    return Finite("Hermite", x, [=] { return alglib::hermitecalculate(n, x); });
}

double Laguerre(double degree, double x) {
    const alglib::ae_int_t n = Degree(degree, 0, "Laguerre");
    return Finite("Laguerre", x, [=] { return alglib::laguerrecalculate(n, x); });
}

double Legendre(double degree, double x) {
    const alglib::ae_int_t n = Degree(degree, 0, "Legendre");
    return Finite("Legendre", x, [=] { return alglib::legendrecalculate(n, x); });
}

}  // namespace kalvex::specfun
