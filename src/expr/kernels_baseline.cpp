// Kernels that every processor of the architecture can run: two lanes at a time. The
// elementary functions are SLEEF's deterministic family without fused multiply-add, which differs
// from the family with it in the last place of about one value in a thousand.
#include <sleef.h>

#include "expr/kernel_tables.h"

#if defined(__SSE2__)
#define KALVEX_SLEEF(name, ...) Sleef_cinz_##name##d2_u10sse2(__VA_ARGS__)
#else
#define KALVEX_SLEEF(name, ...) \
    ByLane([](auto... lane) { return Sleef_cinz_##name##d1_u10purec(lane...); }, __VA_ARGS__)
#endif

namespace kalvex {
namespace {

struct Simd {
    using Vec = double __attribute__((vector_size(16)));
    static constexpr std::size_t kLanes = 2;
    static constexpr bool kMultiplyAddIsFused = false;
    static constexpr unsigned long long kUpperBits = ~0ull << 27;

    static Vec Load(const double* from) {
        Vec value;
        __builtin_memcpy(&value, from, sizeof value);
        return value;
    }
    static void Store(double* to, Vec value) { __builtin_memcpy(to, &value, sizeof value); }
    static Vec Set(double value) { return Vec{value, value}; }
    template <typename Mask>
    static bool Any(Mask mask) {
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            if (mask[lane] != 0) return true;
        }
        return false;
    }
    template <typename Function, typename... Operands>
    static Vec ByLane(Function function, Operands... operands) {
        Vec result{};
        for (std::size_t lane = 0; lane < kLanes; ++lane)
            result[lane] = function(operands[lane]...);
        return result;
    }
    static Vec Abs(Vec x) {
        return ByLane([](double lane) { return __builtin_fabs(lane); }, x);
    }
    // The second operand where either of them is not-a-number.
    static Vec Larger(Vec a, Vec b) { return a > b ? a : b; }
    static bool AnyInfinite(Vec x) { return Any(Abs(x) == Set(__builtin_inf())); }
    static Vec Floor(Vec x) {
        return ByLane([](double lane) { return __builtin_floor(lane); }, x);
    }
    static Vec Sqrt(Vec x) {
        return ByLane([](double lane) { return __builtin_sqrt(lane); }, x);
    }
    // The upper 26 bits of a. They are cut off, not rounded: rounding up could overflow, and so
    // could the multiplication that is often used to split a number.
    static Vec UpperHalf(Vec a) {
        using Bits = unsigned long long __attribute__((vector_size(16)));
        return __builtin_bit_cast(Vec, __builtin_bit_cast(Bits, a) & kUpperBits);
    }
    static double UpperHalf(double a) {
        return __builtin_bit_cast(double, __builtin_bit_cast(unsigned long long, a) & kUpperBits);
    }
    // The rounding error of product = a * b, from the products of the factors' halves. Only the
    // product of the lower halves, which have 27 bits each, is rounded, so the result is within
    // 2^-106 of the product unless something underflows. No product of halves is larger than the
    // product itself, so none overflows by itself.
    template <typename T>
    static T ProductError(T a, T b, T product) {
        const T highA = UpperHalf(a);
        const T lowA = a - highA;
        const T highB = UpperHalf(b);
        const T lowB = b - highB;
        return ((highA * highB - product) + highA * lowB + lowA * highB) + lowA * lowB;
    }
    template <typename T>
    static T MultiplyAdd(T a, T b, T c) {
        return a * b + c;
    }
    // high + low. Where low is zero, high alone, which keeps the sign of a zero; where low is not
    // finite, high has overflowed and is the result.
    static Vec Corrected(Vec high, Vec low) {
        return ByLane([](double h, double l) { return Corrected(h, l); }, high, low);
    }
    static double Corrected(double high, double low) {
        return low != 0.0 && __builtin_isfinite(low) ? high + low : high;
    }
#include "expr/kernels_elementary.inc"
};

}  // namespace
}  // namespace kalvex

#include "expr/kernels_impl.inc"

namespace kalvex {

constexpr KernelTable kBaselineKernels = MakeKernelTable("baseline");

}  // namespace kalvex
