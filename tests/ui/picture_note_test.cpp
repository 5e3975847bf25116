#include "ui/graph/picture_note.h"

#include <QImage>
#include <QMessageBox>

#include "boxes_fixture.h"

using namespace kalvex;

namespace {

PictureNote* NoteOf(TestProgram& program) {
    return static_cast<PictureNote*>(program.Canvas().findChild<QLabel*>("pictureNote"));
}

/// What the note says, without the places where Qt may break an overlong word.
QString Said(TestProgram& program) {
    return NoteOf(program)->text().remove(QChar(0x200B));
}

}  // namespace

class PictureNoteTest final : public QObject {
    Q_OBJECT
  private slots:
    void FollowsTheBoxOfAPicture() {
        BoxesProgram program;
        program.StartWith("x");
        program.OpenGraph();
        QVERIFY(!NoteOf(program)->isVisible());
        program.Graph().Run(CommandId::Picture);
        QTRY_COMPARE(TextInFront(), QString("Save"));
        QVERIFY(!NoteOf(program)->isVisible());
        BoxInFront()->accept();
        QTRY_VERIFY(NoteOf(program)->isVisible());
        const QString said = "Saved as Kalvex_0.bmp in " +
                             QFileInfo(program.application.pictureFolder).absoluteFilePath();
        QCOMPARE(Said(program), said);
        QVERIFY(program.Canvas().accessibleDescription().startsWith(said));
        QVERIFY(program.Canvas().rect().contains(NoteOf(program)->geometry()));
    }
    void IsNotShownWithoutAFile() {
        TestProgram program;
        program.application.pictureFolder = "/proc/no folder";
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Graph().Run(CommandId::Picture);
        QTRY_COMPARE(program.shown.boxes->size(), std::size_t{1});
        QTest::qWait(20);
        QVERIFY(!NoteOf(program)->isVisible());
    }
    void AnyKeyAndAnyClickEndIt() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        GraphCanvas& canvas = program.Canvas();
        const std::pair<const char*, std::function<void()>> rows[] = {
            {"key", [&] { QTest::keyClick(&program.Graph(), Qt::Key_Right); }},
            {"short cut", [&] { QTest::keyClick(&program.Graph(), Qt::Key_I); }},
            {"click", [&] { QTest::mouseClick(&canvas, Qt::LeftButton, {}, QPoint(5, 5)); }},
            {"soft key", [&] { program.Click(program.Graph(), "menuKey"); }},
        };
        for (const auto& [name, act] : rows) {
            canvas.ShowNote("a note");
            QVERIFY2(NoteOf(program)->isVisible(), name);
            act();
            QVERIFY2(!NoteOf(program)->isVisible(), name);
        }
    }
    void MovingThePointerLeavesIt() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Canvas().ShowNote("a note");
        QTest::mouseMove(&program.Canvas(), QPoint(20, 20));
        QTest::qWait(50);
        QVERIFY(NoteOf(program)->isVisible());
    }
    void EndsByItself() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Canvas().ShowNote("a note");
        QTRY_VERIFY_WITH_TIMEOUT(!NoteOf(program)->isVisible(), 20000);
    }
    // The description says it once and not again with the next picture.
    void IsNoPartOfThePicture() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        const std::size_t records = program.Canvas().Picture().records.size();
        program.Canvas().ShowNote("a note");
        QCOMPARE(program.Canvas().Picture().records.size(), records);
        QTest::keyClick(&program.Graph(), Qt::Key_Right);
        QTRY_VERIFY(!program.Canvas().accessibleDescription().contains("a note"));
    }
    void LongNamesAreBroken() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Graph().resize(240, 300);
        QTest::qWait(30);
        program.Canvas().ShowNote("Saved as " + QString(120, 'w') + ".png in /" + QString(90, 'm'));
        QVERIFY(program.Canvas().rect().contains(NoteOf(program)->geometry()));
        QVERIFY(NoteOf(program)->height() > 3 * NoteOf(program)->fontMetrics().height());
        program.Graph().resize(480, 400);
        QTest::qWait(30);
        QVERIFY(program.Canvas().rect().contains(NoteOf(program)->geometry()));
        QVERIFY(NoteOf(program)->geometry().bottom() > program.Canvas().height() - 20);
    }
};

QTEST_MAIN(PictureNoteTest)
#include "picture_note_test.moc"
