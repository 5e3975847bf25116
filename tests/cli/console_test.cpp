#include "cli/console.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace kalvex {
namespace {

TEST(ForEachText, HandsOverEveryLineAsItStands) {
    std::istringstream input("x\n\n  2x \r\n\xff\nlast");
    std::vector<std::u16string> texts;
    const auto status = ForEachText(std::nullopt, input, [&](const std::u16string& text) {
        texts.push_back(text);
        return texts.size() == 2 ? ExitStatus::Rejected : ExitStatus::Done;
    });
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"x", u"", u"  2x \r", u"\ufffd", u"last"}));
    EXPECT_EQ(status, ExitStatus::Rejected);
}

TEST(ForEachText, LeavesTheInputAloneWhenThereIsAnArgument) {
    std::istringstream input("x\n");
    int calls = 0;
    const auto status = ForEachText(std::string(), input, [&](const std::u16string& text) {
        EXPECT_EQ(text, u"");
        ++calls;
        return ExitStatus::Done;
    });
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(status, ExitStatus::Done);
    EXPECT_EQ(input.tellg(), 0);
}

}  // namespace
}  // namespace kalvex
