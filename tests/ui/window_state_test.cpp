#include "ui/window_state.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <filesystem>
#include <string>
#include <utility>

using namespace kalvex;

class WindowStateTest final : public QObject {
    Q_OBJECT
  private slots:
    void RoundTrip() {
        const QTemporaryDir folder;
        const std::string path = folder.filePath("kalvex/window.ini").toStdString();
        SaveWindowState(path, {QSize(711, 522), true, "/home/of/µ"});
        const WindowState state = LoadWindowState(path);
        QCOMPARE(state.size, QSize(711, 522));
        QVERIFY(state.maximised);
        QCOMPARE(state.folder, QString("/home/of/µ"));
    }
    void AFolderWhoseNameIsNotUtf8() {
        const QTemporaryDir folder;
        const QByteArray before = qgetenv("XDG_CONFIG_HOME");
        const std::string named = folder.path().toStdString() + "/c\xFF";
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(named));
        const std::string path = DefaultWindowStatePath();
        qputenv("XDG_CONFIG_HOME", before);
        QVERIFY(path == named + "/kalvex/window.ini");
        SaveWindowState(path, {QSize(711, 522), false, {}});
        QCOMPARE(LoadWindowState(path).size, QSize(711, 522));
        QVERIFY(std::filesystem::exists(path));
    }
    void DamagedOrMissing() {
        const QTemporaryDir folder;
        QCOMPARE(LoadWindowState(folder.filePath("none.ini").toStdString()).size, QSize(480, 640));
        for (const char* const content : {"width=-5\nheight=640\n", "width=zebra\nheight=\n",
                                          "width=999999999\nheight=640\n", "\xff\xfe[[[", ""}) {
            QFile file(folder.filePath("window.ini"));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
            file.close();
            QCOMPARE(LoadWindowState(file.fileName().toStdString()).size, QSize(480, 640));
        }
    }
    void NeverLargerThanTheScreen() {
        const QSize room = QWidget().screen()->availableGeometry().size();
        const std::pair<QSize, bool> cases[] = {{QSize(9000, 9000), true},
                                                {room, true},
                                                {QSize(480, room.height() - 20), true},
                                                {QSize(room.width(), 480), true},
                                                {QSize(480, room.height() - 80), false},
                                                {QSize(480, 640), false}};
        for (const auto& [size, maximised] : cases) {
            QWidget window;
            ApplyWindowState(window, {size, false, {}});
            QVERIFY(window.width() <= room.width() && window.height() <= room.height());
            QCOMPARE(window.isMaximized(), maximised);
        }
    }
    void NextWindowTakesThePlace() {
        QWidget last;
        QWidget next;
        last.setGeometry(30, 40, 333, 444);
        last.show();
        TakeWindowPlace(last, next);
        QCOMPARE(next.geometry(), QRect(30, 40, 333, 444));
        QVERIFY(next.isVisible() && !last.isVisible());
        next.resize(500, 501);
        TakeWindowPlace(next, last);
        QCOMPARE(last.size(), QSize(500, 501));
    }
};

QTEST_MAIN(WindowStateTest)
#include "window_state_test.moc"
