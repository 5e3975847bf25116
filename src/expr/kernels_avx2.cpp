// Kernels for processors with AVX2 and FMA: four lanes. The elementary functions are SLEEF's
// deterministic family with fused multiply-add.
#include <immintrin.h>
#include <sleef.h>

#include "expr/kernel_tables.h"

namespace kalvex {
namespace {

struct Simd {
    using Vec = __m256d;
    static constexpr std::size_t kLanes = 4;

    static Vec Load(const double* from) { return _mm256_loadu_pd(from); }
    static void Store(double* to, Vec value) { _mm256_storeu_pd(to, value); }
    static Vec Set(double value) { return _mm256_set1_pd(value); }
    template <typename Mask>
    static bool Any(Mask mask) {
        return _mm256_movemask_pd(__builtin_bit_cast(Vec, mask)) != 0;
    }
    static Vec Abs(Vec x) { return _mm256_andnot_pd(Set(-0.0), x); }
    static Vec Floor(Vec x) { return _mm256_floor_pd(x); }
    static Vec Sqrt(Vec x) { return _mm256_sqrt_pd(x); }
    // The rounding error of a * b = product; exact while nothing under- or overflows.
    static Vec ProductError(Vec a, Vec b, Vec product) { return _mm256_fmadd_pd(a, b, -product); }
    static double ProductError(double a, double b, double product) {
        return __builtin_fma(a, b, -product);
    }
    static Vec MultiplyAdd(Vec a, Vec b, Vec c) { return _mm256_fmadd_pd(a, b, c); }
    static double MultiplyAdd(double a, double b, double c) { return __builtin_fma(a, b, c); }
    static Vec Pow(Vec x, Vec y) { return Sleef_finz_powd4_u10avx2(x, y); }
    static Vec Sin(Vec x) { return Sleef_finz_sind4_u10avx2(x); }
    static Vec Cos(Vec x) { return Sleef_finz_cosd4_u10avx2(x); }
    static Vec Tan(Vec x) { return Sleef_finz_tand4_u10avx2(x); }
    static Vec Log(Vec x) { return Sleef_finz_logd4_u10avx2(x); }
    static Vec Log10(Vec x) { return Sleef_finz_log10d4_u10avx2(x); }
    static Vec Sinh(Vec x) { return Sleef_finz_sinhd4_u10avx2(x); }
    static Vec Cosh(Vec x) { return Sleef_finz_coshd4_u10avx2(x); }
    static Vec Tanh(Vec x) { return Sleef_finz_tanhd4_u10avx2(x); }
    static Vec Exp(Vec x) { return Sleef_finz_expd4_u10avx2(x); }
    static Vec Acos(Vec x) { return Sleef_finz_acosd4_u10avx2(x); }
    static Vec Asin(Vec x) { return Sleef_finz_asind4_u10avx2(x); }
    static Vec Atan(Vec x) { return Sleef_finz_atand4_u10avx2(x); }
    static Vec Gamma(Vec x) { return Sleef_finz_tgammad4_u10avx2(x); }
    static Vec Erf(Vec x) { return Sleef_finz_erfd4_u10avx2(x); }
};

}  // namespace
}  // namespace kalvex

#include "expr/kernels_impl.inc"

namespace kalvex {

constexpr KernelTable kAvx2Kernels = MakeKernelTable("avx2");

}  // namespace kalvex
