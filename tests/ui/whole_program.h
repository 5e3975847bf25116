// The running program as a user meets it: events go where a keyboard or a pointer would send them.
#pragma once

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QListView>
#include <QTabBar>
#include <QTabWidget>

#include "window_fixture.h"

namespace kalvex {

struct WholeProgram : TestProgram {
    /// The window that has the user's attention: a dialog is in front, and what is in front is
    /// active, as a desktop has it and the offscreen platform has not.
    QWidget* Front() {
        if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
        QWidget* front = QApplication::activeModalWidget();
        if (front == nullptr) front = VisibleWindow(application);
        if (QApplication::activeWindow() != front) front->activateWindow();
        return front;
    }
    /// Whether a dialog or a window of a name is in front; waits for it.
    bool IsInFront(const char* name) {
        return QTest::qWaitFor([this, name] {
            QWidget* const front = Front();
            return front != nullptr && front->objectName() == name &&
                   (front == QApplication::activePopupWidget() ||
                    QApplication::activeWindow() == front);
        });
    }
    template <typename Control>
    Control* In(const char* window, const char* name) {
        return IsInFront(window) ? Front()->findChild<Control*>(name) : nullptr;
    }
    void WaitForPicture() {
        QTRY_VERIFY(!Canvas().IsComputing());
        QTest::qWait(30);
    }
    static QByteArray Contents(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

}  // namespace kalvex
