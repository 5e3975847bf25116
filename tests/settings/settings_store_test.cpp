#include <gtest/gtest.h>

#include <limits>

#include "settings/faulty_registry.h"
#include "settings/settings.h"
#include "settings/settings_names.h"
#include "workspace/defaults.h"
#include "workspace/option_rows.h"

namespace kalvex {
namespace {

using Log = std::vector<std::string>;

const char* const kFunctionWrites[] = {
    "writeNumber color",       "writeNumber type", "writeNumber approx", "writeNumber approx_val",
    "writeNumber approx_val2", "writeText beta1",  "writeText beta2"};

Log ExpectedFunctionLog() {
    Log log;
    for (int slot = 1; slot <= 9; ++slot) {
        const std::string key = std::to_string(slot) + "/";
        log.push_back(std::string("open ") + key);
        for (const std::string write : kFunctionWrites) {
            const std::size_t blank = write.find(' ');
            log.push_back(write.substr(0, blank + 1) + key + write.substr(blank + 1));
        }
    }
    return log;
}

TEST(StoreView, WritesInOrderInItsOwnSpelling) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    EXPECT_TRUE(StoreView(faulty.registry, ViewWindow{}, Options{}));
    const Log expected = {"open /",
                          "writeText /Xmin",
                          "writeText /Xmax",
                          "writeText /Ymin",
                          "writeText /Ymax",
                          "writeText /Xfactor",
                          "writeText /Yfactor",
                          "writeText /MinParam",
                          "writeText /MaxParam"};
    EXPECT_EQ(*faulty.log, expected);
}

TEST(StoreFunctionSettings, WritesSlotAfterSlot) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    EXPECT_TRUE(StoreFunctionSettings(faulty.registry, DefaultWorkspace().functions));
    EXPECT_EQ(*faulty.log, ExpectedFunctionLog());
}

TEST(StoreView, StopsAtTheFirstFailure) {
    for (std::size_t n = 0; n < 9; ++n) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        *faulty.fails = FromNth("", static_cast<int>(n));
        EXPECT_FALSE(StoreView(faulty.registry, ViewWindow{}, Options{})) << n;
        EXPECT_EQ(faulty.log->size(), n + 1);
    }
}

TEST(StoreFunctionSettings, StopsAtTheFirstFailure) {
    const Log whole = ExpectedFunctionLog();
    for (std::size_t n = 0; n < whole.size(); ++n) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        *faulty.fails = FromNth("", static_cast<int>(n));
        EXPECT_FALSE(StoreFunctionSettings(faulty.registry, DefaultWorkspace().functions)) << n;
        EXPECT_EQ(*faulty.log, Log(whole.begin(), whole.begin() + static_cast<int>(n) + 1));
    }
}

TEST(StoreFunctionSettings, KeepsWhatWasWrittenBeforeTheFailure) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    FunctionList functions = DefaultWorkspace().functions;
    for (FunctionEntry& entry : functions)
        entry.color = 9;
    *faulty.fails = Exactly("writeNumber 3/type");
    EXPECT_FALSE(StoreFunctionSettings(faulty.registry, functions));
    EXPECT_EQ(faulty.registry.readNumber("3", "color"), 9);
    EXPECT_EQ(faulty.registry.readNumber("4", "color"), 4);
}

TEST(StoreOption, GivesOneOrZero) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    EXPECT_EQ(StoreOption(faulty.registry, "Wight", 2), 1);
    EXPECT_EQ(faulty.registry.readNumber("", "Wight"), 2);
    *faulty.fails = Exactly("writeNumber /Wight");
    EXPECT_EQ(StoreOption(faulty.registry, "Wight", 1), 0);
    *faulty.fails = Exactly("open /");
    EXPECT_EQ(StoreOption(faulty.registry, "Wight", 1), 0);
    EXPECT_EQ(StoreOption(MakeFaultyRegistry().registry, "Wight", 1), 0);
}

