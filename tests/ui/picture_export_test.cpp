#include "ui/graph/picture_export.h"

#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string>

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
    void TheCounterIsStoredAfterThePicture() {
        FaultyRegistry store = MakeFilledRegistry();
        ShownBoxes shown;
        const QTemporaryDir folder;
        Options options;
        options.Screen = 7;
        bool wasThere = false;
        Registry registry = store.registry;
        registry.writeNumber = [&](std::string_view key, std::string_view name,
                                   std::int32_t value) {
            wasThere = QFileInfo::exists(folder.filePath("Kalvex_7.bmp"));
            return store.registry.writeNumber(key, name, value);
        };
        ExportPicture({8, 8, {}}, options, registry, folder.path(), shown.show);
        QVERIFY(wasThere);
        QCOMPARE(store.registry.readNumber("", "Screen").value_or(-1), 8);
    }
    // Qt's text of such a name leads to another folder.
    void AFolderWhoseNameIsNotUtf8IsLeftAlone() {
        FaultyRegistry store = MakeFilledRegistry();
        ShownBoxes shown;
        const QTemporaryDir folder;
        const std::string named = folder.path().toStdString() + "/p\xFF";
        QVERIFY(std::filesystem::create_directory(named));
        const QString path = QFile::decodeName(named.c_str());
        Options options;
        ExportPicture({8, 8, {}}, options, store.registry, path, shown.show);
        QVERIFY(shown.boxes->back().text == u"Save");
        SavePicture({8, 8, {}}, {}, path + ".png", shown.show);
        QVERIFY(shown.boxes->back().text.starts_with(u"The picture could not be written:"));
        const std::filesystem::directory_iterator entries(folder.path().toStdString());
        QCOMPARE(std::distance(begin(entries), end(entries)), 1);
        QVERIFY(std::filesystem::is_empty(named));
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
    void SavesWhereTheUserWants() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        const struct {
            const char* filter;
            const char* typed;
            const char* made;
            const char* start;
        } rows[] = {
            {"PNG picture (*.png)", "one", "one.png", "\x89PNG"},
            {"SVG drawing (*.svg)", "two", "two.svg", "<?xml"},
            {"PDF document (*.pdf)", "three", "three.pdf", "%PDF"},
            {"Bitmap (*.bmp)", "four", "four.bmp", "BM"},
            {"PNG picture (*.png)", "five.pdf", "five.pdf", "%PDF"},
        };
        const QDir folder(program.folder.path());
        for (const auto& row : rows) {
            program.Graph().Run(CommandId::SavePictureAs);
            auto* const dialog = program.Graph().findChild<QFileDialog*>("savePictureDialog");
            QVERIFY(dialog != nullptr);
            dialog->selectNameFilter(row.filter);
            emit dialog->filterSelected(row.filter);
            dialog->setDirectory(folder);
            auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
            QVERIFY(name != nullptr);
            name->setText(row.typed);
            QTest::keyClick(name, Qt::Key_Return);
            if (QByteArray(row.made).endsWith(".png")) {
                auto* const size = program.Graph().findChild<QDialog*>("pictureSizeDialog");
                QVERIFY(size != nullptr);
                QTest::keyClick(size, Qt::Key_Return);
            }
            QTRY_VERIFY(QFileInfo::exists(folder.filePath(row.made)));
            QFile file(folder.filePath(row.made));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY(file.readAll().startsWith(row.start));
            QTRY_VERIFY(!program.Graph().findChild<QFileDialog*>("savePictureDialog"));
        }
        QVERIFY(program.shown.boxes->empty());
        QCOMPARE(program.application.windowState.folder, folder.absolutePath());
        QCOMPARE(QImage(folder.filePath("one.png")).size(), program.Canvas().size());
        program.Graph().Run(CommandId::SavePictureAs);
        auto* const again = program.Graph().findChild<QFileDialog*>("savePictureDialog");
        QCOMPARE(again->directory().absolutePath(), folder.absolutePath());
        QTest::keyClick(again, Qt::Key_Escape);
        QTRY_VERIFY(!program.Graph().findChild<QFileDialog*>("savePictureDialog"));
    }
    void SaysWhatCouldNotBeSaved() {
        ShownBoxes shown;
        const DrawList picture{8, 8, {}};
        SavePicture(picture, {}, "/proc/no folder/a.png", shown.show);
        QVERIFY(shown.boxes->back().text ==
                u"The picture could not be written:\n/proc/no folder/a.png");
        QVERIFY(shown.boxes->back().caption == u"Error!");
        QVERIFY(shown.boxes->back().icon == MessageIcon::Stop);
        SavePicture(picture, {}, "a.jpg", shown.show);
        QVERIFY(shown.boxes->back().text ==
                u"The name of the picture must end in .png, .svg, .pdf or .bmp:\na.jpg");
        QCOMPARE(shown.boxes->size(), std::size_t{2});
    }
    void CopiesToTheClipboard() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        QTest::keyClick(&program.Graph(), Qt::Key_C, Qt::ControlModifier);
        const QImage copied = QGuiApplication::clipboard()->image();
        QCOMPARE(copied.size(), program.Canvas().size());
        QCOMPARE(
            copied.pixel(3, 3),
            program.Canvas().grab().toImage().convertToFormat(QImage::Format_RGB32).pixel(3, 3));
    }
};

QTEST_MAIN(PictureExportTest)
#include "picture_export_test.moc"
