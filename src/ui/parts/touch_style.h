// The system's style with rows that a finger can hit.
#pragma once

#include <QProxyStyle>

namespace kalvex {

/// The focus of a line of text, a list and a check box shows at 3:1 or more against its ground, in
/// the light and the dark palette.
/// Menu rows and tabs are at least as tall as a touch target; everything else is the system's own.
class TouchStyle final : public QProxyStyle {
  public:
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace kalvex
