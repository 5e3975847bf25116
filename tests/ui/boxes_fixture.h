// The program with real message boxes, driven past them: by the actions that assistive technology
// performs, which reach the windows behind a box.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleEditableTextInterface>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <functional>
#include <vector>

#include "window_fixture.h"

namespace kalvex {

struct BoxesProgram : TestProgram {
    BoxesProgram() { application.show = BoxesOnScreen(application); }

    static constexpr int kPause = 40;     ///< milliseconds between two looks
    static constexpr int kCalm = 3;       ///< looks in a row without a button that is down
    static constexpr int kMostLooks = 5;  ///< the button of an open menu stays down

    /// A key that is pressed by an action stays down for a while.
    static bool IsAnyButtonDown() {
        for (QWidget* const widget : QApplication::allWidgets()) {
            auto* const button = qobject_cast<QAbstractButton*>(widget);
            if (button != nullptr && button->isDown()) return true;
        }
        return false;
    }

    /// Runs steps one after the other, each from the event loop and after the one before has had
    /// its effect, however slow the machine is, and waits for the last one.
    static bool Run(const std::vector<std::function<void()>>& steps) {
        std::size_t next = 0;
        int calm = 0;
        int looks = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            calm = IsAnyButtonDown() ? 0 : calm + 1;
            const bool isDue = calm >= kCalm || ++looks > kMostLooks;
            if (!isDue || next == steps.size()) return;
            calm = looks = 0;
            steps[next++]();
        });
        timer.start(kPause);
        const bool done = QTest::qWaitFor([&] { return next == steps.size(); }, 40000);
        timer.stop();
        QTest::qWait(kCalm * kPause);
        return done;
    }
    /// A line that a point file of some points draws.
    void SetFileLine(int number, int points) {
        QFile file(folder.filePath("points.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < points; ++i)
            file.write(QString("%1 %2\n").arg(i).arg(i % 7).toUtf8());
        Entry(number).type = EquationType::File;
        Entry(number).method.approx = 8;
        Entry(number).selected = 1;
        Editor().ShowLines();
        Line(number)->setText(file.fileName());
    }
    void SetLine(int number, const QString& text) {
        Entry(number).selected = 1;
        Editor().ShowLines();
        Line(number)->setText(text);
    }
    void StartWith(const QString& text) {
        Start();
        ClearLines();
        SetLine(1, text);
    }
};

/// Presses a key of a window as a screen reader does.
inline void PressByAction(QWidget& window, const char* key) {
    QWidget* const control = window.findChild<QPushButton*>(key);
    QVERIFY(control != nullptr);
    QAccessibleActionInterface* const actions =
        QAccessible::queryAccessibleInterface(control)->actionInterface();
    QVERIFY(actions != nullptr);
    actions->doAction(QAccessibleActionInterface::pressAction());
}

/// Replaces the text of a line as a screen reader does.
inline void TypeByAction(QLineEdit& line, const QString& text) {
    QAccessibleEditableTextInterface* const edit =
        QAccessible::queryAccessibleInterface(&line)->editableTextInterface();
    QVERIFY(edit != nullptr);
    edit->replaceText(0, static_cast<int>(line.text().size()), text);
}

/// The box in front; null when something else is.
inline QMessageBox* BoxInFront() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

/// The text of the box in front; empty without one.
inline QString TextInFront() {
    return BoxInFront() == nullptr ? QString() : BoxInFront()->text();
}

/// The dialog of a name that is open.
inline QDialog* OpenDialog(const char* name) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible())
            return qobject_cast<QDialog*>(window);
    }
    return nullptr;
}

}  // namespace kalvex
