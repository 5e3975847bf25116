#include "settings/examples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "workspace/function_list.h"
#include "workspace/shown_boxes.h"

namespace kalvex {
namespace {

TEST(ExampleWorkspace, WithoutAPointFileShowsTheOtherTypes) {
    const Workspace workspace = ExampleWorkspace();
    std::set<EquationType> types;
    int empty = 0;
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_LE(workspace.lines[i].size(), 49u);
        empty += workspace.lines[i].empty() ? 1 : 0;
        if (!workspace.lines[i].empty()) types.insert(workspace.functions[i].type);
    }
    EXPECT_EQ(types, (std::set<EquationType>{EquationType::Polar, EquationType::Decart,
                                             EquationType::Parametric, EquationType::Implicit}));
    EXPECT_EQ(empty, 2);
}

TEST(ExampleWorkspace, ShowsAPointFileWhosePathTheStoreCanKeep) {
    const std::u16string fits(49, u'a');
    const Workspace with = ExampleWorkspace(fits);
    EXPECT_EQ(with.lines[7], fits);
    EXPECT_EQ(with.functions[7].type, EquationType::File);
    EXPECT_EQ(with.functions[7].method.approx, 11);
    EXPECT_TRUE(with.lines[8].empty());
    const Workspace without = ExampleWorkspace(fits + u'a');
    EXPECT_EQ(without.lines, ExampleWorkspace().lines);
    EXPECT_EQ(without.functions[7].type, EquationType::Decart);
}

/// Whether an explicit example is within the default view somewhere right of the origin.
TEST(ExampleWorkspace, LiesInTheDefaultView) {
    Workspace workspace = ExampleWorkspace();
    for (std::size_t i = 0; i < 9; ++i) {
        FunctionEntry& entry = workspace.functions[i];
        if (workspace.lines[i].empty() || entry.type == EquationType::Implicit) continue;
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
