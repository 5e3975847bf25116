// Kernels for 64-bit ARM, whose every processor has these vectors and FMA: two lanes. The
// elementary functions are SLEEF's deterministic family with fused multiply-add, so that the bits
// are those of AVX2 and AVX-512.
#include <arm_neon.h>
#include <sleef.h>

#include "expr/kernel_tables.h"

#define KALVEX_SLEEF(name, ...) Sleef_finz_##name##d2_u10advsimd(__VA_ARGS__)

namespace kalvex {
namespace {

struct Simd {
    using Vec = float64x2_t;
    static constexpr std::size_t kLanes = 2;
    static constexpr bool kMultiplyAddIsFused = true;

    static Vec Load(const double* from) { return vld1q_f64(from); }
    static void Store(double* to, Vec value) { vst1q_f64(to, value); }
    static Vec Set(double value) { return vdupq_n_f64(value); }
    template <typename Mask>
    static bool Any(Mask mask) {
        return vmaxvq_u32(__builtin_bit_cast(uint32x4_t, mask)) != 0;
    }
    static Vec Abs(Vec x) { return vabsq_f64(x); }
    // The second operand where either of them is not-a-number.
    static Vec Larger(Vec a, Vec b) { return vbslq_f64(vcgtq_f64(a, b), a, b); }
    static bool AnyInfinite(Vec x) { return Any(vceqq_f64(Abs(x), Set(__builtin_inf()))); }
    static Vec Floor(Vec x) { return vrndmq_f64(x); }
    static Vec Sqrt(Vec x) { return vsqrtq_f64(x); }
    // The rounding error of product = a * b; exact unless something under- or overflows.
    static Vec ProductError(Vec a, Vec b, Vec product) {
        return vfmaq_f64(vnegq_f64(product), a, b);
    }
    static double ProductError(double a, double b, double product) {
        return __builtin_fma(a, b, -product);
    }
    static Vec MultiplyAdd(Vec a, Vec b, Vec c) { return vfmaq_f64(c, a, b); }
    static double MultiplyAdd(double a, double b, double c) { return __builtin_fma(a, b, c); }
    // high + low. Where low is zero, high alone, which keeps the sign of a zero; where low is not
    // finite, high has overflowed and is the result.
    static Vec Corrected(Vec high, Vec low) {
        const uint64x2_t nonzero = vcgtq_f64(Abs(low), Set(0.0));
        const uint64x2_t finite = vcltq_f64(Abs(low), Set(__builtin_inf()));
        return vbslq_f64(vandq_u64(nonzero, finite), vaddq_f64(high, low), high);
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

constexpr KernelTable kNeonKernels = MakeKernelTable("neon");

}  // namespace kalvex
