#include "graph/file_lines.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "base/encoding.h"

namespace kalvex {
namespace {

/// Records the boxes that are shown and answers their questions from a list.
struct Shown {
    std::vector<MessageBox> boxes;
    std::vector<MessageAnswer> answers;
    ShowMessage Show() {
        return [this](const MessageBox& box) {
            boxes.push_back(box);
            if (box.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
            const MessageAnswer answer = answers.front();
            answers.erase(answers.begin());
            return answer;
        };
    }
};

class FileLines : public testing::Test {
  protected:
    FileLines() { std::filesystem::create_directory(folder); }
    ~FileLines() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    /// Puts a selected File line into a slot and writes its file with this number of points.
    void Line(std::size_t slot, int points, std::int32_t approx = 8, std::int32_t terms = 1) {
        const std::string name = "points" + std::to_string(slot) + ".txt";
        std::ofstream file(folder / name);
        for (int i = 0; i < points; ++i)
            file << i << ' ' << i * i << '\n';
        FunctionEntry& entry = functions[slot];
        entry.type = EquationType::File;
        entry.selected = 1;
        entry.method.approx = approx;
        entry.method.approx_val = terms;
        entry.text = ToUtf16(name);
        entry.workingText = ToUtf16((folder / name).string());
    }
    bool Prepare() { return PrepareFileLines(functions, shown.Show()); }

    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("kalvex-lines-" + std::to_string(getpid()));
    FunctionList functions;
    Shown shown;
};

TEST_F(FileLines, AreReadWhenTheyAreSelected) {
    Line(0, 3);
    Line(4, 5);
    Line(7, 2);
    functions[7].selected = 0;
    functions[2].type = EquationType::Decart;
    functions[2].selected = 1;
    functions[2].workingText = u"no/such/file";
    EXPECT_TRUE(Prepare());
    EXPECT_TRUE(shown.boxes.empty());
    ASSERT_EQ(CountOf(functions[4].points), 5u);
    EXPECT_EQ(functions[4].points.x[3], 3);
    EXPECT_EQ(functions[4].points.y[3], 9);
    EXPECT_EQ(CountOf(functions[7].points), 0u);
    functions[7].selected = 2;
    EXPECT_TRUE(Prepare());
    EXPECT_EQ(CountOf(functions[7].points), 0u) << "1 alone means selected";
    Line(4, 2);
    EXPECT_TRUE(Prepare());
    EXPECT_EQ(CountOf(functions[4].points), 2u);
}

TEST_F(FileLines, StopAtAFileThatCannotBeRead) {
    Line(1, 4);
    Line(3, 60, 0, 99);
    Line(5, 4);
    functions[3].workingText = u"/no/such/file";
    functions[3].points = {{1, 2}, {3, 4}};
    EXPECT_FALSE(Prepare());
    ASSERT_EQ(shown.boxes.size(), 1u);
    EXPECT_EQ(shown.boxes[0].caption, u"Warning!");
    EXPECT_EQ(shown.boxes[0].text, u"Error in file!");
    EXPECT_EQ(shown.boxes[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(CountOf(functions[1].points), 4u);
    EXPECT_EQ(CountOf(functions[3].points), 0u);
    EXPECT_EQ(CountOf(functions[5].points), 0u);
}

TEST_F(FileLines, NeedAGoodNumberOfTerms) {
    const struct {
        int points;
        std::int32_t approx;
        std::int32_t terms;
        bool good;
    } rows[] = {
        {5, 0, 1, true},          {5, 0, 5, true},   {5, 0, 6, false},
        {5, 0, 0, false},         {5, 0, -1, false}, {0, 0, 1, false},
        {5, 0, INT32_MIN, false}, {5, 1, 99, true},  {5, 10, -7, true},
    };
    for (const auto& row : rows) {
        shown = {};
        Line(6, row.points, row.approx, row.terms);
        EXPECT_EQ(Prepare(), row.good) << row.terms;
        EXPECT_EQ(shown.boxes.size(), row.good ? 0u : 1u);
    }
    EXPECT_TRUE(Prepare());
}

TEST_F(FileLines, NameTheFirstFunctionWithABadNumberOfTermsAndAskNothing) {
    Line(2, 70);
    Line(3, 5, 0, 6);
    Line(5, 5, 0, 7);
    EXPECT_FALSE(Prepare());
    ASSERT_EQ(shown.boxes.size(), 1u);
    EXPECT_EQ(shown.boxes[0].caption, u"Warning!");
    EXPECT_EQ(
        shown.boxes[0].text,
        u"In function 4:\nThe number of terms to use in the approximating polynomial, must be "
        u"at least 1 and it must less than the number of input points.");
    EXPECT_EQ(shown.boxes[0].icon, MessageIcon::Exclamation);
    functions[3].selected = functions[5].selected = 0;
    shown = {{}, {MessageAnswer::Yes}};
    EXPECT_TRUE(Prepare());
}

TEST_F(FileLines, AskAboutEachFileOfMoreThanFiftyPoints) {
    Line(0, 50);
    EXPECT_TRUE(Prepare());
    EXPECT_TRUE(shown.boxes.empty());
    Line(1, 51);
    Line(2, 52);
    Line(8, 53);
    const struct {
        std::vector<MessageAnswer> answers;
        bool confirmed;
    } rows[] = {
        {{MessageAnswer::Yes, MessageAnswer::Yes, MessageAnswer::Yes}, true},
        {{MessageAnswer::No, MessageAnswer::Yes, MessageAnswer::Yes}, false},
        {{MessageAnswer::Yes, MessageAnswer::Yes, MessageAnswer::No}, false},
    };
    for (const auto& row : rows) {
        shown = {{}, row.answers};
        EXPECT_EQ(Prepare(), row.confirmed);
        ASSERT_EQ(shown.boxes.size(), 3u);
        EXPECT_EQ(shown.boxes[1].caption, u"Warning!");
        EXPECT_EQ(shown.boxes[1].text,
                  u"The file points2.txt has very many lines, the construction schedule can take a "
                  u"very long time. Continue?");
        EXPECT_EQ(shown.boxes[1].icon, MessageIcon::Information);
        EXPECT_EQ(shown.boxes[1].buttons, MessageButtons::YesNo);
    }
}

}  // namespace
}  // namespace kalvex
