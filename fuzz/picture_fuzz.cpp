// Run: scripts/fuzz
//
// Any drawing list becomes a picture in every format. Nothing may crash; a format gives a file
// exactly if the picture has pixels; the bitmap has the size that its header announces, and the
// list's text has one line for each record.
#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/encoding.h"
#include "fuzz_input.h"
#include "painter/write_picture.h"
#include "workspace/options.h"

namespace {

using namespace kalvex;
using namespace kalvex::fuzz;

constexpr std::size_t kMostItems = 6;

Rgb TakeColor(Input& input) {
    return {TakeByte(input), TakeByte(input), TakeByte(input)};
}

Pen TakePen(Input& input) {
    return {TakeColor(input), static_cast<std::int32_t>(TakeChoice(input, kWidestPen)) + 1};
}

Position TakePoint(Input& input) {
    return {TakeDouble(input), TakeDouble(input)};
}

RecordOrigin TakeOrigin(Input& input) {
    constexpr std::size_t kLayers = static_cast<std::size_t>(DrawLayer::Name) + 1;
    RecordOrigin origin = {static_cast<DrawLayer>(TakeChoice(input, kLayers))};
    const auto slot = static_cast<std::int32_t>(TakeChoice(input, kSlotCount + 1));
    if (slot < kSlotCount) origin.slot = slot;
    return origin;
}

SegmentsRecord TakeSegments(Input& input) {
    SegmentsRecord record = {TakePen(input), {}, TakeOrigin(input)};
    for (std::size_t left = TakeChoice(input, kMostItems); left > 0; --left)
        record.segments.push_back({TakePoint(input), TakePoint(input)});
    return record;
}

PolylineRecord TakePolyline(Input& input) {
    PolylineRecord record = {TakePen(input), {}, TakeOrigin(input)};
    for (std::size_t left = TakeChoice(input, kMostItems) + 2; left > 0; --left)
        record.points.push_back(TakePoint(input));
    return record;
}

EllipseRecord TakeEllipse(Input& input) {
    EllipseRecord record = {TakePen(input), TakeChoice(input, 2) == 1, TakeColor(input)};
    record.left = TakeDouble(input);
    record.top = TakeDouble(input);
    record.right = TakeDouble(input);
    record.bottom = TakeDouble(input);
    record.origin = TakeOrigin(input);
    return record;
}

CircleRecord TakeCircle(Input& input) {
    CircleRecord record = {TakePen(input), TakePoint(input)};
    record.radius = TakeByte(input);
    record.origin = TakeOrigin(input);
    return record;
}

Contours TakeContours(Input& input) {
    Contours contours;
    for (std::size_t left = TakeChoice(input, kMostItems); left > 0; --left) {
        for (std::size_t points = TakeChoice(input, kMostItems) + 1; points > 0; --points)
            contours.points.push_back(TakePoint(input));
        contours.ends.push_back(contours.points.size());
    }
    for (std::size_t left = TakeChoice(input, kMostItems); left > 0; --left)
        contours.filled.push_back({TakeWhole(input), TakeWhole(input), TakeWhole(input)});
    return contours;
}

PixelRunsRecord TakePixels(Input& input) {
    PixelRunsRecord record = {TakeColor(input), {}, TakeOrigin(input)};
    for (std::size_t left = TakeChoice(input, kMostItems); left > 0; --left)
        record.runs.push_back({TakeWhole(input), TakeWhole(input), TakeWhole(input)});
    if (TakeChoice(input, 2) == 1) record.contours = TakeContours(input);
    return record;
}

TextRecord TakeWords(Input& input) {
    constexpr std::size_t kMostBytes = 40;
    TextRecord record;
    record.x = TakeWhole(input);
    record.y = TakeWhole(input);
    record.color = TakeColor(input);
    record.height = static_cast<std::int32_t>(TakeChoice(input, kTallestText)) + 1;
    record.origin = TakeOrigin(input);
    record.text = ToUtf16(TakeText(input, kMostBytes));
    return record;
}

DrawRecord TakeRecord(Input& input) {
    switch (TakeChoice(input, std::variant_size_v<DrawRecord>)) {
        case 0:
            return TakeSegments(input);
        case 1:
            return TakePolyline(input);
        case 2:
            return TakeEllipse(input);
        case 3:
            return TakePixels(input);
        case 4:
            return TakeCircle(input);
        default:
            return TakeWords(input);
    }
}

DrawList TakeList(Input& input) {
    constexpr std::size_t kMostRecords = 12;
    DrawList list;
    list.width = TakeByte(input);
    list.height = TakeByte(input);
    while (input.left > 0 && list.records.size() < kMostRecords)
        list.records.push_back(TakeRecord(input));
    return list;
}

void CheckFile(const PictureFormat& format, const PictureStyle& style, const DrawList& list,
               const std::string& bytes) {
    if (format.suffix == "png") {
        const QImage picture = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                                static_cast<int>(bytes.size()), "png");
        Require(picture.width() == std::lround(list.width * style.ratio) &&
                picture.height() == std::lround(list.height * style.ratio));
    } else if (format.suffix == "bmp") {
        constexpr std::size_t kHeader = 54;
        const auto rounded = static_cast<std::size_t>((list.width + 3) / 4 * 4);
        Require(bytes.size() == kHeader + rounded * 3 * static_cast<std::size_t>(list.height));
    } else if (format.suffix == "txt") {
        const auto lines = static_cast<std::size_t>(std::ranges::count(bytes, '\n'));
        Require(lines == list.records.size() + 1);
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** names) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*count, *names);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input = {data, size};
    PictureStyle style;
    style.playing = TakeChoice(input, 2) == 1 ? Playing::Classic : Playing::Smooth;
    constexpr std::array<double, 4> kRatios = {1.0, 1.25, 1.5, 2.0};
    style.ratio = kRatios[TakeChoice(input, kRatios.size())];
    const DrawList list = TakeList(input);
    for (const PictureFormat& format : PictureFormats()) {
        std::string bytes;
        const bool made = format.make(list, style, [&bytes](std::string_view piece) {
            bytes += piece;
            return true;
        });
        Require(made == (list.width > 0 && list.height > 0));
        if (made) CheckFile(format, style, list, bytes);
    }
    return 0;
}
