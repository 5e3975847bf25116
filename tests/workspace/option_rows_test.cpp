// The orders of the options, and that each row is complete.
#include "workspace/option_rows.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "resources/tip_text.h"

namespace kalvex {
namespace {

using Names = std::vector<std::string>;

Names NamesOf(const std::vector<const OptionRow*>& rows) {
    Names names;
    for (const OptionRow* const row : rows)
        names.emplace_back(row->name);
    return names;
}

TEST(OptionRows, AreLoadedInAFixedOrderIntoTheirFields) {
    const std::pair<std::string_view, OptionField> expected[] = {
        {"Axex", &Options::Axex},
        {"ColorText", &Options::ColorText},
        {"Diff", &Options::Diff},
        {"Coord", &Options::Coord},
        {"Setka", &Options::Setka},
        {"Label", &Options::Label},
        {"Screen", &Options::Screen},
        {"TextSize", &Options::TextSize},
        {"InterpolationType", &Options::InterpolationType},
        {"Wight", &Options::Wight},
        {"MaxAngle", &Options::MaxAngle},
        {"Resolution", &Options::Resolution},
        {"MinParam", &Options::MinParam},
        {"MaxParam", &Options::MaxParam},
        {"FineGrid", &Options::FineGrid},
        {"Smooth", &Options::Smooth},
    };
    ASSERT_EQ(kOptionRows.size(), std::size(expected));
    for (std::size_t i = 0; i < kOptionRows.size(); ++i) {
        EXPECT_EQ(kOptionRows[i].name, expected[i].first);
        EXPECT_EQ(kOptionRows[i].field, expected[i].second) << kOptionRows[i].name;
    }
}

TEST(OptionRows, AreSavedShownAndOfferedInFixedOrders) {
    const struct {
        int (*placeOf)(const OptionRow& row);
        Names names;
    } rows[] = {
        {PlaceInSave,
         {"Axex", "Label", "Setka", "Coord", "Diff", "ColorText", "TextSize", "Wight",
          "InterpolationType", "Resolution", "MaxAngle", "FineGrid", "Smooth"}},
        {PlaceInDialog,
         {"Wight", "MaxAngle", "TextSize", "MinParam", "MaxParam", "ColorText", "Label", "Coord",
          "Setka", "Diff", "Axex", "InterpolationType", "FineGrid", "Smooth"}},
        {PlaceInTool,
         {"MaxAngle", "MinParam", "Wight", "TextSize", "Axex", "Setka", "Coord", "Label",
          "FineGrid", "Smooth"}},
    };
    for (const auto& row : rows) {
        const auto ordered = RowsInOrder(row.placeOf);
        EXPECT_EQ(NamesOf(ordered), row.names);
        for (std::size_t i = 1; i < ordered.size(); ++i) {
            EXPECT_LT(row.placeOf(*ordered[i - 1]), row.placeOf(*ordered[i]))
                << ordered[i]->name << " shares a place";
        }
    }
}

TEST(OptionRows, HaveNamesAndNumbersOfTheirOwn) {
    std::set<std::string_view> names;
    std::set<std::string_view> controls;
    std::set<std::string_view> flags;
    std::set<int> ids;
    for (std::size_t i = 0; i < kOptionRows.size(); ++i) {
        const OptionRow& row = kOptionRows[i];
        EXPECT_EQ(OptionIndex(row.field), i) << row.name << " shares a field";
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_NE(row.control.place, kPolarGridPlace) << row.name;
        if (row.control.place != 0) {
            EXPECT_TRUE(controls.insert(row.control.name).second) << row.name;
            EXPECT_TRUE(ids.insert(row.control.id).second) << row.name;
        }
        if (row.tool.place != 0) {
            EXPECT_TRUE(flags.insert(row.tool.name).second) << row.name;
            EXPECT_TRUE(row.tool.name.starts_with("--") && row.tool.help.ends_with('.'))
                << row.name;
            EXPECT_TRUE(row.tool.value.empty() || row.tool.flagSets == 0) << row.name;
        }
    }
}

TEST(OptionRows, HaveACaptionATipAndTheEntriesOfAList) {
    for (const OptionRow& row : kOptionRows) {
        const OptionControl& control = row.control;
        if (control.place == 0) continue;
        const CaptionAndTip texts = SplitTip(Text(control.text));
        EXPECT_FALSE(texts.caption.empty() || texts.tip.empty()) << row.name;
        const bool list =
            control.kind == ControlKind::List || control.kind == ControlKind::HiddenList;
        EXPECT_EQ(control.choices.empty(), !list) << row.name;
        const bool box =
            control.kind == ControlKind::CheckBox || control.kind == ControlKind::GraphBox;
        EXPECT_EQ(box, row.kind == OptionKind::Flag || row.kind == OptionKind::GridKind)
            << row.name;
    }
}

TEST(OptionRows, ReadAndSetTheirOwnField) {
    for (const OptionRow& row : kOptionRows) {
        Options options;
        const Options defaults;
        const double other = ValueOf(defaults, row) == 0.0 ? 1.0 : 0.0;
        SetValue(options, row, other);
        for (const OptionRow& any : kOptionRows) {
            const double expected = any.name == row.name ? other : ValueOf(defaults, any);
            EXPECT_EQ(ValueOf(options, any), expected) << row.name << " " << any.name;
        }
        EXPECT_EQ(StoredNumberOf(options, row), static_cast<std::int32_t>(other)) << row.name;
    }
}

TEST(OptionRows, CutWhatIsStoredTo32Bits) {
    const OptionRow& angle = kOptionRows[OptionIndex(&Options::MaxAngle)];
    for (const auto& [value, stored] :
         {std::pair{1.9, 1}, {-7.0, -7}, {1e30, INT32_MAX}, {-1e30, INT32_MIN}}) {
        Options options;
        options.MaxAngle = value;
        EXPECT_EQ(StoredNumberOf(options, angle), stored) << value;
    }
}

}  // namespace
}  // namespace kalvex
