#include <gtest/gtest.h>

#include <limits>

#include "base/encoding.h"
#include "resources/samples.h"
#include "settings/examples.h"
#include "settings/faulty_registry.h"
#include "settings/settings.h"
#include "workspace/defaults.h"
#include "workspace/option_rows.h"

namespace kalvex {
namespace {

using Log = std::vector<std::string>;

void LoadAll(const Registry& registry, Workspace& workspace, const ShowMessage& show) {
    LoadFunctionTexts(registry, workspace, show);
    LoadFunctionSettings(registry, workspace, show);
    LoadSettings(registry, workspace, show);
}

void ExpectRegistryBox(const MessageBox& box) {
    EXPECT_EQ(box.caption, u"Registry error");
    EXPECT_EQ(box.text, u"Restart the program. If the error appears again, reinstall the program.");
    EXPECT_EQ(box.icon, MessageIcon::Information);
    EXPECT_EQ(box.buttons, MessageButtons::Ok);
}

TEST(LoadSettings, ReadsInTheProgramsOrder) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    Workspace workspace;
    LoadSettings(faulty.registry, workspace, ShownBoxes().show);
    Log expected = {"open /"};
    Log ranges;
    for (const OptionRow& row : kOptionRows) {
        if (row.kind == OptionKind::WriteOnly) continue;
        if (row.kind == OptionKind::Range) {
            ranges.push_back("readText /" + std::string(row.name));
        } else {
            expected.push_back("readNumber /" + std::string(row.name));
        }
    }
    for (const char* const name : {"xmin", "Xmax", "Ymin", "Ymax", "Xfactor", "Yfactor"})
        expected.push_back(std::string("readText /") + name);
    expected.insert(expected.end(), ranges.begin(), ranges.end());
    EXPECT_EQ(*faulty.log, expected);
}

TEST(LoadFunctionSettings, ReadsSlotsOneToNineInOrder) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    Workspace workspace;
    LoadFunctionSettings(faulty.registry, workspace, ShownBoxes().show);
    Log expected;
    for (int slot = 1; slot <= 9; ++slot) {
        const std::string key = std::to_string(slot) + "/";
        for (const char* part : {"open ", "readNumber ", "readNumber ", "readNumber ",
                                 "readNumber ", "readNumber ", "readText ", "readText "}) {
            expected.push_back(part + key);
        }
        const std::size_t first = expected.size() - 7;
        const char* const names[] = {"Color",       "type",  "approx", "approx_val",
                                     "approx_val2", "beta1", "beta2"};
        for (std::size_t i = 0; i < 7; ++i)
            expected[first + i] += names[i];
    }
    EXPECT_EQ(*faulty.log, expected);
}

TEST(LoadFunctionTexts, ReadsTheLinesAndClearsTheSelection) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    Workspace workspace;
    for (FunctionEntry& entry : workspace.functions)
        entry.selected = 1;
    ShownBoxes shown;
    LoadFunctionTexts(faulty.registry, workspace, shown.show);
    EXPECT_EQ(workspace.lines, ExampleWorkspace(ToUtf16(SamplePath(kPeakSample))).lines);
    for (const FunctionEntry& entry : workspace.functions)
        EXPECT_EQ(entry.selected, 0);
    EXPECT_TRUE(shown.boxes->empty());
}

TEST(Load, ReadsValuesInTheOtherSpelling) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    faulty.registry.writeText("", "XMIN", u"-3.5");
    faulty.registry.writeNumber("2", "cOLOR", 7);
    Workspace workspace;
    LoadAll(faulty.registry, workspace, ShownBoxes().show);
    EXPECT_EQ(workspace.view.Xmin, -3.5);
    EXPECT_EQ(workspace.functions[1].color, 7);
}

TEST(Load, ShowsOneBoxWhenThereIsNoKeyAtAll) {
    const FaultyRegistry faulty = MakeFaultyRegistry();
    Workspace workspace;
    workspace.view.Xmin = 77;
    workspace.functions[3].color = 77;
    ShownBoxes shown;
    LoadAll(faulty.registry, workspace, shown.show);
    ASSERT_EQ(shown.boxes->size(), 1u);
    ExpectRegistryBox(shown.boxes->front());
    EXPECT_TRUE(workspace.registryErrorShown);
    EXPECT_EQ(workspace.view.Xmin, -10);
    EXPECT_EQ(workspace.functions[3].color, 4);
    EXPECT_EQ(workspace.functions[3].type, EquationType::Decart);
    EXPECT_EQ(workspace.lines[0], u"");
}

