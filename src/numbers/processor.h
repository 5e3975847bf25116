// What the processor that runs the program can do beyond the least one of its kind, and functions
// that are compiled for both. All code that is chosen by processor is chosen by means of this
// header.
#pragma once

// Whether a function can be compiled for better processors beside the portable form. Clang is left
// out because it does not combine the two attributes below, the address sanitizer because the
// loader chooses before the sanitizer has set up its memory.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define KALVEX_BY_PROCESSOR
#endif

// Stands before a function that spends its time in fused multiplications. The function is compiled
// twice, for processors with the instruction and for all; the loader takes the one that runs.
// Results are the same bit by bit, because std::fma rounds once either way. What the function
// calls is compiled into it ("flatten"), since a function on its own is compiled for all only.
#ifdef KALVEX_BY_PROCESSOR
#define KALVEX_WITH_FMA [[gnu::target_clones("default", "fma"), gnu::flatten]]
#else
#define KALVEX_WITH_FMA
#endif

namespace kalvex {

struct ProcessorFeatures {
    bool fma = false;     ///< x86: fused multiplication
    bool avx2 = false;    ///< x86: AVX2
    bool avx512 = false;  ///< x86: the parts F, DQ and VL of AVX-512
};

/// For a choice between functions that differ in more than how they are compiled. Where nothing is
/// known about the processor, it has no feature, and the portable function is right.
[[nodiscard]] inline ProcessorFeatures FeaturesOfProcessor() {
#if defined(__x86_64__) && defined(__GNUC__)
    return {__builtin_cpu_supports("fma") != 0, __builtin_cpu_supports("avx2") != 0,
            __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512dq") != 0 &&
                __builtin_cpu_supports("avx512vl") != 0};
#else
    return {};
#endif
}

}  // namespace kalvex