TEST(StoreFunctionText, FailsWithoutKeyOrRoom) {
    EXPECT_FALSE(StoreFunctionText(MakeFaultyRegistry().registry, 0, u"x"));
    const FaultyRegistry faulty = MakeFilledRegistry();
    *faulty.fails = Exactly("writeText 9/equ");
    EXPECT_FALSE(StoreFunctionText(faulty.registry, 8, u"x"));
    EXPECT_TRUE(StoreFunctionText(faulty.registry, 7, u"x"));
}

struct LineCase {
    std::u16string line;
    std::u16string stored;
};

// KEEP: the write of 100 bytes cuts a line to 50 code units.
const LineCase kLines[] = {
    {u"", u""},
    {u"sin(x)/x", u"sin(x)/x"},
    {std::u16string(49, u'x'), std::u16string(49, u'x')},
    {std::u16string(50, u'x'), std::u16string(50, u'x')},
    {std::u16string(51, u'x'), std::u16string(50, u'x')},
    {std::u16string(60, u'x'), std::u16string(50, u'x')},
    {std::u16string(u"x\0y", 3), u"x"},
    {std::u16string(49, u'x') + u"\U0001F600", std::u16string(49, u'x') + u'\xD83D'},
};

TEST(StoreFunctionText, CutsToTheFixedSize) {
    for (const LineCase& row : kLines) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        EXPECT_TRUE(StoreFunctionText(faulty.registry, 2, row.line));
        EXPECT_EQ(faulty.registry.readText("3", "equ"), row.stored) << row.line.size();
    }
}

TEST(StoreFunctionTexts, StoresLineAfterLineUntilOneFails) {
    EditorLines lines;
    for (std::size_t i = 0; i < 9; ++i)
        lines[i] = std::u16string(i + 1, u'x');
    for (int n = 0; n <= 18; ++n) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        *faulty.fails = FromNth("", n);
        EXPECT_EQ(StoreFunctionTexts(faulty.registry, lines), n == 18) << n;
        EXPECT_EQ(static_cast<int>(faulty.log->size()), std::min(n + 1, 18)) << n;
        for (int slot = 1; slot <= 9; ++slot) {
            const auto& stored = faulty.store->keys[std::to_string(slot)]["equ"];
            EXPECT_EQ(std::get<std::u16string>(stored) == lines[static_cast<std::size_t>(slot - 1)],
                      2 * slot <= n)
                << n << " " << slot;
        }
    }
}

TEST(StoreAtEnd, StopsAtAFailingViewOnly) {
    const struct {
        const char* failing;
        bool withView, stored;
        std::int32_t color;  ///< of slot 9 afterwards; 9 before, 3 in the workspace
    } rows[] = {{"nothing", true, true, 3},          {"nothing", false, true, 3},
                {"writeText /Ymax", true, false, 9}, {"writeText /Ymax", false, true, 3},
                {"open /", true, false, 9},          {"writeNumber 8/type", true, true, 9}};
    for (const auto& row : rows) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        Workspace workspace = DefaultWorkspace();
        workspace.functions[8].color = 3;
        *faulty.fails = Exactly(row.failing);
        EXPECT_EQ(StoreAtEnd(faulty.registry, workspace, row.withView), row.stored) << row.failing;
        EXPECT_EQ(faulty.registry.readNumber("9", "color"), row.color) << row.failing;
    }
}

struct RealCase {
    double value;
    std::u16string stored;
};

// KEEP: the write of 100 bytes cuts a long number to 50 code units.
const RealCase kReals[] = {
    {2.5, u"2.500000"},
    {-10, u"-10.000000"},
    {1e-7, u"0.000000"},
    {1.0 / 3, u"0.333333"},
    {6.283185307179586, u"6.283185"},
    {1e42, u"1000000000000000044885712678075916785549312.000000"},
    {1e300, u"10000000000000000525047602552044202487044685811081"},
    {std::numeric_limits<double>::infinity(), u"inf"},
};

TEST(StoreView, WritesSixDigits) {
    for (const RealCase& row : kReals) {
        const FaultyRegistry faulty = MakeFilledRegistry();
        ViewWindow view;
        view.Ymax = row.value;
        EXPECT_TRUE(StoreView(faulty.registry, view, Options{}));
        EXPECT_EQ(faulty.registry.readText("", "Ymax"), row.stored);
    }
}

