// Every function is one call of Arb (F. Johansson, "Arb: efficient arbitrary-precision
// midpoint-radius interval arithmetic", IEEE Trans. Comput. 66, 2017), whose result is an interval
// that holds the value. The precision is doubled until the interval is narrow enough. The condition
// number comes from a central difference; step and precision are chosen so that about ten of its
// digits are correct.
#include "accuracy/exact_value.h"

#if __has_include(<flint/arb_hypgeom.h>)
#include <flint/arb_hypgeom.h>
#else
#include <arb_hypgeom.h>
#endif

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kalvex::accuracy {
namespace {

constexpr slong kWantedBits = 118;
constexpr slong kFirstBits = 160;
constexpr slong kMostBits = 12000;

/// A ball of Arb that its destructor frees.
struct Ball {
    Ball() { arb_init(value); }
    explicit Ball(double number) : Ball() { arb_set_d(value, number); }
    Ball(const Ball& other) : Ball() { arb_set(value, other.value); }
    Ball& operator=(const Ball& other) {
        arb_set(value, other.value);
        return *this;
    }
    ~Ball() { arb_clear(value); }
    arb_t value;
};

using Balls = std::vector<Ball>;
using Compute = void (*)(Ball& result, const Balls& a, slong bits);

ulong Degree(const Ball& a) {
    return static_cast<ulong>(std::fabs(arf_get_d(arb_midref(a.value), ARF_RND_NEAR)));
}

bool IsNegative(const Ball& a) {
    return arf_sgn(arb_midref(a.value)) < 0;
}

/// |a|, for Ci and Chi, which are even; Arb has no real value for a negative x.
Ball Magnitude(const Ball& a) {
    Ball result;
    arb_abs(result.value, a.value);
    return result;
}

/// T(-n) = T(n), U(-n) = -U(n-2).
void ChebyshevBall(Ball& r, const Balls& a, slong bits) {
    const ulong n = Degree(a[1]);
    if (arb_is_one(a[0].value)) {
        arb_chebyshev_t_ui(r.value, n, a[2].value, bits);
    } else if (!IsNegative(a[1])) {
        arb_chebyshev_u_ui(r.value, n, a[2].value, bits);
    } else if (n == 1) {
        arb_zero(r.value);
    } else {
        arb_chebyshev_u_ui(r.value, n - 2, a[2].value, bits);
        arb_neg(r.value, r.value);
    }
}

void DawsonBall(Ball& r, const Balls& a, slong bits) {
    Ball factor;
    arb_mul(factor.value, a[0].value, a[0].value, 2 * bits + 2200);
    arb_neg(factor.value, factor.value);
    arb_exp(factor.value, factor.value, bits);
    arb_hypgeom_erfi(r.value, a[0].value, bits);
    arb_mul(r.value, r.value, factor.value, bits);
    arb_const_sqrt_pi(factor.value, bits);
    arb_mul(r.value, r.value, factor.value, bits);
    arb_mul_2exp_si(r.value, r.value, -1);
}

void BetaBall(Ball& r, const Balls& a, slong bits) {
    Ball part;
    arb_add(part.value, a[0].value, a[1].value, 2200);
    arb_rgamma(r.value, part.value, bits);
    for (const Ball& argument : a) {
        arb_gamma(part.value, argument.value, bits);
        arb_mul(r.value, r.value, part.value, bits);
    }
}

void LogBall(Ball& r, const Balls& a, slong bits) {
    Ball base;
    arb_log(base.value, a[0].value, bits);
    arb_log(r.value, a[1].value, bits);
    arb_div(r.value, r.value, base.value, bits);
}

void LegendreBall(Ball& r, const Balls& a, slong bits) {
    arb_hypgeom_legendre_p_ui(r.value, nullptr, Degree(a[0]), a[1].value, bits);
}

void LaguerreBall(Ball& r, const Balls& a, slong bits) {
    arb_hypgeom_laguerre_l(r.value, a[0].value, Ball().value, a[1].value, bits);
}

struct Known {
    std::string_view name;
    Compute compute;
};

using Arguments = const Balls&;

constexpr std::array<Known, 38> kKnown = {{
    {"sin", [](Ball& r, Arguments a, slong p) { arb_sin(r.value, a[0].value, p); }},
    {"cos", [](Ball& r, Arguments a, slong p) { arb_cos(r.value, a[0].value, p); }},
    {"tg", [](Ball& r, Arguments a, slong p) { arb_tan(r.value, a[0].value, p); }},
    {"ln", [](Ball& r, Arguments a, slong p) { arb_log(r.value, a[0].value, p); }},
    {"lg", [](Ball& r, Arguments a, slong p) { arb_log_base_ui(r.value, a[0].value, 10, p); }},
    {"sh", [](Ball& r, Arguments a, slong p) { arb_sinh(r.value, a[0].value, p); }},
    {"ch", [](Ball& r, Arguments a, slong p) { arb_cosh(r.value, a[0].value, p); }},
    {"th", [](Ball& r, Arguments a, slong p) { arb_tanh(r.value, a[0].value, p); }},
    {"exp", [](Ball& r, Arguments a, slong p) { arb_exp(r.value, a[0].value, p); }},
    {"acos", [](Ball& r, Arguments a, slong p) { arb_acos(r.value, a[0].value, p); }},
    {"asin", [](Ball& r, Arguments a, slong p) { arb_asin(r.value, a[0].value, p); }},
    {"atg", [](Ball& r, Arguments a, slong p) { arb_atan(r.value, a[0].value, p); }},
    {"Gamma", [](Ball& r, Arguments a, slong p) { arb_gamma(r.value, a[0].value, p); }},
    {"Si", [](Ball& r, Arguments a, slong p) { arb_hypgeom_si(r.value, a[0].value, p); }},
    {"Ci",
     [](Ball& r, Arguments a, slong p) { arb_hypgeom_ci(r.value, Magnitude(a[0]).value, p); }},
    {"Shi", [](Ball& r, Arguments a, slong p) { arb_hypgeom_shi(r.value, a[0].value, p); }},
    {"Chi",
     [](Ball& r, Arguments a, slong p) { arb_hypgeom_chi(r.value, Magnitude(a[0]).value, p); }},
    {"Psi", [](Ball& r, Arguments a, slong p) { arb_digamma(r.value, a[0].value, p); }},
    {"DawsonF", DawsonBall},
    {"Ei", [](Ball& r, Arguments a, slong p) { arb_hypgeom_ei(r.value, a[0].value, p); }},
    {"Sf", [](Ball& r, Arguments a,
              slong p) { arb_hypgeom_fresnel(r.value, nullptr, a[0].value, 1, p); }},
    {"Cf", [](Ball& r, Arguments a,
              slong p) { arb_hypgeom_fresnel(nullptr, r.value, a[0].value, 1, p); }},
    {"Ai", [](Ball& r, Arguments a,
              slong p) { arb_hypgeom_airy(r.value, nullptr, nullptr, nullptr, a[0].value, p); }},
    {"Bi", [](Ball& r, Arguments a,
              slong p) { arb_hypgeom_airy(nullptr, nullptr, r.value, nullptr, a[0].value, p); }},
    {"erf", [](Ball& r, Arguments a, slong p) { arb_hypgeom_erf(r.value, a[0].value, p); }},
    {"Li", [](Ball& r, Arguments a, slong p) { arb_hypgeom_li(r.value, a[0].value, 0, p); }},
    {"Beta", BetaBall},
    {"J", [](Ball& r, Arguments a,
             slong p) { arb_hypgeom_bessel_j(r.value, a[0].value, a[1].value, p); }},
    {"Y", [](Ball& r, Arguments a,
             slong p) { arb_hypgeom_bessel_y(r.value, a[0].value, a[1].value, p); }},
    {"K", [](Ball& r, Arguments a,
             slong p) { arb_hypgeom_bessel_k(r.value, a[0].value, a[1].value, p); }},
    {"I", [](Ball& r, Arguments a,
             slong p) { arb_hypgeom_bessel_i(r.value, a[0].value, a[1].value, p); }},
    {"Hyper",
     [](Ball& r, Arguments a,
        slong
            p) { arb_hypgeom_2f1(r.value, a[0].value, a[1].value, a[2].value, a[3].value, 0, p); }},
    {"log", LogBall},
    {"Cheb", ChebyshevBall},
    {"Hi", [](Ball& r, Arguments a,
              slong p) { arb_hypgeom_hermite_h(r.value, a[0].value, a[1].value, p); }},
    {"Lag", LaguerreBall},
    {"Leg", LegendreBall},
    {"power", [](Ball& r, Arguments a, slong p) { arb_pow(r.value, a[0].value, a[1].value, p); }},
}};

Compute Find(std::string_view name) {
    const auto found = std::find_if(kKnown.begin(), kKnown.end(),
                                    [name](const Known& known) { return known.name == name; });
    return found == kKnown.end() ? nullptr : found->compute;
}

/// Computes the value with more and more bits until it has enough of them, or is known to be 0 or
/// out of the range of doubles.
bool Narrow(Compute compute, const Balls& arguments, Ball& value) {
    constexpr slong kBeyondDoubles = 1100;
    for (slong bits = kFirstBits; bits <= kMostBits; bits *= 2) {
        compute(value, arguments, bits);
        if (!arb_is_finite(value.value)) continue;
        if (arb_is_zero(value.value)) return true;
        if (arb_rel_accuracy_bits(value.value) >= kWantedBits) return true;
        mag_t size;
        mag_init(size);
        arb_get_mag(size, value.value);
        const bool vanishes = mag_cmp_2exp_si(size, -kBeyondDoubles - kWantedBits) < 0;
        mag_clear(size);
        if (vanishes) {
            arb_zero(value.value);
            return true;
        }
    }
    return false;
}

Balls BallsOf(const std::vector<double>& arguments) {
    Balls balls;
    balls.reserve(arguments.size());
    for (const double argument : arguments)
        balls.emplace_back(argument);
    return balls;
}

/// Stores the value as two doubles; infinite where it rounds to more than the largest double.
void Split(const Ball& value, ReferenceRow& row) {
    row.high = arf_get_d(arb_midref(value.value), ARF_RND_NEAR);
    row.low = 0;
    if (!std::isfinite(row.high)) return;
    arf_t rest;
    arf_init(rest);
    arf_set_d(rest, row.high);
    arf_sub(rest, arb_midref(value.value), rest, 2 * kWantedBits, ARF_RND_NEAR);
    row.low = arf_get_d(rest, ARF_RND_NEAR);
    arf_clear(rest);
}

/// |x f'(x)/f(x)| for the last argument x, from the values on both sides of x. Where these are not
/// known well enough it is 0, so that the full error counts.
double ConditionNumber(Compute compute, const std::vector<double>& arguments) {
    constexpr int kStepBits = 80;
    constexpr slong kEnough = 10;
    const double x = arguments.back();
    if (x == 0) return 0;
    const int exponent = std::ilogb(x);
    const int stepExponent = std::min(exponent, 0) - kStepBits - std::max(exponent, 0);
    const slong bits = kFirstBits + 2L * kStepBits + 4L * std::max(exponent, 0);
    Balls balls = BallsOf(arguments);
    Ball step(1);
    arb_mul_2exp_si(step.value, step.value, stepExponent);
    Ball centre;
    Ball above;
    Ball below;
    for (slong more = 1; more <= 8; more *= 2) {
        compute(centre, balls, bits * more);
        Balls moved = balls;
        arb_add(moved.back().value, balls.back().value, step.value, ARF_PREC_EXACT);
        compute(above, moved, bits * more);
        arb_sub(moved.back().value, balls.back().value, step.value, ARF_PREC_EXACT);
        compute(below, moved, bits * more);
        arb_sub(above.value, above.value, below.value, bits * more);
        arb_div(above.value, above.value, centre.value, bits * more);
        arb_div(above.value, above.value, step.value, bits * more);
        arb_mul(above.value, above.value, balls.back().value, bits * more);
        arb_mul_2exp_si(above.value, above.value, -1);
        if (!arb_is_finite(above.value) || arb_rel_accuracy_bits(above.value) < kEnough) continue;
        return std::fabs(arf_get_d(arb_midref(above.value), ARF_RND_NEAR));
    }
    return 0;
}

}  // namespace

bool ExactRowWithoutCondition(std::string_view name, const std::vector<double>& arguments,
                              ReferenceRow& row) {
    const Compute compute = Find(name);
    if (compute == nullptr) return false;
    Ball value;
    if (!Narrow(compute, BallsOf(arguments), value)) return false;
    row.arguments = arguments;
    row.condition = 0;
    Split(value, row);
    return true;
}

void AddCondition(std::string_view name, ReferenceRow& row) {
    if (row.high == 0 || std::isinf(row.high)) return;
    std::vector<double> arguments = row.arguments;
    // A negative base has powers with whole exponents only; the power of its magnitude exists for
    // all exponents.
    if (name == "power") arguments.front() = std::fabs(arguments.front());
    row.condition = ConditionNumber(Find(name), arguments);
}

bool ExactRow(std::string_view name, const std::vector<double>& arguments, ReferenceRow& row) {
    if (!ExactRowWithoutCondition(name, arguments, row)) return false;
    AddCondition(name, row);
    return true;
}

}  // namespace kalvex::accuracy
