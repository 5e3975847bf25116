// The heights that the style proposes for menu rows and tabs are raised; separators keep theirs.
// Some styles mark the focus by a shade that cannot be seen in a dark palette, so a frame is drawn.
#include "ui/parts/touch_style.h"

#include <QCheckBox>
#include <QStyleOptionMenuItem>

#include "ui/parts/focus_frame.h"
#include "ui/parts/touch.h"

namespace kalvex {

QSize TouchStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    QSize proposed = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_TabBarTab) proposed.setHeight(qMax(proposed.height(), kTouchTarget));
    if (type != CT_MenuItem) return proposed;
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item != nullptr && item->menuItemType != QStyleOptionMenuItem::Separator) {
        proposed.setHeight(qMax(proposed.height(), kTouchTarget));
    }
    return proposed;
}

void TouchStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && option->state.testFlag(State_HasFocus))
        DrawFocusFrame(*painter, option->rect, option->palette, QPalette::Button);
}

void TouchStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    if (element == PE_FrameFocusRect && qobject_cast<const QCheckBox*>(widget) != nullptr)
        return DrawFocusFrame(*painter, option->rect, option->palette, QPalette::Window);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool focused = option->state.testFlag(QStyle::State_HasFocus);
    if (element == PE_FrameLineEdit && focused)
        DrawFocusFrame(*painter, option->rect, option->palette, QPalette::Base);
}

}  // namespace kalvex
