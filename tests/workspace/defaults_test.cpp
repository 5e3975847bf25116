#include "workspace/defaults.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

TEST(DefaultWorkspace, IsANewUsers) {
    const Workspace workspace = DefaultWorkspace();
    for (std::size_t i = 0; i < 9; ++i) {
        const FunctionEntry& entry = workspace.functions[i];
        EXPECT_EQ(entry.type, EquationType::Decart);
        EXPECT_EQ(entry.color, static_cast<std::int32_t>(i) + 1);
        EXPECT_EQ(entry.selected, 0);
        EXPECT_EQ(entry.method.approx, 0);
        EXPECT_EQ(entry.method.approx_val, 1);
        EXPECT_EQ(entry.method.approx_val2, 0);
        EXPECT_EQ(entry.method.beta1, 1);
        EXPECT_EQ(entry.method.beta2, 0);
        EXPECT_TRUE(workspace.lines[i].empty());
    }
    EXPECT_EQ(workspace.view.Xmin, -10);
    EXPECT_EQ(workspace.view.Ymax, 10);
    EXPECT_EQ(workspace.view.Xfactor, 2);
    EXPECT_EQ(workspace.options.MinParam, 0);
    EXPECT_EQ(workspace.options.MaxParam, 6.283185307179586);
}

}  // namespace
}  // namespace kalvex
