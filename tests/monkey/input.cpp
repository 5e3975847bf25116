#include "monkey/input.h"

#include <QApplication>
#include <QFileDialog>
#include <QMetaEnum>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace kalvex::monkey {
namespace {

constexpr Qt::Key kKeys[] = {
    Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backtab,
    Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp, Qt::Key_Delete, Qt::Key_Space,  Qt::Key_Backspace,
    Qt::Key_F1,     Qt::Key_F2,     Qt::Key_F3,     Qt::Key_F4,     Qt::Key_F5,
    Qt::Key_F6,     Qt::Key_F7,     Qt::Key_F8,     Qt::Key_F9,     Qt::Key_F10,
    Qt::Key_F11,    Qt::Key_F12,    Qt::Key_Menu,   Qt::Key_Plus,   Qt::Key_Minus,
    Qt::Key_A,      Qt::Key_C,      Qt::Key_D,      Qt::Key_E,      Qt::Key_G,
    Qt::Key_O,      Qt::Key_P,      Qt::Key_S,      Qt::Key_T,      Qt::Key_V,
    Qt::Key_X,      Qt::Key_Y,      Qt::Key_Z,      Qt::Key_0,      Qt::Key_1,
    Qt::Key_5,      Qt::Key_9,      Qt::Key_Comma,  Qt::Key_Period, Qt::Key_PageDown};

constexpr Qt::KeyboardModifiers kModifiers[] = {
    Qt::NoModifier,      Qt::NoModifier,  Qt::NoModifier,
    Qt::NoModifier,      Qt::NoModifier,  Qt::ShiftModifier,
    Qt::ControlModifier, Qt::AltModifier, Qt::ControlModifier | Qt::ShiftModifier};

const char* const kTexts[] = {"x^3-3*x+1",
                              "sin(x)/x",
                              "(x)(x)(x)",
                              "2x",
                              "ln(x-3)",
                              "sin(t);cos(t)",
                              "x^2+y^2-4",
                              "1/0",
                              "J(0,x^2+y^2)-0.1",
                              "Leg(100000,Leg(100000,x))",
                              "Gamma(x)",
                              "((((",
                              "1e300*x",
                              "-1",
                              "50",
                              "100000",
                              "2147483647",
                              "1e-300",
                              "0.5",
                              "tg(x*y)-1",
                              "y^2-x^3+12*x-5",
                              "a",
                              ".",
                              "9999999999"};

QWindow* WindowOf(QWidget* widget) {
    return widget == nullptr ? nullptr : widget->window()->windowHandle();
}

/// The window that has the keyboard.
QWidget* KeyboardWindow() {
    if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
    return QApplication::activeWindow();
}

void SendKey(QWindow* window, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
    qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
}

void SendMouse(QWindow* window, QPoint at, Qt::MouseButtons held, Qt::MouseButton button,
               QEvent::Type type) {
    static int now = 1;
    now += 37;
    qt_handleMouseEvent(window, at, window->mapToGlobal(at), held, button, type, Qt::NoModifier,
                        now);
}

/// A place in the control, in the coordinates of its window; sometimes one beside it.
QPoint PlaceIn(Random& random, const QWidget* control) {
    const QPoint inside(Below(random, control->width() + 2) - 1,
                        Below(random, control->height() + 2) - 1);
    return control->mapTo(control->window(), inside);
}

struct Place {
    QWindow* window = nullptr;
    QPoint at;
    std::string name;
};

Place SomePlace(Random& random) {
    QWidget* const shown = SomeWindow(random);
    if (WindowOf(shown) == nullptr) return {};
    const QWidget* const control = SomeControl(random, shown);
    return {WindowOf(shown), PlaceIn(random, control),
            shown->objectName().toStdString() + '/' + control->metaObject()->className() + ' ' +
                control->objectName().toStdString()};
}

}  // namespace

int Below(Random& random, int count) {
    return count <= 1 ? 0 : static_cast<int>(random() % static_cast<unsigned>(count));
}

QWidget* SomeWindow(Random& random) {
    if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
    QWidgetList shown;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->windowHandle() != nullptr) shown.append(widget);
    return shown.isEmpty() ? nullptr : OneOf(random, shown);
}

