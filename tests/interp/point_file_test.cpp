#include "interp/point_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "interp/line_pieces.h"

namespace kalvex {
namespace {

using Numbers = std::vector<double>;

struct Row {
    std::string text;
    Numbers x;
    Numbers y;
};

void ExpectPoints(const Row& row) {
    const PointFile file = ReadPointText(row.text);
    EXPECT_EQ(file.error, PointFileError::None) << testing::PrintToString(row.text);
    EXPECT_EQ(file.points.x, row.x) << testing::PrintToString(row.text);
    EXPECT_EQ(file.points.y, row.y) << testing::PrintToString(row.text);
}

TEST(PointText, HoldsOnePointPerLine) {
    const Row rows[] = {
        {"0 1\n1 2\n2 0\n", {0, 1, 2}, {1, 2, 0}},
        {"0 1\n1 2\n2 0", {0, 1, 2}, {1, 2, 0}},
        {"0 1\r\n1 2\r\n2 0\r\n", {0, 1, 2}, {1, 2, 0}},
        {"1   2\n", {1}, {2}},
        {"1 2 3\n", {1}, {3}},
        {"1 what,ever;\t 3\n", {1}, {3}},
        {"1 2\r3 4\r\n", {1}, {4}},
        {"-1.5e-3 +2E2\n", {-1.5e-3}, {200}},
        {".5 5.\n", {0.5}, {5}},
        {"\t1 \t2\n", {1}, {2}},
        {"3 1\n1 1\n1 2\n", {3, 1, 1}, {1, 1, 2}},
        {"1e-400 2\n", {0}, {2}},
        {"", {}, {}},
        {"\xEF\xBB\xBF"
         "1 2\n",
         {1},
         {2}},
        {"1 \xC3\xA4\xF0\x9F\x98\x80 2\n", {1}, {2}},
        {"1 \xE4\xFF\xC3 2\n", {1}, {2}},
    };
    for (const Row& row : rows)
        ExpectPoints(row);
}

// A short line sets the number of points, and the next point replaces the last one.
TEST(PointText, CountsUpToAShortLine) {
    const Row rows[] = {
        {"0 1\n1 2\n2 0\n\n", {0, 1, 2}, {1, 2, 0}},
        {"0 1\n1 2\n2 0\n\r\n", {0, 1, 2}, {1, 2, 0}},
        {"0 1\n1 2\n2 0\n7\n", {0, 1, 2}, {1, 2, 0}},
        {"0 1\n1 2\n2 0\n7", {0, 1, 2}, {1, 2, 0}},
        {"0 1\n1 2\n2 0\n12", {0, 1, 2}, {1, 2, 0}},
        {"0 1\n1 2\n\n5 6\n7 8\n", {0, 5}, {1, 6}},
        {"0 1\n1 2\n\n5 6\n", {0, 5}, {1, 6}},
        {"0 1\n1 2\n\n5 6\n\n", {0, 5}, {1, 6}},
        {"0 1\n1 2\n\n5 6\n7 8\n\n", {0, 5, 7}, {1, 6, 8}},
        {"0 1\n1 2\n\n\n", {0}, {1}},
        {"0 1\n1 2\n\n\n8 9\n", {8}, {9}},
        {"\n", {}, {}},
        {"\n1 2\n", {}, {}},
        {"\n1 2\n3 4\n", {}, {}},
        {"\n1 2\n3 4\n\n", {3}, {4}},
        {"\n\n\n1 2\n3 4\n5 6\n7 8\n\n", {7}, {8}},
    };
    for (const Row& row : rows)
        ExpectPoints(row);
}

TEST(PointText, IsReadInPiecesOf255Characters) {
    const std::string blanks(300, ' ');
    // 254 characters and the line feed are one piece.
    ExpectPoints({"1" + blanks.substr(0, 252) + "2\n3 4\n", {1, 3}, {2, 4}});
    // 255 characters are a piece; the line feed behind them is a short line of its own.
    ExpectPoints({"1" + blanks.substr(0, 253) + "2\n", {1}, {2}});
    ExpectPoints({"0 0\n1" + blanks.substr(0, 253) + "2\n3 4\n", {0, 3}, {0, 4}});
    // A longer line is cut into two points.
    ExpectPoints({"1" + blanks.substr(0, 253) + "23 4\n", {1, 3}, {2, 4}});
    // CR LF counts as one character when pieces are cut.
    ExpectPoints({"1" + blanks.substr(0, 252) + "2\r\n3 4\r\n", {1, 3}, {2, 4}});
    // Pieces are measured in characters, not in bytes.
    std::string umlauts;
    for (int i = 0; i < 250; ++i)
        umlauts += "\xC3\xA4";
    ExpectPoints({"1 " + umlauts + " 2\n3 4\n", {1, 3}, {2, 4}});
}

// KEEP row: a missing y is 0.
TEST(PointText, ReadsAMissingYAsZero) {
    ExpectPoints({"1 2 \n3 4\n", {1, 3}, {0, 4}});
    ExpectPoints({"3 4\n5  ", {3, 5}, {4, 0}});
    // A piece of 255 characters that ends before the y; the rest is a short line.
    ExpectPoints({"1" + std::string(254, ' ') + "2\n", {1}, {0}});
}

TEST(PointText, IsRefusedAsAWhole) {
    const std::string lines[] = {
        "1,5 2",
        "1 2,5",
        "1;2",
        "1\t2",
        "123",
        "x 1",
        "1 x",
        "1x 2",
        "1 2x",
        " 1 2",
        "   ",
        "inf 1",
        "1 inf",
        "nan 1",
        "1 -nan",
        "0x10 1",
        "1 0x1p3",
        "1e999 1",
        "1 -1e400",
        "1e 2",
        "1.2.3 4",
        "--1 2",

        std::string("1 2\0", 4),
        "\xC2\xA0"
        "1 2",
        "1\xC2\xA0"
        "2",
        "# 1 2",
        "1 .",
    };
    for (const std::string& line : lines) {
        for (const std::string& text : {line + "\n", line, "0 0\n" + line + "\n9 9\n"}) {
            const PointFile file = ReadPointText(text);
            EXPECT_EQ(file.error, PointFileError::Malformed) << testing::PrintToString(text);
            EXPECT_TRUE(file.points.x.empty());
            EXPECT_EQ(file.line, text.starts_with("0 0\n") ? 2u : 1u);
        }
    }
}

TEST(PointText, HasALimit) {
    std::string text;
    for (std::size_t i = 0; i < kMostLines; ++i)
        text += "1 2\n";
    EXPECT_EQ(ReadPointText(text).points.x.size(), kMostLines);
    text += "1 2\n";
    EXPECT_EQ(ReadPointText(text).error, PointFileError::TooManyLines);
    EXPECT_EQ(ReadPointText(std::string(kMostLines + 1, '\n')).error, PointFileError::TooManyLines);
}

TEST(LinePieces, DoNotDependOnHowTheBytesArrive) {
    std::mt19937 random(3);
    const std::string parts[] = {"1 2",
                                 "\n",
                                 "\r",
                                 "\r\n",
                                 "\xEF\xBB\xBF",
                                 "\xC3\xA4",
                                 "\xE2\x82",
                                 "\xF0\x9F\x98\x80",
                                 "\xFF",
                                 " ",
                                 std::string(254, 'a'),
                                 std::string(1, '\0')};
    for (int run = 0; run < 500; ++run) {
        std::string text;
        for (int i = 0; i < 20; ++i)
            text += parts[random() % std::size(parts)];
        LinePieces whole;
        Feed(whole, text);
        EndFeed(whole);
        LinePieces bytes;
        std::vector<std::u16string> expected;
        std::vector<std::u16string> found;
        while (NextPiece(whole))
            expected.push_back(whole.piece);
        for (const char byte : text) {
            Feed(bytes, {&byte, 1});
            while (NextPiece(bytes))
                found.push_back(bytes.piece);
        }
        EndFeed(bytes);
        while (NextPiece(bytes))
            found.push_back(bytes.piece);
        EXPECT_EQ(found, expected) << testing::PrintToString(text);
    }
}

class PointFileTest : public testing::Test {
  protected:
    PointFileTest() { std::filesystem::create_directory(folder); }
    ~PointFileTest() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name, std::ios::binary) << text;
        return (folder / name).string();
    }
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("kalvex-points-" + std::to_string(getpid()));
};

