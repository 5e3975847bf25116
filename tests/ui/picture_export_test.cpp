#include "ui/picture_export.h"

#include <QFile>
#include <QFileInfo>
#include <limits>

#include "window_fixture.h"

using namespace kalvex;

class PictureExportTest final : public QObject {
    Q_OBJECT
  private slots:
    void TwoExportsCountUp() {
        TestProgram program;
        program.store.registry.writeNumber("", "Screen", 41);
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        for (int i = 0; i < 2; ++i) {
            program.Graph().OpenMenu();
            QMenu* const menu = OpenedMenu(program.Graph(), "graphMenu");
            ActionOf(*menu, CommandId::Picture)->trigger();
            menu->close();
            QVERIFY(program.shown.boxes->size() == static_cast<std::size_t>(i));  // not at once
            QTRY_COMPARE(program.shown.boxes->size(), static_cast<std::size_t>(i + 1));
        }
        for (const char* const name : {"Kalvex_41.bmp", "Kalvex_42.bmp"}) {
            const QImage picture(program.application.pictureFolder + "/" + name);
            QCOMPARE(picture.size(), program.Canvas().size());
        }
        QCOMPARE(program.store.registry.readNumber("", "Screen").value_or(-1), 43);
        QVERIFY(program.LastBox().text == u"Save");
        QVERIFY(program.LastBox().caption == u"Info");
        QVERIFY(program.LastBox().icon == MessageIcon::Exclamation);
    }
    void FailureIsNotShownAndCountsAllTheSame() {
        FaultyRegistry store = MakeFilledRegistry();
        ShownBoxes shown;
        Options options;
        options.Screen = 7;
        ExportPicture({240, 100, {}}, options, store.registry, "/proc/no folder", shown.show);
        QCOMPARE(options.Screen, 8);
        QCOMPARE(store.registry.readNumber("", "Screen").value_or(-1), 8);
        QCOMPARE(shown.boxes->size(), std::size_t{1});
        QVERIFY(shown.boxes->front().text == u"Save");
    }
    void TheLargestCounter() {
        FaultyRegistry store = MakeFilledRegistry();
        ShownBoxes shown;
        QTemporaryDir folder;
        Options options;
        options.Screen = std::numeric_limits<std::int32_t>::max();
        ExportPicture({8, 8, {}}, options, store.registry, folder.path(), shown.show);
        QCOMPARE(options.Screen, std::numeric_limits<std::int32_t>::min());
        QVERIFY(QFileInfo::exists(folder.filePath("Kalvex_2147483647.bmp")));
    }
};

QTEST_MAIN(PictureExportTest)
#include "picture_export_test.moc"
