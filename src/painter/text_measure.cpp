// The measuring function keeps the font metrics of each height that it was asked for, because
// looking a font up takes longer than measuring a text.
#include <QFontMetrics>
#include <QRawFont>
#include <QString>
#include <algorithm>
#include <map>
#include <memory>
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

bool HasPictureFont(int height) {
    // Every font file has this table. What Qt draws in a font's place has none.
    return !QRawFont::fromFont(PictureFont(height)).fontTable("head").isEmpty();
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
        if (found == fonts->end())
            found = fonts->emplace(height, QFontMetrics(PictureFont(height))).first;
        const auto shown = QStringView(text.data(), static_cast<qsizetype>(text.size()));
        return {found->second.horizontalAdvance(shown.toString()), found->second.height()};
    };
}

}  // namespace kalvex
