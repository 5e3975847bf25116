// Which tables the processor can run, the fastest first.
#include "expr/kernel_tables.h"
#include "numbers/processor.h"

namespace kalvex {

KernelTables AvailableKernelTables() {
    KernelTables available;
#if defined(KALVEX_X86)
    const ProcessorFeatures has = FeaturesOfProcessor();
    const bool avx2 = has.avx2 && has.fma;
    if (avx2 && has.avx512) available.tables[available.count++] = &kAvx512Kernels;
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
