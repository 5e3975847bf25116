// Checks the rooms of this source tree, and that the rules find the mistakes in an invented one.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "rooms/room_rules.h"

namespace kalvex::rooms {

void PrintTo(const Room& room, std::ostream* stream) {
    *stream << room.name << " uses";
    for (const std::string& name : room.uses)
        *stream << ' ' << name;
    *stream << "; libraries";
    for (const std::string& name : room.libraries)
        *stream << ' ' << name;
}

namespace {

using Lines = std::vector<std::string>;

std::string Contents(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::vector<Room> TableOfTheBuild() {
    return ReadRooms(Contents(KALVEX_ROOM_TABLE));
}

const std::vector<Room> kHouse = {
    {"cellar", {}, {}}, {"hall", {"cellar"}, {"Qt6::Gui"}}, {"roof", {"cellar"}, {}}};

/// The invented source tree with one more file.
std::vector<SourceFile> HouseWith(const SourceFile& file) {
    return {{"cellar/coal.h", {{"vector", false}}},
            {"cellar/coal.cpp", {{"cellar/coal.h"}, {"unistd.h", false}}},
            {"hall/door.h", {{"cellar/coal.h"}, {"QImage", false}}},
            {"roof/tile.cpp", {{"cellar/coal.h"}, {"cstdint", false}}},
            file};
}

TEST(Rooms, TheTableGoesDownward) {
    EXPECT_GE(TableOfTheBuild().size(), 11u);
    EXPECT_EQ(WrongRows(TableOfTheBuild()), Lines{});
}

TEST(Rooms, NoFileIncludesWhatItsRoomMayNotUse) {
    const std::vector<SourceFile> files = ReadSources(KALVEX_SOURCES);
    EXPECT_GT(files.size(), 300u);
    EXPECT_EQ(WrongIncludes(TableOfTheBuild(), files), Lines{});
}

TEST(Rooms, TheTableHoldsNothingThatIsNotUsed) {
    EXPECT_EQ(UnusedEntries(TableOfTheBuild(), ReadSources(KALVEX_SOURCES)), Lines{});
}

TEST(Rooms, NoFilesIncludeEachOtherInACircle) {
    EXPECT_EQ(Circles(ReadSources(KALVEX_SOURCES)), Lines{});
}

TEST(Rooms, AreDocumentedAsTheyAre) {
    EXPECT_EQ(ReadDocumentedRooms(Contents(KALVEX_ARCHITECTURE)), TableOfTheBuild());
}

TEST(RoomRules, ReadTheTables) {
    const std::vector<Room> rooms = {{"cellar", {}, {}}, {"hall", {"cellar", "x"}, {"A::B", "C"}}};
    EXPECT_EQ(ReadRooms("cellar||\nhall|cellar x|A::B C\n"), rooms);
    EXPECT_EQ(
        ReadDocumentedRooms("# Rooms\n| room | holds | uses | libraries |\n|---|---|---|---|\n"
                            "| `cellar` | coal, wood | | |\n"
                            "| `hall` | doors | cellar, x | `A::B`, `C` |\n"),
        rooms);
}

TEST(RoomRules, ReadIncludeLines) {
    const std::vector<Include> includes = ReadIncludes(
        "// #include <no>\n#include <vector>\n  # include \"a/b.h\"  // why\nint x;\n");
    ASSERT_EQ(includes.size(), 2u);
    EXPECT_EQ(includes[0].target, "vector");
    EXPECT_FALSE(includes[0].quoted);
    EXPECT_EQ(includes[1].target, "a/b.h");
    EXPECT_TRUE(includes[1].quoted);
}

TEST(RoomRules, FindWrongRows) {
    EXPECT_EQ(WrongRows(kHouse), Lines{});
    EXPECT_EQ(WrongRows({{"hall", {"cellar"}, {}}, {"cellar", {}, {}}}),
              Lines{"hall uses cellar, which is not below it"});
    EXPECT_EQ(WrongRows({{"hall", {"hall"}, {}}}), Lines{"hall uses hall, which is not below it"});
    EXPECT_EQ(WrongRows({{"hall", {}, {}}, {"hall", {}, {}}}), Lines{"hall has two rows"});
}

TEST(RoomRules, FindWrongIncludes) {
    const struct {
        SourceFile file;
        Lines wrong;
    } rows[] = {
        {{"roof/a.cpp", {{"cellar/coal.h"}, {"roof/tile.cpp"}, {"string", false}}}, {}},
        {{"cellar/a.h", {{"hall/door.h"}}}, {"cellar/a.h includes hall/door.h"}},
        {{"roof/a.h", {{"hall/door.h"}}}, {"roof/a.h includes hall/door.h"}},
        {{"roof/deep/a.inc", {{"hall/door.h"}}}, {"roof/deep/a.inc includes hall/door.h"}},
        {{"roof/a.h", {{"QImage", false}}}, {"roof/a.h includes QImage"}},
        {{"hall/a.h", {{"QImage", false}}}, {}},
        {{"hall/a.h", {{"sleef.h", false}}}, {"hall/a.h includes sleef.h"}},
        {{"hall/a.h", {{"hwy/highway.h", false}}}, {"hall/a.h includes hwy/highway.h"}},
        {{"roof/a.h", {{"tile.cpp"}}}, {"roof/a.h includes tile.cpp"}},
        {{"roof/a.h", {{"cellar/none.h"}}}, {"roof/a.h includes cellar/none.h"}},
        {{"shed/a.h", {{"cellar/coal.h"}}}, {"shed/a.h is in no room"}},
        {{"main.cpp", {}}, {"main.cpp is in no room"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(WrongIncludes(kHouse, HouseWith(row.file)), row.wrong) << row.file.path;
}

TEST(RoomRules, FindUnusedEntries) {
    const SourceFile door{"hall/door.h", {}};
    EXPECT_EQ(UnusedEntries(kHouse, HouseWith(door)), Lines{});
    EXPECT_EQ(UnusedEntries(kHouse, {door}),
              (Lines{"hall does not use cellar", "hall does not use Qt6::Gui",
                     "roof does not use cellar"}));
}

TEST(RoomRules, FindCircles) {
    EXPECT_EQ(Circles(HouseWith({"roof/a.h", {{"roof/b.h"}}})), Lines{});
    // A header and its source are one unit, so this is a circle although the compiler takes it.
    EXPECT_EQ(Circles({{"roof/a.cpp", {{"roof/a.h"}, {"roof/b.h"}}},
                       {"roof/b.h", {{"roof/c.h"}}},
                       {"roof/c.cpp", {{"roof/a.h"}}}}),
              Lines{"roof/a -> roof/b -> roof/c -> roof/a"});
    EXPECT_EQ(Circles({{"roof/a.h", {{"roof/b.h"}}}, {"roof/b.h", {{"roof/a.h"}, {"roof/c.h"}}}}),
              Lines{"roof/a -> roof/b -> roof/a"});
}

}  // namespace
}  // namespace kalvex::rooms
