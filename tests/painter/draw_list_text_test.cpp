#include "painter/draw_list_text.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <limits>

#include "painter/picture_writers.h"

namespace kalvex {
namespace {

constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

TEST(DrawListText, WritesEachRecordAsALine) {
    const Pen red{{255, 0, 10}, 3};
    const struct {
        DrawRecord record;
        const char* line;
    } rows[] = {
        {SegmentsRecord{
             {{130, 130, 130}, 1}, {{{0, 0}, {0, 9}}, {{-1, 2}, {8, 2}}}, {DrawLayer::Grid}},
         "segments\tgrid\t-\t#828282\t1\t0,0,0,9 -1,2,8,2"},
        {SegmentsRecord{Pen{}, {{{5, 0}, {5, 9}}}, {DrawLayer::Axes}},
         "segments\taxes\t-\t#000000\t1\t5,0,5,9"},
        {PolylineRecord{red, {{1, 2}, {kLargest, kSmallest}}, {DrawLayer::Curve, 8}},
         "polyline\tcurve\t9\t#ff000a\t3\t1,2 2147483647,-2147483648"},
        {EllipseRecord{red, true, {255, 255, 255}, 1, 2, 3, 4, {DrawLayer::Grid}},
         "ellipse\tgrid\t-\t#ff000a\t3\t1,2,3,4\t#ffffff"},
        {EllipseRecord{red, false, {255, 255, 255}, 1, 2, 3, 4, {DrawLayer::Curve, 0}},
         "ellipse\tcurve\t1\t#ff000a\t3\t1,2,3,4\t-"},
        {PixelRunsRecord{{50, 205, 50}, {{7, 20, 30}, {8, 21, 1}}, {DrawLayer::Curve, 1}},
         "pixels\tcurve\t2\t#32cd32\t-\t20,7,30 21,8,1"},
        {TextRecord{5, 20, u"0.5", {0, 0, 0}, 10, {DrawLayer::Numbers}},
         "text\tnumbers\t-\t#000000\t-\t5,20\t10\t0.5"},
        {TextRecord{5, 20, u"\u00fc \u0436 \U0001d53d.txt", {0, 0, 0}, 14, {DrawLayer::Name, 3}},
         "text\tname\t4\t#000000\t-\t5,20\t14\t\xc3\xbc \xd0\xb6 \xf0\x9d\x94\xbd.txt"},
        {TextRecord{5, 20, u"a\tb\\n\r\n", {0, 0, 0}, 14, {DrawLayer::Name, 3}},
         "text\tname\t4\t#000000\t-\t5,20\t14\ta\\tb\\\\n\\r\\n"},
        {TextRecord{5, 20, std::u16string(1, char16_t{0xD800}), {}, 14, {DrawLayer::Name, 3}},
         "text\tname\t4\t#000000\t-\t5,20\t14\t\xef\xbf\xbd"},
        {TextRecord{}, "text\tcurve\t-\t#000000\t-\t0,0\t0\t"},
        {PolylineRecord{}, "polyline\tcurve\t-\t#000000\t1\t"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DrawListText(DrawList{30, 40, {row.record}}),
                  std::string("picture\t30\t40\n") + row.line + '\n');
    DrawList both{1, 2, {rows[0].record, rows[1].record}};
    EXPECT_EQ(DrawListText(both),
              std::string("picture\t1\t2\n") + rows[0].line + '\n' + rows[1].line + '\n');
    EXPECT_EQ(DrawListText(DrawList{1, 2, {}}), "picture\t1\t2\n");
}

TEST(DrawListText, IsWrittenAsAWholeFile) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.txt");
    const DrawList list{3, 4, {PolylineRecord{Pen{}, {{0, 0}, {2, 3}}}}};
    ASSERT_TRUE(WriteDrawListText(path, list));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), DrawListText(list));
    EXPECT_FALSE(WriteDrawListText("/proc/no folder/a.txt", list));
    const QString none = folder.filePath("none.txt");
    for (const DrawList& empty : {DrawList{0, 10, {}}, DrawList{10, -1, {}}})
        EXPECT_FALSE(WriteDrawListText(none, empty)) << empty.width << ' ' << empty.height;
    EXPECT_FALSE(QFile::exists(none));
}

}  // namespace
}  // namespace kalvex
