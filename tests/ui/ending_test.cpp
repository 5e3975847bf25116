// The end of the program, or of the session, while something is open.
#include <QMenu>
#include <QPointer>
#include <csignal>

#include "boxes_fixture.h"
#include "ui/parts/gate.h"
#include "ui/terminate_signal.h"

using namespace kalvex;

namespace {

/// Something that is open when the end comes.
struct Opened {
    const char* name;
    std::function<void(BoxesProgram&)> open;
    bool graph = false;              ///< over the graph window
    bool leavesNothingOpen = false;  ///< no dialog and no box
};

void PressSave(const char* dialog, const char* field, const char* typed) {
    OpenDialog(dialog)->findChild<QLineEdit*>(field)->setText(typed);
    PressByAction(*OpenDialog(dialog), "saveKey");
}

/// A question that the file dialog asks itself, in an event loop of its own.
void AskToReplace(BoxesProgram& program) {
    QFile old(program.folder.filePath("old.png"));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    program.application.windowState.folder = program.folder.path();
    program.Graph().Run(CommandId::SavePictureAs);
    QDialog* const dialog = OpenDialog("savePictureDialog");
    auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
    name->setText("old.png");
    QTest::keyClick(name, Qt::Key_Return);
}

/// A key of the print dialog that waits for what it opens, in an event loop of its own.
void PressInPrintDialog(BoxesProgram& program, const QString& word) {
    program.Graph().Run(CommandId::Print);
    PressByAction(*OpenDialog("printPreview"), "printKey");
    QVERIFY(QTest::qWaitFor([] { return OpenDialog("printDialog") != nullptr; }));
    QDialog* const dialog = OpenDialog("printDialog");
    if (auto* const file = dialog->findChild<QLineEdit*>("filename"))
        file->setText(program.folder.filePath("old.png"));
    for (QPushButton* const key : dialog->findChildren<QPushButton*>()) {
        if (key->text().remove('&') == word) return key->click();
    }
    QFAIL("no such key");
}

void AskToPrintOver(BoxesProgram& program) {
    QFile old(program.folder.filePath("old.png"));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    PressInPrintDialog(program, "Print");
}

void OpenReport(BoxesProgram& program) {
    program.Graph().Run(CommandId::Trace);
    program.Graph().Run(CommandId::Analyze);
}

const std::vector<Opened> kOpened = {
    {"nothing", [](BoxesProgram&) {}, false, true},
    {"menu", [](BoxesProgram& program) { program.Editor().OpenMenu(); }, false, true},
    {"refused line",
     [](BoxesProgram& program) {
         program.SetLine(3, "2*(x");
         program.Editor().Run(CommandId::Draw);
     }},
    {"product",
     [](BoxesProgram& program) {
         program.SetLine(3, "(x)(x)(x)");
         program.Editor().Run(CommandId::Draw);
     }},
    {"question",
     [](BoxesProgram& program) {
         program.SetFileLine(3, 51);
         program.Editor().Run(CommandId::Draw);
     }},
    {"options", [](BoxesProgram& program) { program.Editor().Run(CommandId::Options); }},
    {"refused range",
     [](BoxesProgram& program) {
         program.Editor().Run(CommandId::Options);
         PressSave("optionsDialog", "maxParam", "-1000");
     }},
    {"refused expression",
     [](BoxesProgram& program) {
         program.Editor().Run(CommandId::Calculator);
         PressSave("calculatorDialog", "expression", "2*(x");
     }},
    {"product in the calculator",
     [](BoxesProgram& program) {
         program.Editor().Run(CommandId::Calculator);
         PressSave("calculatorDialog", "expression", "(2)(3)(4)");
     }},
    {"point file", [](BoxesProgram& program) { program.Editor().Run(CommandId::File); }},
    {"help", [](BoxesProgram& program) { program.Editor().Run(CommandId::Help); }},
    {"about", [](BoxesProgram& program) { program.Editor().Run(CommandId::About); }},
    {"refused bounds",
     [](BoxesProgram& program) {
         program.Graph().Run(CommandId::ViewWindowDialog);
         PressSave("viewWindowDialog", "field2", "two");
     },
     true},
    {"refused factor",
     [](BoxesProgram& program) {
         program.Graph().Run(CommandId::ZoomFactor);
         PressSave("factorDialog", "field1", "0");
     },
     true},
    {"report", OpenReport, true},
    {"file of a report",
     [](BoxesProgram& program) {
         OpenReport(program);
         OpenDialog("report")->activateWindow();  // the offscreen platform leaves it inactive
         QTRY_VERIFY(QApplication::activeWindow() == OpenDialog("report"));
         QTest::keyClick(OpenDialog("report"), Qt::Key_S, Qt::ControlModifier);
         QVERIFY(OpenDialog("saveResultDialog") != nullptr);
     },
     true},
    {"picture file", [](BoxesProgram& program) { program.Graph().Run(CommandId::SavePictureAs); },
     true},
    {"question of a file dialog", AskToReplace, true},
    {"size of a picture",
     [](BoxesProgram& program) {
         program.application.windowState.folder = program.folder.path();
         program.Graph().Run(CommandId::SavePictureAs);
         auto* const name = OpenDialog("savePictureDialog")->findChild<QLineEdit*>("fileNameEdit");
         name->setText("new.png");
         QTest::keyClick(name, Qt::Key_Return);
         QVERIFY(OpenDialog("pictureSizeDialog") != nullptr);
     },
     true},
    {"preview of a page", [](BoxesProgram& program) { program.Graph().Run(CommandId::Print); },
     true},
    {"print dialog",
     [](BoxesProgram& program) {
         program.Graph().Run(CommandId::Print);
         PressByAction(*OpenDialog("printPreview"), "printKey");
         QVERIFY(QTest::qWaitFor([] { return OpenDialog("printDialog") != nullptr; }));
     },
     true},
    {"properties of a printer",
     [](BoxesProgram& program) { PressInPrintDialog(program, "Properties"); }, true},
    {"question of the print dialog", AskToPrintOver, true},
};

}  // namespace

