// The running program as a user drives it: events go to the window that keyboard or pointer would
// reach.
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
    /// The window that is in front: a popup, else a dialog, else the visible main window. It is
    /// made active, which a desktop would do but the offscreen platform does not.
    QWidget* Front() {
        if (QWidget* const popup = QApplication::activePopupWidget()) return popup;
        QWidget* front = QApplication::activeModalWidget();
        if (front == nullptr) front = VisibleWindow(application);
        if (QApplication::activeWindow() != front) front->activateWindow();
        return front;
    }
    /// Waits until a dialog or window of a name is in front; false if that does not happen.
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
