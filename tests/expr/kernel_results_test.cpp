#include "kernel_results.h"

#include <gtest/gtest.h>

#include <string>

namespace kalvex {
namespace {

TEST(KernelResults, AreThoseOfTheOtherKindsOfProcessor) {
    const auto results = testing_support::ReadKernelResults();
    ASSERT_GT(results.size(), 400u);
    const KernelTables available = AvailableKernelTables();
    for (std::size_t t = 0; t < available.count; ++t) {
        const KernelTable& table = *available.tables[t];
        if (std::string(table.name) == "baseline") continue;  // it has no fused multiply-add
        for (const auto& [text, hash] : results)
            EXPECT_EQ(testing_support::HashOfResults(text, table), hash)
                << table.name << ": " << text;
    }
}

}  // namespace
}  // namespace kalvex
