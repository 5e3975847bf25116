// All from orders 0 and 1 of the library by f(k+1) = 2k/x f(k) -+ f(k-1). Upward the recurrence is
// stable for Y and K always, and for J while the order stays below x. Beyond, J is the vanishing
// solution: it is recurred downward from an order so high that its value there does not matter,
// and scaled by J(0) + 2 J(2) + 2 J(4) + ... = 1; or, for x small against the order, summed by its
// power series.
#include "specfun/integer_bessel.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "specfun/library_call.h"

namespace kalvex::specfun {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// (x/2)^n/n! (1 - q/(n+1) + q^2/(2(n+1)(n+2)) - ...) with q = x^2/4 <= (n+1)/4, so the terms
/// alternate and fall by at least 4.
double PowerSeriesJ(int n, double x) {
    double factor = 1;
    for (int k = 1; k <= n && factor != 0; ++k)
        factor *= x / 2 / k;
    const double q = x * x / 4;
    double sum = 1;
    double term = 1;
    for (int k = 1; std::fabs(term) > 1e-18; ++k) {
        term *= -q / k / (n + k);
        sum += term;
    }
    return factor * sum;
}

double UpwardJ(int n, double x) {
    double before = alglib::besselj0(x);
    double current = alglib::besselj1(x);
    for (int k = 1; k < n; ++k) {
        const double next = 2 * k / x * current - before;
        before = current;
        current = next;
    }
    return current;
}

/// x between sqrt(n+1) and n. The start is even and sqrt(160 n) above the order, where J has
/// fallen by more than sixteen digits.
double DownwardJ(int n, double x) {
    const int start = 2 * ((n + 32 + static_cast<int>(std::sqrt(160.0 * n))) / 2);
    constexpr double kTooLarge = 1e200;
    double above = 0;
    double current = 1;
    double wanted = 0;
    double sum = 0;
    for (int k = start; k > 0; --k) {
        const double below = 2 * k / x * current - above;
        above = current;
        current = below;
        if (std::fabs(current) > kTooLarge) {
            current /= kTooLarge;
            above /= kTooLarge;
            wanted /= kTooLarge;
            sum /= kTooLarge;
        }
        if (k - 1 == n) wanted = current;
        if ((k - 1) % 2 == 0 && k > 1) sum += 2 * current;
    }
    return wanted / (sum + current);
}

/// Below the least argument for which the library's logarithm of a square is in range.
constexpr double kTiny = 1e-300;

double SmallestK0(double x) {
    return std::numbers::ln2 - std::numbers::egamma - std::log(x);
}

}  // namespace

double IntegerBesselJ(int n, double x) {
    return FromLibrary([n, x] {
        if (n == 0) return alglib::besselj0(x);
        if (n == 1) return x < kTiny ? x / 2 : alglib::besselj1(x);
        if (x * x <= n + 1) return PowerSeriesJ(n, x);
        return n <= x ? UpwardJ(n, x) : DownwardJ(n, x);
    });
}

double IntegerBesselY(int n, double x) {
    return FromLibrary([n, x] {
        double before = alglib::bessely0(x);
        if (n == 0) return before;
        double current = x < kTiny ? -2 / std::numbers::pi / x : alglib::bessely1(x);
        for (int k = 1; k < n; ++k) {
            const double next = 2 * k / x * current - before;
            if (!std::isfinite(next)) return -kInfinity;
            before = current;
            current = next;
        }
        return current;
    });
}

double IntegerBesselK(int n, double x) {
    const double result = FromLibrary([n, x] {
        double before = x < kTiny ? SmallestK0(x) : alglib::besselk0(x);
        if (n == 0) return before;
        double current = x < kTiny ? 1 / x : alglib::besselk1(x);
        for (int k = 1; k < n && std::isfinite(current); ++k) {
            const double next = 2 * k / x * current + before;
            before = current;
            current = next;
        }
        return current;
    });
    if (!std::isfinite(result)) throw ap::ap_error{"Overflow in BesselKN"};
    return result;
}

}  // namespace kalvex::specfun