class EndingTest final : public QObject {
    Q_OBJECT

    /// What an end of any kind leaves behind.
    static void CompareStored(const BoxesProgram& program, const Opened& opened) {
        QVERIFY2(!IsAnythingOpen(), opened.name);
        QVERIFY2(QApplication::activePopupWidget() == nullptr, opened.name);
        QVERIFY2(program.shown.boxes->empty(), opened.name);
        const Registry& registry = program.store.registry;
        QVERIFY2(registry.readText("9", "equ") == u"7x", opened.name);
        QCOMPARE(registry.readNumber("9", "color").value_or(0), 5);
        QCOMPARE(program.application.graphWindow != nullptr, opened.graph);
        QVERIFY2(QFileInfo::exists(QString::fromStdString(program.application.windowStatePath)),
                 opened.name);
        if (opened.graph) QVERIFY2(registry.readText("", "Xmin") == u"-2.500000", opened.name);
    }

    /// Opens everything in turn and lets the end come.
    template <typename End, typename GoOn>
    static void EndWith(const End& end, const GoOn& goOn) {
        for (const Opened& opened : kOpened) {
            BoxesProgram program;
            program.StartWith("x");
            if (opened.graph) {
                program.OpenGraph();
                QTest::qWait(30);
            }
            // From the event loop, because some of Qt's own dialogs ask in a loop of their own.
            bool compared = false;
            QTimer::singleShot(0, qApp, [&] { opened.open(program); });
            QTimer::singleShot(250, qApp, [&] {
                QVERIFY2(IsAnythingOpen() || opened.leavesNothingOpen, opened.name);
                program.Line(9)->setText("7x");
                program.Entry(9).color = 5;
                program.application.graph.viewport.view.Xmin = -2.5;
                end(program);
                CompareStored(program, opened);
                compared = true;
            });
            QTRY_VERIFY2(compared, opened.name);
            QTest::qWait(20);
            QVERIFY2(!IsAnythingOpen(), opened.name);
            QFile old(program.folder.filePath("old.png"));
            if (old.open(QIODevice::ReadOnly)) QCOMPARE(old.readAll(), QByteArray("old"));
            QVERIFY2(!QFileInfo::exists(program.folder.filePath("new.png")), opened.name);
            goOn(program, opened);
        }
    }