/// The number of values of the main key.
constexpr std::size_t kMainValues = kOptionRows.size() + kViewValues.size();

TEST(CreateDefaultKeys, MakesEverythingOnce) {
    const FaultyRegistry faulty = MakeFaultyRegistry();
    EXPECT_TRUE(CreateDefaultKeys(faulty.registry));
    EXPECT_EQ(faulty.store->keys.size(), 10u);
    EXPECT_EQ(faulty.store->keys[""].size(), kMainValues);
    for (int slot = 1; slot <= 9; ++slot) {
        EXPECT_EQ(faulty.store->keys[std::to_string(slot)].size(), 8u) << slot;
    }
    EXPECT_EQ(faulty.registry.readText("", "MaxParam"), u"6.283185");
    EXPECT_EQ(faulty.registry.readNumber("", "Resolution"), 1);
    faulty.registry.writeNumber("", "Wight", 2);
    EXPECT_FALSE(CreateDefaultKeys(faulty.registry));
    EXPECT_EQ(faulty.registry.readNumber("", "Wight"), 2);
}

TEST(CreateMissingKeys, MakesWhatADamagedStoreLacks) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    faulty.registry.writeNumber("7", "color", 3);
    faulty.store->keys["5"].erase("type");  // only missing keys are made, not missing values
    for (const char* const key : {"", "2", "9"})
        faulty.store->keys.erase(key);
    Workspace workspace = DefaultWorkspace();
    workspace.lines[8] = u"x+1";
    workspace.functions[1].color = 6;
    workspace.options.Wight = 4;
    CreateMissingKeys(faulty.registry, workspace);
    EXPECT_EQ(faulty.store->keys.size(), 10u);
    EXPECT_EQ(faulty.store->keys[""].size(), kMainValues);
    EXPECT_EQ(faulty.store->keys["2"].size(), 8u);
    EXPECT_EQ(faulty.registry.readNumber("", "Wight"), 4);
    EXPECT_EQ(faulty.registry.readNumber("2", "color"), 6);
    EXPECT_EQ(faulty.registry.readText("9", "equ"), u"x+1");
    EXPECT_EQ(faulty.registry.readNumber("7", "color"), 3);
    EXPECT_EQ(faulty.registry.readNumber("5", "type"), std::nullopt);
}

TEST(CreateMissingKeys, StopsAtTheFirstFailure) {
    const FaultyRegistry faulty = MakeFaultyRegistry();
    *faulty.fails = Exactly("writeNumber 1/type");
    CreateMissingKeys(faulty.registry, DefaultWorkspace());
    EXPECT_EQ(faulty.log->back(), "writeNumber 1/type");
}

TEST(CreateDefaultKeys, LeavesNothingForTheLoaderToReport) {
    const FaultyRegistry faulty = MakeFilledRegistry();
    Workspace workspace;
    ShownBoxes shown;
    LoadFunctionTexts(faulty.registry, workspace, shown.show);
    LoadFunctionSettings(faulty.registry, workspace, shown.show);
    LoadSettings(faulty.registry, workspace, shown.show);
    EXPECT_TRUE(shown.boxes->empty());
}

TEST(CreateDefaultKeys, ReportsAStoreThatFailsAnywhere) {
    const FaultyRegistry counting = MakeFaultyRegistry();
    static_cast<void>(CreateDefaultKeys(counting.registry));
    const int operations = static_cast<int>(counting.log->size());
    EXPECT_EQ(operations, 10 + static_cast<int>(kMainValues) + 9 * 8);
    for (int n = 0; n < operations; ++n) {
        const FaultyRegistry faulty = MakeFaultyRegistry();
        *faulty.fails = FromNth("", n);
        EXPECT_FALSE(CreateDefaultKeys(faulty.registry)) << n;
        EXPECT_EQ(static_cast<int>(faulty.log->size()), n + 1);
    }
}

}  // namespace
}  // namespace kalvex
