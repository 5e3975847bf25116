#include "workspace/defaults.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "workspace/faulty_registry.h"
#include "workspace/function_list.h"

namespace kalvex {
namespace {

TEST(DefaultWorkspace, IsANewUsers) {
    const Workspace workspace = DefaultWorkspace();
    for (std::size_t i = 0; i < 9; ++i) {
        const FunctionEntry& entry = workspace.functions[i];
        EXPECT_EQ(entry.type, 2);
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

TEST(ExampleWorkspace, WithoutAPointFileShowsTheOtherTypes) {
    const Workspace workspace = ExampleWorkspace();
    std::set<std::int32_t> types;
    int empty = 0;
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_LE(workspace.lines[i].size(), 49u);
        empty += workspace.lines[i].empty() ? 1 : 0;
        if (!workspace.lines[i].empty()) types.insert(workspace.functions[i].type);
    }
    EXPECT_EQ(types, (std::set<std::int32_t>{1, 2, 3, 5}));
    EXPECT_EQ(empty, 2);
}

TEST(ExampleWorkspace, ShowsAPointFileWhosePathTheStoreCanKeep) {
    const std::u16string fits(49, u'a');
    const Workspace with = ExampleWorkspace(fits);
    EXPECT_EQ(with.lines[7], fits);
    EXPECT_EQ(with.functions[7].type, 4);
    EXPECT_EQ(with.functions[7].method.approx, 11);
    EXPECT_TRUE(with.lines[8].empty());
    const Workspace without = ExampleWorkspace(fits + u'a');
    EXPECT_EQ(without.lines, ExampleWorkspace().lines);
    EXPECT_EQ(without.functions[7].type, 2);
}

TEST(ExampleWorkspace, PreparesWithoutABox) {
    Workspace workspace = ExampleWorkspace();
    for (std::size_t i = 0; i < 9; ++i) {
        workspace.functions[i].selected = workspace.lines[i].empty() ? 0 : 1;
    }
    const FaultyRegistry faulty = MakeFilledRegistry();
    ShownBoxes shown;
    EXPECT_TRUE(
        PrepareFunctions(workspace.functions, workspace.lines, faulty.registry, shown.show));
    EXPECT_TRUE(shown.boxes->empty());
}

/// Whether an explicit example is within the default view somewhere right of the origin.
TEST(ExampleWorkspace, LiesInTheDefaultView) {
    Workspace workspace = ExampleWorkspace();
    for (std::size_t i = 0; i < 9; ++i) {
        FunctionEntry& entry = workspace.functions[i];
        if (workspace.lines[i].empty() || entry.type == 5) continue;
        entry.selected = 1;
        ASSERT_TRUE(PrepareFunction(entry, 0, workspace.lines[i], ShownBoxes().show));
        int inside = 0;
        for (int step = 1; step <= 60; ++step) {
            const double value = EvaluateExpression(entry.compiled[0], step * 0.1);
            inside += std::isfinite(value) && std::abs(value) <= 10 ? 1 : 0;
        }
        EXPECT_GE(inside, 30) << i;
    }
}

}  // namespace
}  // namespace kalvex
