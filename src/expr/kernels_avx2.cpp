// Kernels for processors with AVX2 and FMA: four lanes. The elementary functions are SLEEF's
// deterministic family with fused multiply-add.
#include <immintrin.h>
#include <sleef.h>

#include "expr/kernel_tables.h"

#define KALVEX_SLEEF(name, ...) Sleef_finz_##name##d4_u10avx2(__VA_ARGS__)

namespace kalvex {
namespace {

struct Simd {
    using Vec = __m256d;
    static constexpr std::size_t kLanes = 4;
    static constexpr bool kMultiplyAddIsFused = true;

    static Vec Load(const double* from) { return _mm256_loadu_pd(from); }
    static void Store(double* to, Vec value) { _mm256_storeu_pd(to, value); }
    static Vec Set(double value) { return _mm256_set1_pd(value); }
    template <typename Mask>
    static bool Any(Mask mask) {
        return _mm256_movemask_pd(__builtin_bit_cast(Vec, mask)) != 0;
    }
    static Vec Abs(Vec x) { return _mm256_andnot_pd(Set(-0.0), x); }
    // The second operand where either of them is not-a-number.
    static Vec Larger(Vec a, Vec b) { return _mm256_max_pd(a, b); }
    static bool AnyInfinite(Vec x) {
        return _mm256_movemask_pd(_mm256_cmp_pd(Abs(x), Set(__builtin_inf()), _CMP_EQ_OQ)) != 0;
    }
    static Vec Floor(Vec x) { return _mm256_floor_pd(x); }
    static Vec Sqrt(Vec x) { return _mm256_sqrt_pd(x); }
    // The rounding error of product = a * b; exact unless something under- or overflows.
    static Vec ProductError(Vec a, Vec b, Vec product) { return _mm256_fmadd_pd(a, b, -product); }
    static double ProductError(double a, double b, double product) {
        return __builtin_fma(a, b, -product);
    }
    static Vec MultiplyAdd(Vec a, Vec b, Vec c) { return _mm256_fmadd_pd(a, b, c); }
    static double MultiplyAdd(double a, double b, double c) { return __builtin_fma(a, b, c); }
    // high + low. Where low is zero, high alone, which keeps the sign of a zero; where low is not
    // finite, high has overflowed and is the result.
    static Vec Corrected(Vec high, Vec low) {
        const Vec nonzero = _mm256_cmp_pd(low, Set(0.0), _CMP_NEQ_OQ);
        const Vec finite = _mm256_cmp_pd(Abs(low), Set(__builtin_inf()), _CMP_LT_OQ);
        return _mm256_blendv_pd(high, high + low, _mm256_and_pd(nonzero, finite));
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

constexpr KernelTable kAvx2Kernels = MakeKernelTable("avx2");

}  // namespace kalvex