struct FaultCase {
    std::vector<std::string> operations;  ///< the operations that fail
    std::size_t boxes;
    bool flag;
};

// KEEP: a key that does not open and a missing number of a function set the flag; a missing value
// of the main key, beta1 and beta2 do not.
const FaultCase kFaults[] = {
    {{"readNumber /TextSize"}, 1, false},
    {{"readNumber /TextSize", "readNumber /Wight", "readText /Ymax"}, 3, false},
    {{"readText /xmin"}, 1, false},
    {{"open /"}, 1, true},
    {{"open 5/"}, 1, true},
    {{"readNumber 1/Color"}, 1, true},
    {{"readNumber 1/Color", "readNumber 2/type", "readNumber /Wight"}, 1, true},
    {{"readText 1/beta1", "readText 9/beta2"}, 2, false},
    {{"readText 1/beta1", "readNumber 2/approx", "readText 2/beta1"}, 2, true},
    {{"readText 1/equ", "readText 2/equ"}, 0, false},
};

TEST(Load, FollowsTheMessageRule) {
    for (const FaultCase& row : kFaults) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        *faulty.fails = [&row](const std::string& operation) {
            return std::find(row.operations.begin(), row.operations.end(), operation) !=
                   row.operations.end();
        };
        Workspace workspace;
        ShownBoxes shown;
        LoadAll(faulty.registry, workspace, shown.show);
        EXPECT_EQ(shown.boxes->size(), row.boxes) << row.operations.front();
        EXPECT_EQ(workspace.registryErrorShown, row.flag) << row.operations.front();
    }
}

TEST(Load, IsSilentOnceTheFlagIsSet) {
    const FaultyRegistry faulty = MakeFaultyRegistry();
    Workspace workspace;
    workspace.registryErrorShown = true;
    ShownBoxes shown;
    LoadAll(faulty.registry, workspace, shown.show);
    EXPECT_TRUE(shown.boxes->empty());
}

/// What is loaded, as text, so that two workspaces can be compared field by field.
std::vector<std::string> Fields(const Workspace& w) {
    std::vector<std::string> fields;
    const auto add = [&fields](double value) { fields.push_back(std::to_string(value)); };
    for (const OptionRow& row : kOptionRows) {
        if (row.kind != OptionKind::WriteOnly) add(ValueOf(w.options, row));
    }
    for (const double v :
         {w.view.Xmin, w.view.Xmax, w.view.Ymin, w.view.Ymax, w.view.Xfactor, w.view.Yfactor}) {
        add(v);
    }
    for (const FunctionEntry& f : w.functions) {
        for (const double v :
             {double(f.color), double(f.type), double(f.method.approx), double(f.method.approx_val),
              double(f.method.approx_val2), f.method.beta1, f.method.beta2}) {
            add(v);
        }
    }
    return fields;
}

Workspace UnusualWorkspace() {
    Workspace w;
    w.options = {.Setka = 2,
                 .Screen = 41,
                 .TextSize = 20,
                 .InterpolationType = 1,
                 .Wight = 2,
                 .MaxAngle = 3.0,
                 .MinParam = 0.5,
                 .MaxParam = 4.5};
    for (const OptionRow& row : kOptionRows) {
        if (row.kind == OptionKind::Flag) SetValue(w.options, row, 1 - ValueOf(w.options, row));
    }
    w.view.Xmin = -1.5;
    w.view.Xmax = 2.5;
    w.view.Ymin = 7;
    w.view.Ymax = 3;  // reversed is a mirrored picture
    w.view.Xfactor = 3;
    w.view.Yfactor = 4;
    for (std::size_t i = 0; i < 9; ++i) {
        w.functions[i].color = 9 - static_cast<std::int32_t>(i);
        w.functions[i].type = EquationType::Implicit;
        w.functions[i].method.approx = 12;
        w.functions[i].method.approx_val = 3;
        w.functions[i].method.approx_val2 = 2;
        w.functions[i].method.beta1 = 2.5;
        w.functions[i].method.beta2 = -4;
    }
    return w;
}