  private slots:
    void TheProgram() {
        EndWith(
            [](BoxesProgram& program) { EndApplication(program.application, program.shown.show); },
            [](BoxesProgram& program, const Opened& opened) {
                QVERIFY(program.application.ended);
                QVERIFY(!RunProgramCommand(program.application, CommandId::Draw));
                QCOMPARE(program.application.graphWindow != nullptr, opened.graph);
            });
    }
    // The end of a session may be called off; then the program goes on and stores again.
    void TheSession() {
        EndWith(
            [](BoxesProgram& program) { StoreForSession(program.application, program.shown.show); },
            [](BoxesProgram& program, const Opened& opened) {
                QVERIFY(!program.application.ended);
                if (opened.graph) {
                    program.application.graph.viewport.view.Xmin = -3.5;
                    program.Graph().Run(CommandId::GraphTable);
                    QVERIFY(program.store.registry.readText("", "Xmin") == u"-3.500000");
                }
                QVERIFY2(program.Editor().isVisible(), opened.name);
                program.Line(9)->setText("8x");
                program.Editor().Run(CommandId::Exit);
                QCOMPARE(program.quits, 1);
                QVERIFY(program.store.registry.readText("9", "equ") == u"8x");
            });
    }
    void TheSessionDuringTheStart() {
        BoxesProgram program;
        program.store.store->keys["2"].clear();
        StartApplication(program.application);
        QVERIFY(BoxInFront() != nullptr && program.application.editor == nullptr);
        StoreForSession(program.application, program.shown.show);
        QVERIFY(BoxInFront() == nullptr);
        QVERIFY(program.application.editor != nullptr && program.Editor().isVisible());
    }
    void TheProgramDuringTheStart() {
        BoxesProgram program;
        program.store.store->keys["2"].clear();
        const auto before = program.store.store->keys;
        StartApplication(program.application);
        QVERIFY(BoxInFront() != nullptr);
        EndApplication(program.application, program.shown.show);
        QVERIFY(BoxInFront() == nullptr && program.application.editor == nullptr);
        QVERIFY(program.store.store->keys == before);
    }
    // The box of an `Exit` whose view could not be stored is open.
    void DuringExit() {
        for (const bool answered : {true, false}) {
            BoxesProgram program;
            program.StartWith("x");
            program.OpenGraph();
            *program.store.fails = Exactly("writeText /Ymax");
            program.store.log->clear();
            program.Graph().Run(CommandId::GraphExit);
            QCOMPARE(TextInFront(), QString("Error save value into registry!"));
            QCOMPARE(program.quits, 0);
            program.Graph().Run(CommandId::GraphExit);
            if (answered) {
                BoxInFront()->accept();
            } else {
                EndApplication(program.application, program.shown.show);
            }
            QCOMPARE(program.quits, 1);
            QVERIFY(BoxInFront() == nullptr && program.application.ended);
            const auto& log = *program.store.log;
            QCOMPARE(std::count(log.begin(), log.end(), "writeText 9/equ"), 1);
            QCOMPARE(std::count(log.begin(), log.end(), "writeText /Ymax"), 1);
        }
    }
    // Started with nohup, the program outlives its terminal.
    void AnIgnoredSignalStaysIgnored() {
        for (const int number : {SIGHUP, SIGINT}) {
            const auto before = std::signal(number, SIG_IGN);
            int ends = 0;
            {
                const auto watch = WatchTerminateSignal([&ends] { ++ends; });
                QCOMPARE(std::raise(number), 0);
                QTest::qWait(50);
                QCOMPARE(ends, 0);
                QCOMPARE(std::raise(SIGTERM), 0);
                QTRY_COMPARE(ends, 1);
            }
            QVERIFY(std::signal(number, before) == SIG_IGN);
        }
    }
    void ASignal() {
        BoxesProgram program;
        program.StartWith("(x)(x)");
        const auto watch = WatchTerminateSignal([&program] {
            EndApplication(program.application, program.shown.show);
            program.application.quit();
        });
        program.Editor().Run(CommandId::Draw);
        QVERIFY(BoxInFront() != nullptr);
        QCOMPARE(std::raise(SIGTERM), 0);
        QTRY_COMPARE(program.quits, 1);
        QVERIFY(BoxInFront() == nullptr && program.application.ended);
        QVERIFY(program.application.graphWindow == nullptr);
    }
};

QTEST_MAIN(EndingTest)
#include "ending_test.moc"
