// Calls of one kernel of one table, for tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "expr/kernels.h"

namespace kalvex::testing_support {

/// Results of a kernel for arrays of any length. The second operand may be left out.
inline std::vector<double> Compute(const KernelTable& table, OpCode op, std::vector<double> a,
                                   std::vector<double> b = {}, int immediate = 0) {
    const std::size_t wanted = a.size();
    a.resize((wanted + kPaddedLanes - 1) / kPaddedLanes * kPaddedLanes, 1.0);
    b.resize(a.size(), 1.0);
    std::vector<double> out(a.size());
    std::vector<std::int32_t> errors(a.size());
    const Source sources[] = {{a.data(), 0.0}, {b.data(), 0.0}};
    table.kernels[static_cast<std::size_t>(op)](
        {out.data(), sources, out.size(), errors.data(), immediate});
    out.resize(wanted);
    return out;
}

template <typename Check>
void ForEachTable(Check check) {
    const KernelTables available = AvailableKernelTables();
    for (std::size_t t = 0; t < available.count; ++t) {
        SCOPED_TRACE(available.tables[t]->name);
        check(*available.tables[t]);
    }
}

}  // namespace kalvex::testing_support
