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

    static Vec Load(const double* from) {
        Vec value;
        __builtin_memcpy(&value, from, sizeof value);
        return value;
    }
    static void Store(double* to, Vec value) { __builtin_memcpy(to, &value, sizeof value); }
    static Vec Set(double value) { return Vec{} + value; }
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
    static Vec Floor(Vec x) {
        return ByLane([](double lane) { return __builtin_floor(lane); }, x);
    }
    static Vec Sqrt(Vec x) {
        return ByLane([](double lane) { return __builtin_sqrt(lane); }, x);
    }
    // The rounding error of a * b = product by splitting the factors into halves; exact while
    // nothing under- or overflows.
    template <typename T>
    static T ProductError(T a, T b, T product) {
        constexpr double kSplit = 134217729.0;  // 2^27 + 1
        const T bigA = a * kSplit;
        const T highA = bigA - (bigA - a);
        const T lowA = a - highA;
        const T bigB = b * kSplit;
        const T highB = bigB - (bigB - b);
        const T lowB = b - highB;
        return ((highA * highB - product) + highA * lowB + lowA * highB) + lowA * lowB;
    }
    template <typename T>
    static T MultiplyAdd(T a, T b, T c) {
        return a * b + c;
    }
    // high + low; high alone where low is zero (high has the sign then) or not finite (overflow).
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
