// Kernels for processors with AVX-512 (F, DQ, VL): eight lanes. The elementary functions are
// SLEEF's deterministic family with fused multiply-add.
#include <immintrin.h>
#include <sleef.h>

#include "expr/kernel_tables.h"

#define KALVEX_SLEEF(name, ...) Sleef_finz_##name##d8_u10avx512f(__VA_ARGS__)

namespace kalvex {
namespace {

struct Simd {
    using Vec = __m512d;
    static constexpr std::size_t kLanes = 8;
    static constexpr bool kMultiplyAddIsFused = true;

    static Vec Load(const double* from) { return _mm512_loadu_pd(from); }
    static void Store(double* to, Vec value) { _mm512_storeu_pd(to, value); }
    static Vec Set(double value) { return _mm512_set1_pd(value); }
    template <typename Mask>
    static bool Any(Mask mask) {
        return _mm512_movepi64_mask(__builtin_bit_cast(__m512i, mask)) != 0;
    }
    static Vec Abs(Vec x) { return _mm512_abs_pd(x); }
    // The second operand where either of them is not-a-number.
    static Vec Larger(Vec a, Vec b) { return _mm512_max_pd(a, b); }
    static bool AnyInfinite(Vec x) {
        constexpr int kInfinite = 0x18;
        return _mm512_fpclass_pd_mask(x, kInfinite) != 0;
    }
    static Vec Floor(Vec x) { return _mm512_floor_pd(x); }
    static Vec Sqrt(Vec x) { return _mm512_sqrt_pd(x); }
    // The rounding error of product = a * b; exact unless something under- or overflows.
    static Vec ProductError(Vec a, Vec b, Vec product) { return _mm512_fmadd_pd(a, b, -product); }
    static double ProductError(double a, double b, double product) {
        return __builtin_fma(a, b, -product);
    }
    static Vec MultiplyAdd(Vec a, Vec b, Vec c) { return _mm512_fmadd_pd(a, b, c); }
    static double MultiplyAdd(double a, double b, double c) { return __builtin_fma(a, b, c); }
    // high + low. Where low is zero, high alone, which keeps the sign of a zero; where low is not
    // finite, high has overflowed and is the result.
    static Vec Corrected(Vec high, Vec low) {
        constexpr int kZeroOrNotFinite = 0x9F;
        const __mmask8 useless = _mm512_fpclass_pd_mask(low, kZeroOrNotFinite);
        return _mm512_mask_add_pd(high, _knot_mask8(useless), high, low);
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

constexpr KernelTable kAvx512Kernels = MakeKernelTable("avx512");

}  // namespace kalvex
