// What the Options dialog saves, and how it changes the windows.
#include "graph/pick.h"
#include "options_fixture.h"

using namespace kalvex;

class OptionsSaveTest final : public QObject {
    Q_OBJECT
  private slots:
    void SavesByKeyboardAlone() {
        OptionsProgram program;
        program.Open();
        program.Press(Qt::Key_Down);  // 2 pix
        program.Press(Qt::Key_Tab);
        program.Press(Qt::Key_End);  // 8 pi
        program.Press(Qt::Key_Tab);
        program.Press(Qt::Key_Home);  // 8 pt
        program.Press(Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "-1.5");  // the old number is selected
        program.Press(Qt::Key_Tab);
        QTest::keyClicks(QApplication::focusWidget(), "2.5");
        program.Press(Qt::Key_Tab);
        program.Press(Qt::Key_Space);
        program.Press(Qt::Key_Return);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Stored("Wight"), 2);
        QCOMPARE(program.Stored("MaxAngle"), 4);
        QCOMPARE(program.Stored("TextSize"), 8);
        QCOMPARE(program.Stored("ColorText"), 0);
        QCOMPARE(program.Now().MinParam, -1.5);
        QCOMPARE(program.Now().MaxParam, 2.5);
        QVERIFY(program.shown.boxes->empty());
    }
    void EachBoxIsStoredUnderItsName() {
        const std::pair<int, const char*> rows[] = {{1049, "ColorText"}, {1019, "Label"},
                                                    {1022, "Coord"},     {1021, "Setka"},
                                                    {1023, "Diff"},      {1020, "Axex"}};
        for (const auto& [id, name] : rows) {
            OptionsProgram program;
            program.Open();
            program.Tap(program.Box(id));
            program.Save();
            for (const auto& [other, otherName] : rows)
                QCOMPARE(program.Stored(otherName), other == id ? 0 : 1);
        }
    }
    void TheGridAndItsKind() {
        OptionsProgram program;
        program.Open();
        program.Tap(program.PolarGrid());
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 2);
        program.Open();  // without a change of the box the kind of the grid stays
        QVERIFY(program.Box(1021)->isChecked() && program.PolarGrid()->isChecked());
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 2);
        program.Open();  // switched off and on again, the grid keeps its kind
        program.Tap(program.Box(1021));
        QVERIFY(!program.PolarGrid()->isEnabled());
        program.Tap(program.PolarGrid());
        program.Tap(program.Box(1021));
        QVERIFY(program.PolarGrid()->isEnabled() && program.PolarGrid()->isChecked());
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 2);
        program.Open();
        program.Tap(program.Box(1021));
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 0);
        QCOMPARE(int{program.Now().Setka}, 0);
        program.Open();
        QVERIFY(!program.PolarGrid()->isEnabled() && !program.PolarGrid()->isChecked());
        program.Tap(program.Box(1021));
        program.SaveAndClose();
        QCOMPARE(program.Stored("Setka"), 1);
    }
    void TheLaterBoxesAreStored() {
        OptionsProgram program;
        program.Open();
        program.Tap(program.Box(1080));
        program.Tap(program.Box(1081));
        program.SaveAndClose();
        QCOMPARE(program.Stored("FineGrid"), 1);
        QCOMPARE(int{program.Now().FineGrid}, 1);
        QCOMPARE(program.Stored("Smooth"), 0);
        QCOMPARE(int{program.Now().Smooth}, 0);
        program.Open();
        QVERIFY(program.Box(1080)->isChecked() && !program.Box(1081)->isChecked());
    }
    void OnlyAGridOfLinesHasFinerOnes() {
        OptionsProgram program;
        program.Open();
        QVERIFY(program.Box(1080)->isEnabled());
        program.Tap(program.PolarGrid());
        QVERIFY(!program.Box(1080)->isEnabled());
        program.Tap(program.PolarGrid());
        QVERIFY(program.Box(1080)->isEnabled());
        program.Tap(program.Box(1021));
        QVERIFY(!program.Box(1080)->isEnabled());
    }
    void ARefusedRangeLeavesTheRestStored() {
        OptionsProgram program;
        program.Open();
        program.Choose(1036, "2 pix");
        program.Fill(1000, "3");
        program.Fill(1001, "3.0");
        program.Press(Qt::Key_Return);
        QVERIFY(program.dialog && program.dialog->isVisible());
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
        QVERIFY(program.LastBox().text == u"MaxParam must be greater than MinParam!");
        QVERIFY(program.LastBox().caption == u"Error!");
        QVERIFY(program.LastBox().icon == MessageIcon::Stop);
        QCOMPARE(QApplication::focusWidget(), program.Field(1001));
        QCOMPARE(program.Field(1001)->selectedText(), QString("3.0"));
        QCOMPARE(program.Stored("Wight"), 2);
        QCOMPARE(program.Now().MinParam, 0.0);
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Now().Wight, 2);
        QCOMPARE(program.Stored("Wight"), 2);
        QCOMPARE(program.Now().MinParam, 0.0);
        QCOMPARE(program.Now().MaxParam, 6.283185);
    }
    void WhatIsNoNumberIsZero() {
        const struct {
            const char* least;
            const char* largest;
            bool taken;
        } rows[] = {{"none", "1", true},  {"-1", "none", true},  {"none", "none", false},
                    {"1", "none", false}, {"nan", "nan", false}, {"0", "1e400", true}};
        for (const auto& row : rows) {
            OptionsProgram program;
            program.Open();
            program.Fill(1000, row.least);
            program.Fill(1001, row.largest);
            program.Press(Qt::Key_Return);
            QCOMPARE(program.shown.boxes->empty(), row.taken);
        }
    }
    void CancelChangesNothing() {
        for (const int way : {0, 1, 2}) {
            OptionsProgram program;
            program.Open();
            program.store.log->clear();
            program.Choose(1036, "2 pix");
            program.Tap(program.Box(1020));
            program.Fill(1000, "-9");
            if (way == 0) program.Press(Qt::Key_Escape);
            if (way == 1) program.Click(*program.dialog, "cancelKey");
            if (way == 2) program.dialog->close();
            QTRY_VERIFY(!program.dialog);
            QCOMPARE(program.Now().Wight, 1);
            QCOMPARE(int{program.Now().Axex}, 1);
            QCOMPARE(program.Now().MinParam, 0.0);
            QVERIFY(program.store.log->empty());
            QVERIFY(program.Editor().isVisible());
        }
    }
    void AFailingStoreIsSilent() {
        OptionsProgram program;
        program.Open();
        *program.store.fails = [](const std::string&) { return true; };
        program.Choose(1036, "2 pix");
        program.Save();
        QTRY_VERIFY(!program.dialog);
        QVERIFY(program.shown.boxes->empty());
        QCOMPARE(program.Now().Wight, 2);
    }
    void TheLinesShowTheirColoursAtOnce() {
        OptionsProgram program;
        program.Start();
        program.Entry(5).color = 1;
        program.Entry(5).selected = 0;
        program.Editor().ShowLines();
        QCOMPARE(program.Label(5)->TextColor(), QColor(255, 0, 0));
        program.Open();
        program.Tap(program.Box(1049));
        program.Save();
        QCOMPARE(program.Label(5)->TextColor(), program.Label(5)->palette().windowText().color());
    }
    void AnOpenGraphIsDrawnOnce() {
        OptionsProgram program;
        program.OpenGraphWith(2, "x");
        const std::size_t records = program.Canvas().Picture().records.size();
        int count = program.Canvas().RedrawCount();
        program.OpenInGraph();
        program.Tap(program.Box(1021));
        program.Save();
        QTRY_VERIFY(!program.dialog);
        QTRY_COMPARE(program.Canvas().RedrawCount(), count + 1);
        QTest::qWait(50);
        QCOMPARE(program.Canvas().RedrawCount(), count + 1);
        QVERIFY(program.Canvas().Picture().records.size() < records);
        count = program.Canvas().RedrawCount();
        program.OpenInGraph();
        program.Press(Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QTest::qWait(50);
        QCOMPARE(program.Canvas().RedrawCount(), count);
        QVERIFY(program.Graph().isVisible());
    }
    void ARefusedRangeIsDrawnToo() {
        OptionsProgram program;
        program.OpenGraphWith(2, "x");
        const int count = program.Canvas().RedrawCount();
        program.OpenInGraph();
        program.Tap(program.Box(1021));
        program.Fill(1000, "99");
        program.Save();
        QVERIFY(program.dialog);
        QTRY_COMPARE(program.Canvas().RedrawCount(), count + 1);
    }
    void EndsEveryMode() {
        for (const CommandId command : {CommandId::ZoomBox, CommandId::ZoomIn, CommandId::Trace}) {
            OptionsProgram program;
            program.OpenGraphWith(2, "x");
            program.Graph().Run(command);
            program.OpenInGraph();
            QVERIFY(program.application.graph.mode == GraphMode::Normal);
            QCOMPARE(program.Graph().windowTitle(), QString("Kalvex"));
        }
    }
    // KEEP: the range is stored together with the view, not by the dialog.
    void TheRangeIsStoredWithTheView() {
        OptionsProgram program;
        program.OpenGraphWith(3, "x;x");
        const auto stored = [&] {
            return QString::fromStdU16String(
                program.store.registry.readText("", "MaxParam").value_or(u""));
        };
        program.OpenInGraph();
        program.Fill(1001, "4");
        program.Save();
        QCOMPARE(stored(), QString("6.283185"));
        QTest::qWait(30);
        QCOMPARE(program.Entry(1).samples[1].parameter, 4.0 / program.Canvas().width());
        program.Graph().Run(CommandId::GraphTable);
        QCOMPARE(stored(), QString("4.000000"));
    }
};

QTEST_MAIN(OptionsSaveTest)
#include "options_save_test.moc"
