// Functions without an array form, one lane at a time: the language's own domain rule first, then
// the numeric routine. An error object thrown by the routine becomes the code of the primitive: the
// point is undefined, the program goes on.
#include <algorithm>
#include <cmath>
#include <optional>

#include "expr/kernels.h"
#include "specfun/specfun.h"

namespace kalvex {
namespace {

/// Arguments in written order.
using Arguments = const double*;

bool NeverFails(Arguments) {
    return false;
}
bool IsZero(Arguments a) {
    return a[0] == 0.0;
}
bool IsIntegral(double value) {
    return value - std::floor(value) == 0.0;
}
bool PsiFails(Arguments a) {
    return a[0] <= 0.0 && IsIntegral(a[0]);
}
// KEEP: zero is rejected although the message speaks of nonnegative numbers.
bool EiFails(Arguments a) {
    return a[0] <= 0.0;
}
// The logarithmic integral is Ei of ln, with the domains of both: first that of the logarithm.
bool IsNotPositive(Arguments a) {
    return a[0] <= 0.0;
}
bool LiFails(Arguments a) {
    return a[0] <= 1.0;
}
bool BetaFails(Arguments a) {
    return a[0] <= 0.0 || a[1] <= 0.0;
}
bool JFails(Arguments a) {
    return a[1] < 0.0 && !IsIntegral(a[0]);
}
// Y has no finite real value at zero and below.
bool YFails(Arguments a) {
    return a[1] <= 0.0;
}
bool KFails(Arguments a) {
    return a[1] <= 0.0 || a[0] < 0.0;
}
bool IFails(Arguments a) {
    return a[0] < 0.0 || a[1] <= 0.0;
}
// KEEP: both ends are excluded although the message gives a closed interval.
bool HyperFails(Arguments a) {
    return a[3] <= -1.0 || a[3] >= 1.0;
}
bool IsOutsideOne(double x) {
    return x < -1.0 || x > 1.0;
}
bool ChebFails(Arguments a) {
    return (a[0] != 1.0 && a[0] != 2.0) || !IsIntegral(a[1]) || IsOutsideOne(a[2]);
}
// KEEP: degree 0 is allowed, although the message of Lag asks for a positive integer.
bool DegreeFails(Arguments a) {
    return !IsIntegral(a[0]) || a[0] < 0.0;
}
bool LegFails(Arguments a) {
    return a[0] <= 0.0 || !IsIntegral(a[0]) || IsOutsideOne(a[1]);
}

struct LaneFunction {
    FunctionNumber number;
    int arity;
    std::int32_t code;  ///< for a failed domain test and for an error object
    bool (*fails)(Arguments);
    double (*compute)(Arguments);
    std::int32_t earlierCode = 0;  ///< of a domain test that comes before, if there is one
    bool (*failsEarlier)(Arguments) = NeverFails;
};

constexpr LaneFunction kLaneFunctions[] = {
    {FunctionNumber::Si, 1, 0, NeverFails, [](Arguments a) { return specfun::Si(a[0]); }},
    {FunctionNumber::Ci, 1, 7, IsZero, [](Arguments a) { return specfun::Ci(a[0]); }},
    {FunctionNumber::Shi, 1, 0, NeverFails, [](Arguments a) { return specfun::Shi(a[0]); }},
    {FunctionNumber::Chi, 1, 8, IsZero, [](Arguments a) { return specfun::Chi(a[0]); }},
    {FunctionNumber::Psi, 1, 9, PsiFails, [](Arguments a) { return specfun::Psi(a[0]); }},
    {FunctionNumber::DawsonF, 1, 0, NeverFails, [](Arguments a) { return specfun::DawsonF(a[0]); }},
    {FunctionNumber::Ei, 1, 10, EiFails, [](Arguments a) { return specfun::Ei(a[0]); }},
    {FunctionNumber::Sf, 1, 0, NeverFails, [](Arguments a) { return specfun::FresnelS(a[0]); }},
    {FunctionNumber::Cf, 1, 0, NeverFails, [](Arguments a) { return specfun::FresnelC(a[0]); }},
    {FunctionNumber::Ai, 1, 0, NeverFails, [](Arguments a) { return specfun::AiryAi(a[0]); }},
    {FunctionNumber::Bi, 1, 0, NeverFails, [](Arguments a) { return specfun::AiryBi(a[0]); }},
    {FunctionNumber::Li, 1, 10, LiFails, [](Arguments a) { return specfun::Li(a[0]); }, 3,
     IsNotPositive},
    {FunctionNumber::Beta, 2, 11, BetaFails, [](Arguments a) { return specfun::Beta(a[0], a[1]); }},
    {FunctionNumber::J, 2, 12, JFails, [](Arguments a) { return specfun::BesselJ(a[0], a[1]); }},
    {FunctionNumber::Y, 2, 13, YFails, [](Arguments a) { return specfun::BesselY(a[0], a[1]); }},
    {FunctionNumber::K, 2, 14, KFails, [](Arguments a) { return specfun::BesselK(a[0], a[1]); }},
    {FunctionNumber::I, 2, 15, IFails, [](Arguments a) { return specfun::BesselI(a[0], a[1]); }},
    {FunctionNumber::Hyper, 4, 16, HyperFails,
     [](Arguments a) { return specfun::Hypergeometric2F1(a[0], a[1], a[2], a[3]); }},
    {FunctionNumber::Cheb, 3, 18, ChebFails,
     [](Arguments a) { return specfun::Chebyshev(a[0] == 1.0 ? 1 : 2, a[1], a[2]); }},
    {FunctionNumber::Hi, 2, 19, DegreeFails,
     [](Arguments a) { return specfun::Hermite(a[0], a[1]); }},
    {FunctionNumber::Lag, 2, 20, DegreeFails,
     [](Arguments a) { return specfun::Laguerre(a[0], a[1]); }},
    {FunctionNumber::Leg, 2, 21, LegFails,
     [](Arguments a) { return specfun::Legendre(a[0], a[1]); }},
};

/// For functions without a domain rule of their own whose routine still gave up.
constexpr std::int32_t kRoutineFailed = 1000;

const LaneFunction* Find(FunctionNumber number) {
    for (const LaneFunction& candidate : kLaneFunctions) {
        if (candidate.number == number) return &candidate;
    }
    return nullptr;
}

std::int32_t ComputeLane(const LaneFunction& function, Arguments arguments, double& value) {
    if (function.failsEarlier(arguments)) return function.earlierCode;
    if (function.fails(arguments)) return function.code;
    try {
        value = function.compute(arguments);
        return 0;
    } catch (const ap::ap_error&) {
        return function.code != 0 ? function.code : kRoutineFailed;
    }
}

struct LaneResult {
    double value = 0.0;
    std::int32_t code = 0;
};

LaneResult ComputeLane(const LaneFunction& function, const KernelCall& call, std::size_t lane) {
    double arguments[4] = {};
    for (int i = 0; i < function.arity; ++i) {
        const Source& source = call.in[i];
        arguments[i] = source.values != nullptr ? source.values[lane] : source.scalar;
    }
    LaneResult result;
    result.code = ComputeLane(function, arguments, result.value);
    return result;
}

bool HasOneValue(const LaneFunction& function, const KernelCall& call) {
    return std::all_of(call.in, call.in + function.arity,
                       [](const Source& source) { return source.values == nullptr; });
}

}  // namespace

bool RunLaneByLane(FunctionNumber number, const KernelCall& call) {
    const LaneFunction& function = *Find(number);
    const bool hasOneValue = HasOneValue(function, call);
    const std::size_t wanted = call.count - call.padding;
    std::optional<LaneResult> result;
    bool anyFailed = false;
    for (std::size_t lane = 0; lane < wanted; ++lane) {
        if (call.errors[lane] != 0) {
            call.out[lane] = 0.0;
            continue;
        }
        // The arguments are read before anything is written: `out` may be their array.
        if (!hasOneValue || !result) result = ComputeLane(function, call, lane);
        call.out[lane] = result->value;
        call.errors[lane] = result->code;
        anyFailed |= result->code != 0;
    }
    std::fill_n(call.out + wanted, call.padding, call.out[wanted - 1]);
    std::fill_n(call.errors + wanted, call.padding, call.errors[wanted - 1]);
    return anyFailed;
}

}  // namespace kalvex
