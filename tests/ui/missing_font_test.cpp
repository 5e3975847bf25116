// Pictures where no font can be loaded. The configuration of the fonts that CTest sets has none.
#include <QDir>
#include <QFileInfo>

#include "painter/painter.h"
#include "settings/faulty_registry.h"
#include "ui/graph/picture_export.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

DrawList PictureWithText() {
    DrawList picture{240, 100, {}};
    picture.records.push_back(TextRecord{});
    return picture;
}

}  // namespace

class MissingFontTest final : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { QVERIFY(!HasFontsOf(PictureWithText())); }
    void APictureWithTextsIsNotExported() {
        FaultyRegistry store = MakeFilledRegistry();
        const auto before = store.store->keys;
        ShownBoxes shown;
        const QTemporaryDir folder;
        Options options;
        options.Screen = 7;
        ExportPicture(PictureWithText(), options, store.registry, folder.path(), shown.show);
        QVERIFY(QDir(folder.path()).isEmpty());
        QCOMPARE(shown.boxes->size(), std::size_t{1});
        const QString path = folder.filePath("Kalvex_7.bmp");
        QCOMPARE(ToQString(shown.boxes->front().text),
                 "The picture could not be written:\n" + path);
        QVERIFY(shown.boxes->front().icon == MessageIcon::Stop);
        QCOMPARE(options.Screen, 7);
        QVERIFY(store.store->keys == before);
    }
    void APictureWithTextsIsNotSaved() {
        ShownBoxes shown;
        const QTemporaryDir folder;
        SavePicture(PictureWithText(), {}, folder.filePath("a.png"), shown.show);
        QVERIFY(QDir(folder.path()).isEmpty());
        QCOMPARE(shown.boxes->size(), std::size_t{1});
    }
    void APictureWithoutTextsIsExported() {
        FaultyRegistry store = MakeFilledRegistry();
        ShownBoxes shown;
        const QTemporaryDir folder;
        Options options;
        ExportPicture({240, 100, {}}, options, store.registry, folder.path(), shown.show);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
        QVERIFY(shown.boxes->front().text == u"Save");
    }
};

QTEST_MAIN(MissingFontTest)
#include "missing_font_test.moc"
