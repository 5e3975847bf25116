// The contents are made in memory, so that the caller can write the whole file or none of it.
#include "analysis/export_files.h"

#include "base/encoding.h"
#include "numbers/decimal.h"

namespace kalvex {
namespace {

constexpr int kDigits = 17;

void AppendUnit(std::string& bytes, char16_t unit) {
    bytes.push_back(static_cast<char>(unit & 0xFFU));
    bytes.push_back(static_cast<char>(unit >> 8U));
}

}  // namespace

std::string ReportFile(std::u16string_view report) {
    std::string bytes;
    bytes.reserve(2 * report.size() + 2);
    AppendUnit(bytes, u'\uFEFF');
    for (const char16_t unit : report)
        AppendUnit(bytes, unit);
    return bytes;
}

std::string PointTableFile(std::span<const CurveSample> samples) {
    std::string text;
    for (const CurveSample& sample : samples) {
        if (sample.status != 0) continue;
        text += ToUtf8(FixedText(sample.x, kDigits)) + ' ' + ToUtf8(FixedText(sample.y, kDigits)) +
                '\n';
    }
    return text;
}

}  // namespace kalvex