void FillWith(const Registry& registry, const Workspace& w) {
    static_cast<void>(StoreView(registry, w.view, w.options));
    static_cast<void>(StoreFunctionSettings(registry, w.functions));
    for (const OptionRow& row : kOptionRows) {
        if (row.kind != OptionKind::Range && row.kind != OptionKind::WriteOnly)
            static_cast<void>(StoreOption(registry, row.name, StoredNumberOf(w.options, row)));
    }
}

TEST(Load, GivesBackWhatWasStored) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    FillWith(faulty.registry, UnusualWorkspace());
    Workspace workspace;
    LoadAll(faulty.registry, workspace, ShownBoxes().show);
    EXPECT_EQ(Fields(workspace), Fields(UnusualWorkspace()));
}

TEST(Load, FallsBackFieldByField) {
    const FaultyRegistry healthy = MakeFilledRegistry();
    FillWith(healthy.registry, UnusualWorkspace());
    healthy.log->clear();
    Workspace reading;
    LoadAll(healthy.registry, reading, ShownBoxes().show);
    const Log operations = *healthy.log;
    const auto unusual = Fields(UnusualWorkspace());
    const auto defaults = Fields(DefaultWorkspace());
    for (const std::string& operation : operations) {
        if (operation.starts_with("open") || operation.ends_with("equ")) continue;
        *healthy.fails = Exactly(operation);
        Workspace workspace;
        workspace.options.Screen = 123;  // a value from before loading must not stay
        LoadAll(healthy.registry, workspace, ShownBoxes().show);
        const auto loaded = Fields(workspace);
        int different = 0;
        for (std::size_t i = 0; i < loaded.size(); ++i) {
            if (loaded[i] == unusual[i]) continue;
            ++different;
            EXPECT_EQ(loaded[i], defaults[i]) << operation;
        }
        // The field that could not be read has its default, so it differs from the stored value.
        // The colour of slot 5 is the exception: its stored value is the default.
        EXPECT_EQ(different, operation == "readNumber 5/Color" ? 0 : 1) << operation;
    }
}

TEST(Load, TakesAWrongTypeForAMissingValue) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    faulty.registry.writeText("", "Wight", u"2");
    faulty.registry.writeNumber("", "Ymax", 3);
    faulty.registry.writeText("4", "type", u"Polar");
    Workspace workspace;
    ShownBoxes shown;
    LoadSettings(faulty.registry, workspace, shown.show);
    EXPECT_EQ(shown.boxes->size(), 2u);
    EXPECT_EQ(workspace.options.Wight, 1);
    EXPECT_EQ(workspace.view.Ymax, 10);
    LoadFunctionSettings(faulty.registry, workspace, shown.show);
    EXPECT_EQ(shown.boxes->size(), 3u);
    EXPECT_EQ(workspace.functions[3].type, EquationType::Decart);
}

struct BoundsCase {
    std::u16string_view low;
    std::u16string_view high;
    double loadedLow;
    double loadedHigh;
};

const BoundsCase kBounds[] = {
    {u"-2.500000", u"3.000000", -2.5, 3},
    {u"3", u"-2", 3, -2},
    {u"5", u"5", -10, 10},
    {u"word", u"1", 0, 1},
    {u"word", u"", -10, 10},
    {u"1e999", u"1", -10, 10},
    {u"1", u"-1e999", -10, 10},
    {u"nan", u"inf", -10, 10},
    {u"12abc", u"20", 12, 20},
};

TEST(LoadSettings, RepairsUnusableBounds) {
    for (const BoundsCase& row : kBounds) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        faulty.registry.writeText("", "Xmin", row.low);
        faulty.registry.writeText("", "Xmax", row.high);
        faulty.registry.writeText("", "Ymin", u"1");
        Workspace workspace;
        LoadSettings(faulty.registry, workspace, ShownBoxes().show);
        EXPECT_EQ(workspace.view.Xmin, row.loadedLow);
        EXPECT_EQ(workspace.view.Xmax, row.loadedHigh);
        EXPECT_EQ(workspace.view.Ymin, 1);
        faulty.registry.writeText("", "Ymin", row.low);
        faulty.registry.writeText("", "Ymax", row.high);
        LoadSettings(faulty.registry, workspace, ShownBoxes().show);
        EXPECT_EQ(workspace.view.Ymin, row.loadedLow);
        EXPECT_EQ(workspace.view.Ymax, row.loadedHigh);
    }
}

