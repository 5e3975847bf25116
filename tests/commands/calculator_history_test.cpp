#include "commands/calculator_history.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

using Line = std::optional<std::u16string>;

CalculatorHistory HistoryOf(std::initializer_list<std::u16string_view> lines) {
    CalculatorHistory history;
    for (const std::u16string_view line : lines)
        Remember(history, line);
    return history;
}

TEST(CalculatorHistory, WalksBetweenItsEnds) {
    CalculatorHistory history = HistoryOf({u"1", u"2", u"3"});
    EXPECT_EQ(NewerLine(history, u"typed"), std::nullopt);
    EXPECT_EQ(OlderLine(history, u"typed"), Line(u"3"));
    EXPECT_EQ(OlderLine(history, u"3"), Line(u"2"));
    EXPECT_EQ(OlderLine(history, u"2"), Line(u"1"));
    EXPECT_EQ(OlderLine(history, u"1"), std::nullopt);
    EXPECT_EQ(NewerLine(history, u"1"), Line(u"2"));
    EXPECT_EQ(NewerLine(history, u"2"), Line(u"3"));
    EXPECT_EQ(NewerLine(history, u"3"), Line(u"typed"));
    EXPECT_EQ(NewerLine(history, u"typed"), std::nullopt);
}

TEST(CalculatorHistory, IsEmptyAtFirst) {
    CalculatorHistory history;
    EXPECT_EQ(OlderLine(history, u"typed"), std::nullopt);
    EXPECT_EQ(NewerLine(history, u"typed"), std::nullopt);
}

TEST(CalculatorHistory, KeepsAnAlteredEntryAsTheLineBelow) {
    CalculatorHistory history = HistoryOf({u"1", u"2", u"3"});
    static_cast<void>(OlderLine(history, u"typed"));
    static_cast<void>(OlderLine(history, u"3"));
    EXPECT_EQ(OlderLine(history, u"2+2"), Line(u"1"));
    EXPECT_EQ(NewerLine(history, u"1"), Line(u"2"));
    EXPECT_EQ(NewerLine(history, u"2"), Line(u"3"));
    EXPECT_EQ(NewerLine(history, u"3"), Line(u"2+2"));
    EXPECT_EQ(history.entries[1], u"2");
}

TEST(CalculatorHistory, LeavesOutEmptyAndRepeatedLines) {
    EXPECT_EQ(HistoryOf({u"", u"1", u"1", u"", u"1", u"2", u"1"}).entries,
              (std::vector<std::u16string>{u"1", u"2", u"1"}));
}

TEST(CalculatorHistory, StartsBelowAfterACalculation) {
    CalculatorHistory history = HistoryOf({u"1", u"2"});
    static_cast<void>(OlderLine(history, u"typed"));
    static_cast<void>(OlderLine(history, u"2"));
    Remember(history, u"1");
    EXPECT_EQ(OlderLine(history, u"result"), Line(u"1"));
    EXPECT_EQ(OlderLine(history, u"1"), Line(u"2"));
    EXPECT_EQ(NewerLine(history, u"2"), Line(u"1"));
    EXPECT_EQ(NewerLine(history, u"1"), Line(u"result"));
    static_cast<void>(OlderLine(history, u"result"));
    StartBelow(history);
    EXPECT_EQ(OlderLine(history, u"new"), Line(u"1"));
}

TEST(CalculatorHistory, KeepsTheLastFifty) {
    CalculatorHistory history;
    for (int i = 0; i < 60; ++i)
        Remember(history, std::u16string(static_cast<std::size_t>(i) + 1, u'1'));
    ASSERT_EQ(history.entries.size(), 50u);
    EXPECT_EQ(history.entries.front().size(), 11u);
    EXPECT_EQ(history.entries.back().size(), 60u);
    int steps = 0;
    while (OlderLine(history, history.place < 50 ? history.entries[history.place] : u""))
        ++steps;
    EXPECT_EQ(steps, 50);
}

}  // namespace
}  // namespace kalvex
