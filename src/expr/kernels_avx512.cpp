// Kernels for processors with AVX-512 (F, DQ, VL): eight lanes. The elementary functions are
// SLEEF's deterministic family with fused multiply-add.
#include <immintrin.h>
#include <sleef.h>

#include "expr/kernel_tables.h"

namespace kalvex {
namespace {

struct Simd {
    using Vec = __m512d;
    static constexpr std::size_t kLanes = 8;

    static Vec Load(const double* from) { return _mm512_loadu_pd(from); }
    static void Store(double* to, Vec value) { _mm512_storeu_pd(to, value); }
    static Vec Set(double value) { return _mm512_set1_pd(value); }
    template <typename Mask>
    static bool Any(Mask mask) {
        return _mm512_movepi64_mask(__builtin_bit_cast(__m512i, mask)) != 0;
    }
    static Vec Abs(Vec x) { return _mm512_abs_pd(x); }
    static Vec Floor(Vec x) { return _mm512_floor_pd(x); }
    static Vec Sqrt(Vec x) { return _mm512_sqrt_pd(x); }
    // The rounding error of a * b = product; exact while nothing under- or overflows.
    static Vec ProductError(Vec a, Vec b, Vec product) { return _mm512_fmadd_pd(a, b, -product); }
    static double ProductError(double a, double b, double product) {
        return __builtin_fma(a, b, -product);
    }
    static Vec MultiplyAdd(Vec a, Vec b, Vec c) { return _mm512_fmadd_pd(a, b, c); }
    static double MultiplyAdd(double a, double b, double c) { return __builtin_fma(a, b, c); }
    static Vec Pow(Vec x, Vec y) { return Sleef_finz_powd8_u10avx512f(x, y); }
    static Vec Sin(Vec x) { return Sleef_finz_sind8_u10avx512f(x); }
    static Vec Cos(Vec x) { return Sleef_finz_cosd8_u10avx512f(x); }
    static Vec Tan(Vec x) { return Sleef_finz_tand8_u10avx512f(x); }
    static Vec Log(Vec x) { return Sleef_finz_logd8_u10avx512f(x); }
    static Vec Log10(Vec x) { return Sleef_finz_log10d8_u10avx512f(x); }
    static Vec Sinh(Vec x) { return Sleef_finz_sinhd8_u10avx512f(x); }
    static Vec Cosh(Vec x) { return Sleef_finz_coshd8_u10avx512f(x); }
    static Vec Tanh(Vec x) { return Sleef_finz_tanhd8_u10avx512f(x); }
    static Vec Exp(Vec x) { return Sleef_finz_expd8_u10avx512f(x); }
    static Vec Acos(Vec x) { return Sleef_finz_acosd8_u10avx512f(x); }
    static Vec Asin(Vec x) { return Sleef_finz_asind8_u10avx512f(x); }
    static Vec Atan(Vec x) { return Sleef_finz_atand8_u10avx512f(x); }
    static Vec Gamma(Vec x) { return Sleef_finz_tgammad8_u10avx512f(x); }
    static Vec Erf(Vec x) { return Sleef_finz_erfd8_u10avx512f(x); }
};

}  // namespace
}  // namespace kalvex

#include "expr/kernels_impl.inc"

namespace kalvex {

constexpr KernelTable kAvx512Kernels = MakeKernelTable("avx512");

}  // namespace kalvex
