// Which tables the processor can run.
#include "expr/kernel_tables.h"

namespace kalvex {

KernelTables AvailableKernelTables() {
    KernelTables available;
#if defined(KALVEX_X86)
    const bool avx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    const bool avx512 = avx2 && __builtin_cpu_supports("avx512f") &&
                        __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
    if (avx512) available.tables[available.count++] = &kAvx512Kernels;
    if (avx2) available.tables[available.count++] = &kAvx2Kernels;
#elif defined(KALVEX_ARM64)
    available.tables[available.count++] = &kNeonKernels;
#endif
    available.tables[available.count++] = &kBaselineKernels;
    return available;
}

const KernelTable& ActiveKernels() {
    static const KernelTable& active = *AvailableKernelTables().tables[0];
    return active;
}

}  // namespace kalvex
