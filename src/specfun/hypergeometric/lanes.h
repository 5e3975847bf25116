// Four numbers of twice the precision at once, one in each lane of a vector: the operations of
// double_double.h and parts.h, lane by lane. Internal to the special functions.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "numbers/processor.h"
#include "specfun/hypergeometric/parts.h"

#ifdef KALVEX_BY_PROCESSOR
#define KALVEX_FUSED_LANES
#include <immintrin.h>
#endif

// Vectors are passed between functions of one source file only.
#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wpsabi"
#endif

namespace kalvex::specfun {

/// The doubles in a register of 256 bits, the widest that the fused instructions below take.
inline constexpr int kLanes = 4;

using Four = double __attribute__((vector_size(kLanes * sizeof(double))));

/// a b + c rounded once, by the runtime's function.
struct Separate {
    static void MultiplyAdd(const Four& a, const Four& b, const Four& c, Four& result) {
        for (int i = 0; i < kLanes; ++i)
            result[i] = std::fma(a[i], b[i], c[i]);
    }
};

#ifdef KALVEX_FUSED_LANES
/// The same by the instruction of processors that have it.
struct Fused {
    [[gnu::target("fma")]] static void MultiplyAdd(const Four& a, const Four& b, const Four& c,
                                                   Four& result) {
        result = _mm256_fmadd_pd(a, b, c);
    }
};
#endif

[[nodiscard]] inline Four Magnitude(const Four& a) {
    using Bits = std::int64_t __attribute__((vector_size(kLanes * sizeof(double))));
    // all bits but the first, which is the sign of a double
    constexpr std::int64_t kAllButSign = std::numeric_limits<std::int64_t>::max();
    return std::bit_cast<Four>(std::bit_cast<Bits>(a) & kAllButSign);
}

template <typename Unit>
struct LanesOf {
    Four high;
    Four low;
};

[[nodiscard]] inline Four InAllLanes(double a) {
    return Four{a, a, a, a};
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> InAllLanes(DoubleDouble a) {
    return {InAllLanes(a.high), InAllLanes(a.low)};
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> ExactSum(const Four& a, const Four& b) {
    const Four sum = a + b;
    const Four part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> Normalised(const Four& a, const Four& b) {
    const Four sum = a + b;
    return {sum, b - (sum - a)};
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> operator-(const LanesOf<Unit>& a) {
    return {-a.high, -a.low};
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> operator+(const LanesOf<Unit>& a, double b) {
    const LanesOf<Unit> sum = ExactSum<Unit>(a.high, InAllLanes(b));
    return Normalised<Unit>(sum.high, sum.low + a.low);
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> operator-(const LanesOf<Unit>& a, double b) {
    return a + -b;
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> Difference(const LanesOf<Unit>& a, const LanesOf<Unit>& b) {
    const LanesOf<Unit> highs = ExactSum<Unit>(a.high, -b.high);
    const LanesOf<Unit> lows = ExactSum<Unit>(a.low, -b.low);
    const LanesOf<Unit> sum = Normalised<Unit>(highs.high, highs.low + lows.high);
    return {sum.high, sum.low + lows.low};
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> LooseProduct(const LanesOf<Unit>& a, const LanesOf<Unit>& b) {
    const Four product = a.high * b.high;
    Four error;
    Unit::MultiplyAdd(a.high, b.high, -product, error);
    return {product, error + (a.high * b.low + a.low * b.high)};
}

template <typename Unit>
[[nodiscard]] LanesOf<Unit> Reciprocal(const LanesOf<Unit>& a) {
    const Four high = 1.0 / a.high;
    Four rest;
    Unit::MultiplyAdd(-high, a.high, InAllLanes(1), rest);
    return {high, (rest - high * a.low) * high};
}

/// Normalised, unlike one by one: where a column cancels its low parts would grow too large.
template <typename Unit>
void Accumulate(LanesOf<Unit>& sum, const Four& high, const Four& low) {
    const LanesOf<Unit> next = ExactSum<Unit>(sum.high, high);
    sum = Normalised<Unit>(next.high, sum.low + (next.low + low));
}

}  // namespace kalvex::specfun