QWidget* SomeControl(Random& random, QWidget* window) {
    QWidgetList shown = {window};
    for (QWidget* const widget : window->findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == window) shown.append(widget);
    return OneOf(random, shown);
}

std::string PressKey(Random& random) {
    QWindow* const window = WindowOf(KeyboardWindow());
    if (window == nullptr) return "no window for a key";
    const Qt::Key key = OneOf(random, kKeys);
    const Qt::KeyboardModifiers modifiers = OneOf(random, kModifiers);
    const bool letter = key < Qt::Key_Escape && (modifiers & ~Qt::ShiftModifier) == Qt::NoModifier;
    SendKey(window, key, modifiers, letter ? QString(QChar(key)).toLower() : QString());
    return "key " + QKeySequence(key | modifiers).toString().toStdString();
}

void PressControlS() {
    QWindow* const window = WindowOf(KeyboardWindow());
    if (window != nullptr) SendKey(window, Qt::Key_S, Qt::ControlModifier, {});
}

std::string TypeText(Random& random) {
    QWidget* const shown = KeyboardWindow();
    if (WindowOf(shown) == nullptr) return "no window for a text";
    const QString text = QString::fromLatin1(OneOf(random, kTexts));
    for (const QChar sign : text) {
        // A path in a file dialog would lead out of the folder of the run.
        if (sign == u'/' && qobject_cast<QFileDialog*>(shown) != nullptr) continue;
        SendKey(WindowOf(shown), sign.toUpper().unicode(), Qt::NoModifier, QString(sign));
    }
    return "text " + text.toStdString();
}

std::string PressButton(Random& random) {
    const Place place = SomePlace(random);
    if (place.window == nullptr) return "no window for a click";
    const Qt::MouseButton button = Below(random, 8) == 0 ? Qt::RightButton : Qt::LeftButton;
    const int times = Below(random, 6) == 0 ? 2 : 1;
    for (int time = 0; time < times; ++time) {
        SendMouse(place.window, place.at, button, button, QEvent::MouseButtonPress);
        SendMouse(place.window, place.at, Qt::NoButton, button, QEvent::MouseButtonRelease);
    }
    return "click on " + place.name;
}

std::string Drag(Random& random) {
    const Place place = SomePlace(random);
    if (place.window == nullptr) return "no window for a drag";
    QPoint at = place.at;
    SendMouse(place.window, at, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress);
    for (int step = Below(random, 6); step >= 0; --step) {
        at += QPoint(Below(random, 121) - 60, Below(random, 121) - 60);
        SendMouse(place.window, at, Qt::LeftButton, Qt::NoButton, QEvent::MouseMove);
    }
    SendMouse(place.window, at, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease);
    return "drag on " + place.name;
}

std::string TurnWheel(Random& random) {
    const Place place = SomePlace(random);
    QWidget* const modal = QApplication::activeModalWidget();
    if (place.window == nullptr || (modal != nullptr && WindowOf(modal) != place.window)) {
        return "no window for the wheel";
    }
    const QPoint angle(0, Below(random, 2) == 0 ? 120 : -120);
    QCoreApplication::postEvent(
        place.window, new QWheelEvent(place.at, place.window->mapToGlobal(place.at), {}, angle,
                                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    return "wheel on " + place.name;
}

std::string Touch(Random& random) {
    static QPointingDevice* const screen = QTest::createTouchDevice();
    const Place place = SomePlace(random);
    if (place.window == nullptr) return "no window for a finger";
    const bool two = Below(random, 2) == 0;
    QPoint first = place.at;
    QPoint second = place.at + QPoint(40, 40);
    auto fingers = QTest::touchEvent(place.window, screen, false);
    fingers.press(0, first);
    if (two) fingers.press(1, second);
    fingers.commit(false);
    for (int step = Below(random, 5); step > 0; --step) {
        first += QPoint(Below(random, 41) - 20, Below(random, 41) - 20);
        second += QPoint(Below(random, 41) - 20, Below(random, 41) - 20);
        fingers.move(0, first);
        if (two) fingers.move(1, second);
        fingers.commit(false);
    }
    fingers.release(0, first);
    if (two) fingers.release(1, second);
    fingers.commit(false);
    return (two ? "two fingers on " : "finger on ") + place.name;
}

}  // namespace kalvex::monkey