TEST_F(PointFileTest, IsRead) {
    const PointFile file = ReadPointFile(Write("\xC3\xA4 b.txt", "0 1\r\n2 3\r\n"));
    EXPECT_EQ(file.error, PointFileError::None);
    EXPECT_EQ(file.points.x, (Numbers{0, 2}));
    EXPECT_EQ(file.points.y, (Numbers{1, 3}));
    EXPECT_TRUE(ReadPointFile(Write("empty", "")).points.x.empty());
}

TEST_F(PointFileTest, IsReadAcrossBlocks) {
    std::string text;
    Numbers x;
    for (int i = 0; i < 50000; ++i) {
        text += std::to_string(i) + " 7\r\n";
        x.push_back(i);
    }
    EXPECT_EQ(ReadPointFile(Write("large", text)).points.x, x);
}

TEST_F(PointFileTest, IsRefusedWhenItIsNoReadableFile) {
    const std::string pipe = (folder / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    std::filesystem::create_symlink(folder / "loop", folder / "loop");
    const std::string paths[] = {"",
                                 (folder / "missing").string(),
                                 folder.string(),
                                 "/dev/zero",
                                 "/dev/full",
                                 "/dev/null",
                                 pipe,
                                 (folder / "dangling").string(),
                                 "/",
                                 (folder / "loop").string(),
                                 Write("file", "1 2\n") + "/below",
                                 std::string(100000, 'x'),
                                 Write("cut", "1 2\n") + std::string("\0", 1)};
    for (const std::string& path : paths) {
        const PointFile file = ReadPointFile(path);
        EXPECT_EQ(file.error, PointFileError::Unreadable) << path.substr(0, 80);
        EXPECT_TRUE(file.points.x.empty());
    }
}

TEST_F(PointFileTest, SurvivesAnyBytes) {
    std::mt19937 random(9);
    for (int run = 0; run < 300; ++run) {
        std::string bytes(1 + random() % 3000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 4 == 0 ? "0123456789 \n\r.e-"[random() % 16]
                                                       : random());
        const PointFile file = ReadPointFile(Write("bytes", bytes));
        EXPECT_EQ(file.points.x.size(), file.points.y.size());
    }
}

}  // namespace
}  // namespace kalvex
