// The kernels themselves, written once over a small vector type `Simd` that each including file
// defines for its instruction set (inside an unnamed namespace, as everything here: the same
// function compiled for different processors must never be merged by the linker; for the same
// reason no function of the standard library is called).
//
// A domain test is made for the whole vector; only when a lane fails are the codes written.
//
// Integral powers are products whose rounding errors are carried along (T. J. Dekker, "A
// floating-point technique for extending the available precision", Numer. Math. 18, 1971), by
// left-to-right binary powering, rounded once at the end: within 0.51 units in the last place.
// Results near the ends of the range, zeros and infinities go to the general power.

#include <utility>

namespace kalvex {
namespace {

using Vec = Simd::Vec;
constexpr std::size_t kLanes = Simd::kLanes;

struct FromArray {
    const double* values;
    Vec At(std::size_t i) const { return Simd::Load(values + i); }
};

struct Repeated {
    Vec value;
    Vec At(std::size_t) const { return value; }
};

template <typename Body>
inline void WithSource(const Source& source, Body body) {
    if (source.values != nullptr) {
        body(FromArray{source.values});
    } else {
        body(Repeated{Simd::Set(source.scalar)});
    }
}

template <typename Mask>
[[gnu::noinline]] void MarkFailed(std::int32_t* errors, Mask failed, std::int32_t code) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        if (failed[lane] != 0 && errors[lane] == 0) errors[lane] = code;
    }
}

template <typename Function>
inline bool Unary(const KernelCall& call, Function function) {
    WithSource(call.in[0], [&](auto a) {
        for (std::size_t i = 0; i < call.count; i += kLanes) {
            Simd::Store(call.out + i, function(a.At(i)));
        }
    });
    return false;
}

template <typename Function>
inline bool Binary(const KernelCall& call, Function function) {
    WithSource(call.in[0], [&](auto a) {
        WithSource(call.in[1], [&](auto b) {
            for (std::size_t i = 0; i < call.count; i += kLanes) {
                Simd::Store(call.out + i, function(a.At(i), b.At(i)));
            }
        });
    });
    return false;
}

template <typename Function>
inline bool Ternary(const KernelCall& call, Function function) {
    WithSource(call.in[0], [&](auto a) {
        WithSource(call.in[1], [&](auto b) {
            WithSource(call.in[2], [&](auto c) {
                for (std::size_t i = 0; i < call.count; i += kLanes) {
                    Simd::Store(call.out + i, function(a.At(i), b.At(i), c.At(i)));
                }
            });
        });
    });
    return false;
}

template <typename Fails, typename Function>
inline bool CheckedUnary(const KernelCall& call, std::int32_t code, Fails fails,
                         Function function) {
    bool anyFailed = false;
    WithSource(call.in[0], [&](auto a) {
        for (std::size_t i = 0; i < call.count; i += kLanes) {
            const Vec x = a.At(i);
            const auto failed = fails(x);
            if (Simd::Any(failed)) {
                anyFailed = true;
                MarkFailed(call.errors + i, failed, code);
            }
            Simd::Store(call.out + i, function(x));
        }
    });
    return anyFailed;
}

template <typename Fails, typename Function>
inline bool CheckedBinary(const KernelCall& call, std::int32_t code, Fails fails,
                          Function function) {
    bool anyFailed = false;
    WithSource(call.in[0], [&](auto a) {
        WithSource(call.in[1], [&](auto b) {
            for (std::size_t i = 0; i < call.count; i += kLanes) {
                const Vec x = a.At(i);
                const Vec y = b.At(i);
                const auto failed = fails(x, y);
                if (Simd::Any(failed)) {
                    anyFailed = true;
                    MarkFailed(call.errors + i, failed, code);
                }
                Simd::Store(call.out + i, function(x, y));
            }
        });
    });
    return anyFailed;
}