TEST(LoadSettings, RepairsAnUnusableParameterRange) {
    const struct {
        std::u16string_view least;
        std::u16string_view largest;
        bool kept;
    } rows[] = {{u"-1", u"1", true},      {u"1", u"1", false},     {u"2", u"1", false},
                {u"-1e999", u"1", false}, {u"0", u"1e999", false}, {u"0", u"words", false}};
    for (const auto& row : rows) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        faulty.registry.writeText("", "MinParam", row.least);
        faulty.registry.writeText("", "MaxParam", row.largest);
        Workspace workspace;
        LoadSettings(faulty.registry, workspace, ShownBoxes().show);
        EXPECT_EQ(workspace.options.MinParam, row.kept ? -1.0 : Options{}.MinParam);
        EXPECT_EQ(workspace.options.MaxParam, row.kept ? 1.0 : Options{}.MaxParam);
    }
}

TEST(LoadSettings, BringsFlagsAndTheGridIntoRange) {
    struct Row {
        std::int32_t stored, flag, grid;
    };
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    for (const Row row :
         {Row{0, 0, 0}, {1, 1, 1}, {2, 1, 2}, {3, 1, 1}, {256, 1, 1}, {-1, 1, 1}, {kMost, 1, 1}}) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        static_cast<void>(StoreOption(faulty.registry, "Axex", row.stored));
        static_cast<void>(StoreOption(faulty.registry, "Setka", row.stored));
        Workspace workspace;
        LoadSettings(faulty.registry, workspace, ShownBoxes().show);
        EXPECT_EQ(workspace.options.Axex, row.flag) << row.stored;
        EXPECT_EQ(workspace.options.Setka, row.grid) << row.stored;
    }
}

// Stores of earlier versions do not have them.
TEST(LoadSettings, TakesTheDefaultOfALaterOptionWithoutAMessage) {
    for (const auto& [name, field, byDefault] :
         {std::tuple{"FineGrid", &Options::FineGrid, 0}, {"Smooth", &Options::Smooth, 1}}) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        Workspace workspace;
        ShownBoxes shown;
        static_cast<void>(StoreOption(faulty.registry, name, 1 - byDefault));
        LoadSettings(faulty.registry, workspace, shown.show);
        EXPECT_EQ(int{workspace.options.*field}, 1 - byDefault) << name;
        *faulty.fails = Exactly(std::string("readNumber /") + name);
        LoadSettings(faulty.registry, workspace, shown.show);
        EXPECT_EQ(int{workspace.options.*field}, byDefault) << name;
        EXPECT_TRUE(shown.boxes->empty()) << name;
    }
}

TEST(LoadSettings, NeverReadsTheResolution) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    static_cast<void>(StoreOption(faulty.registry, "Resolution", 5));
    Workspace workspace;
    LoadSettings(faulty.registry, workspace, ShownBoxes().show);
    EXPECT_EQ(workspace.options.Resolution, 1);
}

TEST(LoadFunctionTexts, EndsALineWhereItsReaderWould) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    faulty.registry.writeText("1", "equ", std::u16string_view(u"x+1\0junk", 8));
    faulty.registry.writeText("2", "equ", std::u16string(5000, u'x'));
    Workspace workspace;
    LoadFunctionTexts(faulty.registry, workspace, ShownBoxes().show);
    EXPECT_EQ(workspace.lines[0], u"x+1");
    EXPECT_EQ(workspace.lines[1].size(), 255u);
}

TEST(PenWidthOf, IsSaneForAnyStoredNumber) {
    Options options;
    for (const auto& [stored, width, height] :
         {std::array{-5, 1, 1}, {0, 1, 1}, {2, 2, 2}, {14, 14, 14}, {2000000000, 64, 200}}) {
        options.Wight = stored;
        options.TextSize = stored;
        EXPECT_EQ(PenWidthOf(options), width);
        EXPECT_EQ(TextHeightOf(options), height);
    }
}

}  // namespace
}  // namespace kalvex
