// The measuring function keeps the font metrics of each height that it was asked for, because
// looking a font up takes longer than measuring a text.
#include <QFontMetrics>
#include <QRawFont>
#include <QString>
#include <algorithm>
#include <map>
#include <memory>
#include <new>
#include <set>

#include "painter/painter.h"
#include "painter/text_font.h"

namespace kalvex {

QFont PictureFont(int height) {
    QFont font(QStringLiteral("Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setWeight(QFont::Normal);
    font.setPixelSize(std::max(height, 1));
    return font;
}

namespace {

bool IsLoaded(const QFont& font) {
    // Every font file has this table. What Qt draws in a font's place has none.
    return !QRawFont::fromFont(font).fontTable("head").isEmpty();
}

bool HasPictureFont(int height) {
    return IsLoaded(PictureFont(height));
}

/// Qt puts boxes in the place of a font for which there was no memory, and a second attempt may
/// find it. Otherwise the numbers would be placed for boxes and painted in the font.
QFontMetrics LoadMetrics(int height) {
    const QFont font = PictureFont(height);
    return QFontMetrics(IsLoaded(font) ? font : PictureFont(height));
}

/// Throws std::bad_alloc when the text has a digit and no width: shaping the text got no memory,
/// and Qt reports that in no other way.
int WidthOf(const QFontMetrics& metrics, const QString& text) {
    const int width = metrics.horizontalAdvance(text);
    constexpr int kSmallest = 6;  // in smaller fonts a digit may be rounded to nothing
    const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    if (width <= 0 && metrics.height() >= kSmallest &&
        std::any_of(text.begin(), text.end(), isDigit))
        throw std::bad_alloc();
    return width;
}

}  // namespace

bool HasFontsOf(const DrawList& list) {
    std::set<std::int32_t> heights;
    for (const DrawRecord& record : list.records)
        if (const auto* const text = std::get_if<TextRecord>(&record)) heights.insert(text->height);
    return std::all_of(heights.begin(), heights.end(), HasPictureFont);
}

MeasureText PainterTextMeasure() {
    const auto fonts = std::make_shared<std::map<std::int32_t, QFontMetrics>>();
    return [fonts](std::u16string_view text, std::int32_t height) -> TextExtent {
        auto found = fonts->find(height);
        if (found == fonts->end()) found = fonts->emplace(height, LoadMetrics(height)).first;
        const auto shown = QStringView(text.data(), static_cast<qsizetype>(text.size()));
        return {WidthOf(found->second, shown.toString()), found->second.height()};
    };
}

}  // namespace kalvex
