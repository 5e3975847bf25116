#include "cli/view_options.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "workspace/option_rows.h"

namespace kalvex {
namespace {

/// The options after a command line was parsed.
Options Parsed(const std::vector<std::string>& words) {
    CLI::App command;
    const auto view = AddViewOptions(command);
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    command.parse(reversed);
    return view->options;
}

TEST(ViewOptions, SetTheOptionOfTheirRowAndNoOther) {
    for (const OptionRow* const row : RowsInOrder(PlaceInTool)) {
        if (row->kind == OptionKind::Range) continue;
        std::vector<std::string> words = {std::string(row->tool.name)};
        if (!row->tool.value.empty()) words.push_back(std::to_string(row->tool.largest));
        const Options options = Parsed(words);
        for (const OptionRow& any : kOptionRows) {
            const double set = row->tool.value.empty() ? row->tool.flagSets : row->tool.largest;
            const double expected = any.name == row->name ? set : ValueOf(Options{}, any);
            EXPECT_EQ(ValueOf(options, any), expected) << row->tool.name << " " << any.name;
        }
    }
}

TEST(ViewOptions, AreFlagsThatSwitchOffOrOn) {
    const auto [noGrid, fineGrid, pixels] =
        std::tuple{Parsed({"--no-grid"}), Parsed({"--fine-grid"}), Parsed({"--pixels"})};
    EXPECT_EQ(int{noGrid.Setka}, 0);
    EXPECT_EQ(int{noGrid.FineGrid}, 0);
    EXPECT_EQ(int{noGrid.Smooth}, 1);
    EXPECT_EQ(int{fineGrid.FineGrid}, 1);
    EXPECT_EQ(int{pixels.Smooth}, 0);
}

TEST(ViewOptions, RefuseNumbersOutsideTheirRange) {
    for (const OptionRow* const row : RowsInOrder(PlaceInTool)) {
        if (row->tool.largest == 0) continue;
        const std::string name(row->tool.name);
        for (const std::string& text :
             {std::string("0"), std::to_string(row->tool.largest + 1), std::string("1.5")}) {
            EXPECT_THROW(Parsed({name, text}), CLI::ParseError) << name << " " << text;
        }
    }
}

TEST(ViewOptions, TakeTheRangeOfParameters) {
    const Options options = Parsed({"--param", "-1.5,2"});
    EXPECT_EQ(options.MinParam, -1.5);
    EXPECT_EQ(options.MaxParam, 2.0);
}

TEST(ViewOptions, TakeTheKindOfTheGrid) {
    EXPECT_EQ(int{Parsed({"--grid-kind", "polar"}).Setka}, 2);
    EXPECT_EQ(int{Parsed({"--grid-kind", "rectangular"}).Setka}, 1);
    EXPECT_THROW(Parsed({"--no-grid", "--grid-kind", "polar"}), CLI::ParseError);
}

}  // namespace
}  // namespace kalvex
