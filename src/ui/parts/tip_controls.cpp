// Both show the part before the mark and keep the rest as their tip. An "&" would make a short cut
// of the letter behind it; the captions are exact, so it is doubled.
#include "ui/parts/tip_controls.h"

#include <QScreen>
#include <algorithm>

#include "resources/tip_text.h"
#include "ui/parts/qt_text.h"
#include "ui/parts/tip_watch.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

constexpr int kCaptionPercent = 40;  // of the screen's width at most; the rest is the field's

void Describe(QWidget& widget, const QString& caption, const QString& tip) {
    widget.setAccessibleName(QString(caption).remove(':'));
    widget.setAccessibleDescription(tip);
    widget.setToolTip(tip);
}

}  // namespace

TipCaption::TipCaption(std::u16string_view text, QWidget* parent)
    : QLabel(parent), watch(new TipWatch(this)) {
    const CaptionAndTip split = SplitTip(text);
    setProperty("controlClass", "TTSTATIC");
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setText(ToQString(split.caption));
    Describe(*this, this->text(), ToQString(split.tip));
}

void TipCaption::SetField(QWidget* field) {
    setBuddy(field);
    Describe(*field, text(), toolTip());
    watch->AddField(field);
}

QSize TipCaption::sizeHint() const {
    constexpr int kRounding = 4;  // a width that is a pixel short would break the line
    const int whole = fontMetrics().horizontalAdvance(text()) + kRounding;
    const int share = screen()->availableGeometry().width() * kCaptionPercent / 100;
    return {qMax(qMin(whole, share), minimumSizeHint().width()), kTouchTarget};
}

QSize TipCaption::minimumSizeHint() const {
    int widest = 0;
    for (const QString& word : text().split(' '))
        widest = std::max(widest, fontMetrics().horizontalAdvance(word));
    return {widest, kTouchTarget};
}

TipCheckBox::TipCheckBox(std::u16string_view text, QWidget* parent) : QCheckBox(parent) {
    const CaptionAndTip split = SplitTip(text);
    setProperty("controlClass", "TTBUTTON");
    setMinimumHeight(kTouchTarget);
    setText(ToQString(split.caption).replace("&", "&&"));
    Describe(*this, ToQString(split.caption), ToQString(split.tip));
    new TipWatch(this);
}

}  // namespace kalvex
