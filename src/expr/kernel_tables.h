// The tables that the kernel files define, one file for each instruction set.
#pragma once

#include "expr/kernels.h"

namespace kalvex {

extern const KernelTable kBaselineKernels;
extern const KernelTable kAvx2Kernels;
extern const KernelTable kAvx512Kernels;
extern const KernelTable kNeonKernels;

}  // namespace kalvex
