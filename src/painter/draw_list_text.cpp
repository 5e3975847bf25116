// Each kind of record writes its own geometry; the columns that all kinds share are written by
// AppendStart. All numbers are integers, those of a classic picture.
#include "painter/draw_list_text.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/encoding.h"
#include "numbers/decimal.h"
#include "painter/ellipse.h"

namespace kalvex {
namespace {

constexpr std::array<std::string_view, 5> kLayerNames = {"grid", "axes", "numbers", "curve",
                                                         "name"};
static_assert(kLayerNames.size() == static_cast<std::size_t>(DrawLayer::Name) + 1);

std::string Number(std::int32_t value) {
    return FormatFixed(value, 0);
}

std::string ColorText(const Rgb& color) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {color.red, color.green, color.blue}) {
        text += kDigits[part / 16];
        text += kDigits[part % 16];
    }
    return text;
}

/// A text with the characters escaped that would end a column or a line.
std::string Escaped(std::u16string_view text) {
    std::string escaped;
    for (const char c : ToUtf8(text)) {
        switch (c) {
            case '\\':
                escaped += "\\\\";
                break;
            case '\t':
                escaped += "\\t";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\r':
                escaped += "\\r";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

/// Kind, layer, slot, colour and width.
void AppendStart(std::string& text, std::string_view kind, const RecordOrigin& origin,
                 const Rgb& color, const std::string& width) {
    text += kind;
    text += '\t';
    text += kLayerNames[static_cast<std::size_t>(origin.layer)];
    text += '\t' + (origin.slot ? Number(*origin.slot + 1) : "-");
    text += '\t' + ColorText(color) + '\t' + width + '\t';
}

/// The numbers of one item; `first` when no item stands before it.
void AppendItem(std::string& text, bool first, std::initializer_list<std::int32_t> numbers) {
    if (!first) text += ' ';
    const std::size_t start = text.size();
    for (const std::int32_t number : numbers) {
        if (text.size() > start) text += ',';
        text += Number(number);
    }
}

void Append(std::string& text, const SegmentsRecord& record) {
    AppendStart(text, "segments", record.origin, record.pen.color, Number(record.pen.width));
    bool first = true;
    for (const Segment& segment : record.segments) {
        if (IsWithinPixel(segment)) continue;
        const PixelPoint from = PixelOf(segment.from);
        const PixelPoint to = PixelOf(segment.to);
        AppendItem(text, std::exchange(first, false), {from.x, from.y, to.x, to.y});
    }
}

void Append(std::string& text, const PolylineRecord& record) {
    AppendStart(text, "polyline", record.origin, record.pen.color, Number(record.pen.width));
    for (const Position& point : record.points) {
        const PixelPoint pixel = PixelOf(point);
        AppendItem(text, &point == record.points.data(), {pixel.x, pixel.y});
    }
}

void Append(std::string& text, const EllipseRecord& record) {
    AppendStart(text, "ellipse", record.origin, record.pen.color, Number(record.pen.width));
    AppendItem(text, true,
               {TruncateToInt32(record.left), TruncateToInt32(record.top),
                TruncateToInt32(record.right), TruncateToInt32(record.bottom)});
    text += '\t' + (record.filled ? ColorText(record.fill) : "-");
}

void Append(std::string& text, const CircleRecord& record) {
    Append(text, EllipseOf(record));
}

void Append(std::string& text, const PixelRunsRecord& record) {
    AppendStart(text, "pixels", record.origin, record.color, "-");
    for (const PixelRun& run : record.runs)
        AppendItem(text, &run == record.runs.data(), {run.column, run.row, run.length});
}

void Append(std::string& text, const TextRecord& record) {
    AppendStart(text, "text", record.origin, record.color, "-");
    AppendItem(text, true, {record.x, record.y});
    text += '\t' + Number(record.height) + '\t' + Escaped(record.text);
}

}  // namespace

std::string DrawListText(const DrawList& list) {
    std::string text = "picture\t" + Number(list.width) + '\t' + Number(list.height) + '\n';
    for (const DrawRecord& record : list.records) {
        std::visit([&text](const auto& one) { Append(text, one); }, record);
        text += '\n';
    }
    return text;
}

bool MakeDrawListText(const DrawList& list, const TakeBytes& take) {
    return list.width > 0 && list.height > 0 && take(DrawListText(list));
}

}  // namespace kalvex
