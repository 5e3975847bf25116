#include "analysis/export_files.h"

#include <gtest/gtest.h>

#include <limits>

namespace kalvex {
namespace {

CurveSample Point(double x, double y, std::int32_t status = 0) {
    CurveSample sample;
    sample.x = x;
    sample.y = y;
    sample.status = status;
    return sample;
}

TEST(ReportFile, IsLittleEndianWithAByteOrderMark) {
    using namespace std::string_literals;
    const struct {
        std::u16string text;
        std::string bytes;
    } rows[] = {
        {u"", "\xFF\xFE"s},
        {u"x=1\r\n",
         "\xFF\xFE"
         "x\0=\0"
         "1\0\r\0\n\0"s},
        {u"я€", "\xFF\xFE\x4F\x04\xAC\x20"s},
        {u"\U0001D453", "\xFF\xFE\x35\xD8\x53\xDC"s},
        {std::u16string(1, char16_t{0xD800}), "\xFF\xFE\x00\xD8"s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ReportFile(row.text), row.bytes);
}

TEST(PointTableFile, HasALineForEachDefinedSample) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        std::vector<CurveSample> samples;
        std::string text;
    } rows[] = {
        {{}, ""},
        {{Point(-1, 0.5), Point(0, 1e30, 2), Point(0.1, -0.0)},
         "-1.00000000000000000 0.50000000000000000\n"
         "0.10000000000000001 -0.00000000000000000\n"},
        {{Point(1, 2), Point(2, 3), Point(3, 1e-17)},
         "1.00000000000000000 2.00000000000000000\n"
         "2.00000000000000000 3.00000000000000000\n"
         "3.00000000000000000 0.00000000000000001\n"},
        {{Point(1e22, 1e30)},
         "10000000000000000000000.00000000000000000 "
         "1000000000000000019884624838656.00000000000000000\n"},
        {{Point(0, kInfinity), Point(1, -kInfinity), Point(2, kNan), Point(3, -kNan)},
         "0.00000000000000000 inf\n1.00000000000000000 -inf\n2.00000000000000000 nan\n"
         "3.00000000000000000 nan\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PointTableFile(row.samples), row.text);
}

}  // namespace
}  // namespace kalvex
