// Both buttons share the width; a thin line sets the bar apart from what stands above it. A flat
// button of some styles draws nothing until it is pressed, which is what a soft key looks like;
// they do not show who has the keyboard focus either, so that is drawn here.
#include "ui/parts/bottom_bar.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>

#include "ui/parts/focus_frame.h"
#include "ui/parts/touch.h"

namespace kalvex {
namespace {

class SoftKey final : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPushButton::paintEvent(event);
        if (!hasFocus()) return;
        QPainter painter(this);
        DrawFocusFrame(painter, rect().adjusted(1, 1, -1, -1), palette(), QPalette::Window);
    }
};

QPushButton* AddKey(const QString& text, const char* name, QWidget* bar) {
    auto* const button = new SoftKey(text, bar);
    button->setObjectName(name);
    button->setFlat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setMinimumSize(kTouchTarget * 2, kTouchTarget);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    QFont font = button->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    font.setWeight(QFont::DemiBold);
    button->setFont(font);
    bar->layout()->addWidget(button);
    return button;
}

}  // namespace

BottomBar::BottomBar(const QString& leftText, const QString& actionText, QWidget* parent)
    : QWidget(parent) {
    setFixedHeight(kBottomBarHeight);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(4, 5, 4, 4);
    row->setSpacing(4);
    menu = AddKey(leftText, "menuKey", this);
    action = AddKey(actionText, "actionKey", this);
}

QPushButton* BottomBar::AddMiddleKey(const QString& text, const char* name) {
    QPushButton* const key = AddKey(text, name, this);
    key->setMinimumWidth(kTouchTarget);
    auto* const row = static_cast<QHBoxLayout*>(layout());
    row->removeWidget(key);
    row->insertWidget(1, key, 1);
    row->setStretch(0, 2);
    row->setStretch(2, 2);
    return key;
}

void BottomBar::ShowOneKey() {
    QSizePolicy policy = action->sizePolicy();
    policy.setRetainSizeWhenHidden(false);
    action->setSizePolicy(policy);
    action->hide();
}

void BottomBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
}

void PopUpAbove(QMenu& menu, const QWidget& button) {
    const QPoint corner = button.mapToGlobal(QPoint(0, 0));
    menu.popup(corner - QPoint(0, menu.sizeHint().height()));
}

}  // namespace kalvex
