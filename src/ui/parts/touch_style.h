// The system's style with rows that a finger can hit.
#pragma once

#include <QProxyStyle>

namespace kalvex {

/// Menu rows and tabs are at least as tall as a touch target. The focus of a text line, a list and
/// a check box is marked with a contrast of at least 3:1, in light and dark palettes. Everything
/// else is drawn by the system's style.
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