inline double Fabs(double x) {
    return __builtin_fabs(x);
}
inline Vec Fabs(Vec x) {
    return Simd::Abs(x);
}
inline double FusedMultiplyAdd(double a, double b, double c) {
    return __builtin_fma(a, b, c);
}

/// A number of twice the precision: the sum of its parts. The low part is not kept below half a
/// unit of the high one: it only collects the rounding errors of a few products, and their own
/// errors are of second order.
template <typename T>
struct DoubleDouble {
    T high;
    T low;
};

template <typename T>
inline DoubleDouble<T> Squared(T a) {
    const T product = a * a;
    return {product, Simd::ProductError(a, a, product)};
}

template <typename T>
inline DoubleDouble<T> Squared(DoubleDouble<T> a) {
    const T product = a.high * a.high;
    const T error = Simd::ProductError(a.high, a.high, product);
    return {product, Simd::MultiplyAdd(a.high + a.high, a.low, error)};
}

template <typename T>
inline DoubleDouble<T> Times(DoubleDouble<T> a, T b) {
    const T product = a.high * b;
    const T error = Simd::ProductError(a.high, b, product);
    return {product, Simd::MultiplyAdd(a.low, b, error)};
}

/// 1 / a to double precision: one Newton step whose residual sees both parts.
template <typename T>
inline T Reciprocal(DoubleDouble<T> a) {
    const T quotient = 1.0 / a.high;
    const T product = quotient * a.high;
    const T error = Simd::ProductError(quotient, a.high, product);
    const T residual = ((1.0 - product) - error) - quotient * a.low;
    return quotient + quotient * residual;
}

/// Exponents whose result needs no more than one correctly rounded operation.
constexpr bool IsSinglyRounded(int n) {
    return n >= -1 && n <= 2;
}

template <typename T>
inline T SinglyRoundedPower(T x, int n) {
    if (n == 2) return x * x;
    if (n == 1) return x;
    if (n == 0) return T{} + 1.0;
    return 1.0 / x;
}

/// x to an integral power of magnitude 2 or more.
template <typename T>
inline T ProductPower(T x, int n) {
    const unsigned magnitude = n < 0 ? 0u - static_cast<unsigned>(n) : static_cast<unsigned>(n);
    int bit = 30 - __builtin_clz(magnitude);
    DoubleDouble<T> power = Squared(x);
    for (;;) {
        if ((magnitude >> bit) & 1u) power = Times(power, x);
        if (--bit < 0) break;
        power = Squared(power);
    }
    return n < 0 ? Reciprocal(power) : power.high + power.low;
}

/// Inside these magnitudes no intermediate product or rounding error under- or overflows.
constexpr double kSmallestSafePower = 0x1p-900;
constexpr double kLargestSafePower = 0x1p900;

inline Vec SafePower(Vec x, Vec power, int n) {
    const Vec magnitude = Fabs(power);
    const auto safe =
        (magnitude >= Simd::Set(kSmallestSafePower)) & (magnitude <= Simd::Set(kLargestSafePower));
    if (!Simd::Any(~safe)) return power;
    return safe ? power : Simd::Pow(x, Simd::Set(static_cast<double>(n)));
}

inline double LanePower(double x, double y, double general) {
    if (y == 0.5) return __builtin_sqrt(x) + 0.0;
    const int n = static_cast<int>(y);
    if (IsSinglyRounded(n)) return SinglyRoundedPower(x, n);
    const double power = ProductPower(x, n);
    const double magnitude = Fabs(power);
    const bool safe = magnitude >= kSmallestSafePower && magnitude <= kLargestSafePower;
    return safe ? power : general;
}

/// The exponents of ordinary polynomials are compiled in: their products are straight code.
template <int n>
bool FixedPowerKernel(const KernelCall& call) {
    return Unary(call, [](Vec x) { return SafePower(x, ProductPower(x, n), n); });
}

constexpr int kFirstFixedPower = 3;
constexpr int kLastFixedPower = 20;

