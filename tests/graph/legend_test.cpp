#include "graph/legend.h"

#include <gtest/gtest.h>

#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

FunctionEntry Entry(EquationType type, std::u16string_view text, std::int32_t color) {
    FunctionEntry entry;
    entry.type = type;
    entry.text = text;
    entry.color = color;
    entry.selected = 1;
    return entry;
}

std::vector<TextRecord> LegendOf(const FunctionList& functions, std::int32_t textSize = 14) {
    DrawList list;
    Options options;
    options.TextSize = textSize;
    DrawLegend(fixtures::MakeViewport(-1, 1, -1, 1), functions, options, fixtures::MeasureFixed,
               list);
    return fixtures::RecordsOf<TextRecord>(list);
}

TEST(Legend, ListsTheDrawnFunctions) {
    FunctionList functions;
    functions[0] = Entry(EquationType::Decart, u"x^2", 1);
    functions[3] = Entry(EquationType::Polar, u"2*x", 5);
    functions[4] = Entry(EquationType::Decart, u"unselected", 5);
    functions[4].selected = 0;
    functions[6] = Entry(EquationType::Decart, u"neither selected nor not", 5);
    functions[6].selected = 2;
    functions[5] = Entry(EquationType::None, u"untyped", 5);
    functions[8] = Entry(EquationType::File, u"C:\\data/points.txt", 9);
    const auto lines = LegendOf(functions);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].text, u"x^2");
    EXPECT_EQ(lines[0].x, 5);
    EXPECT_EQ(lines[0].y, 5);
    EXPECT_EQ(lines[0].height, 14);
    EXPECT_EQ(lines[0].color, (Rgb{255, 0, 0}));
    EXPECT_EQ(lines[1].text, u"2*x (r)");
    EXPECT_EQ(lines[1].y, 5 + 21) << "by the measured height";
    EXPECT_EQ(lines[1].color, (Rgb{0, 0, 255}));
    EXPECT_EQ(lines[2].text, u"points.txt");
    EXPECT_EQ(lines[2].y, 5 + 42);
}

TEST(Legend, CutsWhatCannotBeSeen) {
    FunctionList functions;
    functions[0] = Entry(EquationType::Polar, std::u16string(1000000, u'x'), 1);
    functions[1] = Entry(EquationType::Decart, std::u16string(239, u'x') + u"\xD83D\xDE00", 1);
    const auto lines = LegendOf(functions);
    EXPECT_EQ(lines[0].text.size(), 240u);
    EXPECT_EQ(lines[1].text.size(), 239u) << "half a character is none";
}

TEST(Legend, ClampsItsSize) {
    FunctionList functions;
    functions[0] = Entry(EquationType::Decart, u"x", 77);
    const struct {
        std::int32_t size, height;
    } rows[] = {{INT32_MIN, 1}, {0, 1}, {200, 200}, {INT32_MAX, 200}};
    for (const auto& row : rows)
        EXPECT_EQ(LegendOf(functions, row.size)[0].height, row.height) << row.size;
    EXPECT_EQ(LegendOf(functions)[0].color, Rgb{}) << "an unknown colour is black";
}

}  // namespace
}  // namespace kalvex