template <int... offsets>
constexpr Kernel FixedPower(int n, std::integer_sequence<int, offsets...>) {
    constexpr Kernel kKernels[] = {FixedPowerKernel<kFirstFixedPower + offsets>...};
    return kKernels[n - kFirstFixedPower];
}

bool IntegerPowerKernel(const KernelCall& call) {
    const int n = call.immediate;
    if (n == 2) return Unary(call, [](Vec x) { return x * x; });
    if (n >= kFirstFixedPower && n <= kLastFixedPower) {
        return FixedPower(
            n, std::make_integer_sequence<int, kLastFixedPower - kFirstFixedPower + 1>{})(call);
    }
    if (IsSinglyRounded(n)) return Unary(call, [n](Vec x) { return SinglyRoundedPower(x, n); });
    return Unary(call, [n](Vec x) { return SafePower(x, ProductPower(x, n), n); });
}

inline Vec GeneralPower(Vec x, Vec y) {
    Vec power = Simd::Pow(x, y);
    const auto byProduct = ((y == Simd::Floor(y)) &
                            (Fabs(y) <= Simd::Set(static_cast<double>(kLargestIntegerPower)))) |
                           (y == Simd::Set(0.5));
    if (!Simd::Any(byProduct)) return power;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        if (byProduct[lane] != 0) power[lane] = LanePower(x[lane], y[lane], power[lane]);
    }
    return power;
}

bool PowerKernel(const KernelCall& call) {
    return CheckedBinary(
        call, 2,
        [](Vec x, Vec y) { return (x < Simd::Set(0.0)) & (y - Simd::Floor(y) != Simd::Set(0.0)); },
        [](Vec x, Vec y) { return GeneralPower(x, y); });
}

bool SquareRootKernel(const KernelCall& call) {
    // The sum turns the root of -0 into the +0 that a power has.
    return CheckedUnary(
        call, 2, [](Vec x) { return x < Simd::Set(0.0); },
        [](Vec x) { return Simd::Sqrt(x) + Simd::Set(0.0); });
}

bool AddKernel(const KernelCall& call) {
    return Binary(call, [](Vec a, Vec b) { return a + b; });
}
bool SubtractKernel(const KernelCall& call) {
    return Binary(call, [](Vec a, Vec b) { return a - b; });
}
bool MultiplyKernel(const KernelCall& call) {
    return Binary(call, [](Vec a, Vec b) { return a * b; });
}
bool DivideKernel(const KernelCall& call) {
    return CheckedBinary(
        call, 1, [](Vec, Vec b) { return b == Simd::Set(0.0); },
        [](Vec a, Vec b) { return a / b; });
}
bool MultiplyAddKernel(const KernelCall& call) {
    return Ternary(call, [](Vec a, Vec b, Vec c) { return a * b + c; });
}
bool MultiplySubtractKernel(const KernelCall& call) {
    return Ternary(call, [](Vec a, Vec b, Vec c) { return a * b - c; });
}
bool SubtractMultipliedKernel(const KernelCall& call) {
    return Ternary(call, [](Vec a, Vec b, Vec c) { return c - a * b; });
}

bool SinKernel(const KernelCall& call) {
    return Unary(call, Simd::Sin);
}
bool CosKernel(const KernelCall& call) {
    return Unary(call, Simd::Cos);
}
bool TgKernel(const KernelCall& call) {
    return Unary(call, Simd::Tan);
}
bool ShKernel(const KernelCall& call) {
    return Unary(call, Simd::Sinh);
}
bool ChKernel(const KernelCall& call) {
    return Unary(call, Simd::Cosh);
}
bool ThKernel(const KernelCall& call) {
    return Unary(call, Simd::Tanh);
}
bool ExpKernel(const KernelCall& call) {
    return Unary(call, Simd::Exp);
}
bool AtgKernel(const KernelCall& call) {
    return Unary(call, Simd::Atan);
}
bool GammaKernel(const KernelCall& call) {
    return Unary(call, Simd::Gamma);
}
bool ErfKernel(const KernelCall& call) {
    return Unary(call, Simd::Erf);
}
bool IntKernel(const KernelCall& call) {
    return Unary(call, Simd::Floor);
}
bool FracKernel(const KernelCall& call) {
    return Unary(call, [](Vec x) { return x - Simd::Floor(x); });
}
bool AbsKernel(const KernelCall& call) {
    return Unary(call, Simd::Abs);
}

inline auto IsNotPositive(Vec x) {
    return x <= Simd::Set(0.0);
}
inline auto IsBeyondOne(Vec x) {
    return Fabs(x) > Simd::Set(1.0);
}

bool LnKernel(const KernelCall& call) {
    return CheckedUnary(call, 3, IsNotPositive, Simd::Log);
}
bool LgKernel(const KernelCall& call) {
    return CheckedUnary(call, 4, IsNotPositive, Simd::Log10);
}
bool AcosKernel(const KernelCall& call) {
    return CheckedUnary(call, 5, IsBeyondOne, Simd::Acos);
}
bool AsinKernel(const KernelCall& call) {
    return CheckedUnary(call, 6, IsBeyondOne, Simd::Asin);
}

bool LogKernel(const KernelCall& call) {
    return CheckedBinary(
        call, 17,
        [](Vec base, Vec x) {
            return IsNotPositive(base) | (base == Simd::Set(1.0)) | IsNotPositive(x);
        },
        [](Vec base, Vec x) { return Simd::Log(x) / Simd::Log(base); });
}

constexpr KernelTable MakeKernelTable(const char* name) {
    KernelTable table;
    table.name = name;
    const auto set = [&table](OpCode op, Kernel kernel) {
        table.kernels[static_cast<std::size_t>(op)] = kernel;
    };
    set(OpCode::Add, AddKernel);
    set(OpCode::Subtract, SubtractKernel);
    set(OpCode::Multiply, MultiplyKernel);
    set(OpCode::Divide, DivideKernel);
    set(OpCode::Power, PowerKernel);
    set(OpCode::IntegerPower, IntegerPowerKernel);
    set(OpCode::SquareRoot, SquareRootKernel);
    set(OpCode::MultiplyAdd, MultiplyAddKernel);
    set(OpCode::MultiplySubtract, MultiplySubtractKernel);
    set(OpCode::SubtractMultiplied, SubtractMultipliedKernel);
    set(FunctionOp(FunctionNumber::Sin), SinKernel);
    set(FunctionOp(FunctionNumber::Cos), CosKernel);
    set(FunctionOp(FunctionNumber::Tg), TgKernel);
    set(FunctionOp(FunctionNumber::Ln), LnKernel);
    set(FunctionOp(FunctionNumber::Lg), LgKernel);
    set(FunctionOp(FunctionNumber::Sh), ShKernel);
    set(FunctionOp(FunctionNumber::Ch), ChKernel);
    set(FunctionOp(FunctionNumber::Th), ThKernel);
    set(FunctionOp(FunctionNumber::Exp), ExpKernel);
    set(FunctionOp(FunctionNumber::Acos), AcosKernel);
    set(FunctionOp(FunctionNumber::Asin), AsinKernel);
    set(FunctionOp(FunctionNumber::Atg), AtgKernel);
    set(FunctionOp(FunctionNumber::Int), IntKernel);
    set(FunctionOp(FunctionNumber::Frac), FracKernel);
    set(FunctionOp(FunctionNumber::Abs), AbsKernel);
    set(FunctionOp(FunctionNumber::Gamma), GammaKernel);
    set(FunctionOp(FunctionNumber::Erf), ErfKernel);
    set(FunctionOp(FunctionNumber::Log), LogKernel);
    return table;
}

}  // namespace
}  // namespace kalvex
