#include "ui/application.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include "ui/parts/message_window.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

std::size_t CountOf(const TestProgram& program, const std::string& operation) {
    return static_cast<std::size_t>(
        std::count(program.store.log->begin(), program.store.log->end(), operation));
}

/// Opens a box and waits until the waiting test code has answered it.
std::optional<MessageAnswer> Answered(const MessageBox& box) {
    std::optional<MessageAnswer> answer;
    OpenMessageWindow(box, [&answer](MessageAnswer given) { answer = given; });
    static_cast<void>(QTest::qWaitFor([&answer] { return answer.has_value(); }));
    return answer;
}

}  // namespace

class ApplicationTest final : public QObject {
    Q_OBJECT
  private slots:
    void FirstStart() {
        TestProgram program;
        program.store.store->keys.clear();
        program.Start();
        QVERIFY(program.shown.boxes->empty());
        for (int number = 1; number <= 9; ++number) {
            QCOMPARE(int{program.Entry(number).selected}, number == 1 ? 1 : 0);
        }
        program.OpenGraph();  // Draw works without any change
        QVERIFY(program.shown.boxes->empty());
    }
    void LaterStart() {
        TestProgram program;
        program.Start();
        for (int number = 1; number <= 9; ++number)
            QVERIFY(!program.Entry(number).selected);
    }
    void LoadsTextsThenFunctionsThenSettings() {
        TestProgram program;
        program.Start();
        const auto place = [&program](const char* operation) {
            const auto& log = *program.store.log;
            return std::find(log.begin(), log.end(), operation) - log.begin();
        };
        QVERIFY(place("readText 1/equ") < place("readText 9/equ"));
        QVERIFY(place("readText 9/equ") < place("readNumber 1/Color"));
        QVERIFY(place("readNumber 9/type") < place("readNumber /Axex"));
        QVERIFY(place("readNumber /Axex") < place("readText /xmin"));
        QVERIFY(place("readText /MaxParam") < static_cast<long>(program.store.log->size()));
    }
    void ADamagedStoreIsReportedOnce() {
        TestProgram program;
        program.store.store->keys["1"].clear();
        program.store.store->keys.erase("2");
        program.store.store->keys.erase("3");
        program.Start();
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
        QVERIFY(program.LastBox().caption == u"Registry error");
        QVERIFY(program.Editor().isVisible());
        program.Line(1)->setText("x");
        program.Entry(1).selected = 1;
        program.OpenGraph();  // the missing keys have been made
        QCOMPARE(program.shown.boxes->size(), std::size_t{1});
    }
    void AnEndDuringTheLoadingLosesNothing() {
        for (const char* const missing : {"Color", "type", "beta2"}) {
            TestProgram program;
            program.store.store->keys["2"].erase(FoldedName(missing));
            program.application.show = [&program](const MessageBox& box) {
                EndApplication(program.application, program.shown.show);
                return program.shown.show(box);
            };
            const auto before = program.store.store->keys;
            StartApplication(program.application);
            QCOMPARE(program.shown.boxes->size(), std::size_t{1});
            QVERIFY(program.application.ended && program.application.editor == nullptr);
            QVERIFY(program.store.store->keys == before);
        }
    }
    void CommandsOfTheProgram() {
        TestProgram program;
        program.Start();
        const auto run = [&program](CommandId command) {
            return RunProgramCommand(program.application, command);
        };
        for (const CommandId command :
             {CommandId::GraphTable, CommandId::Analyze, CommandId::Picture,
              CommandId::SavePictureAs, CommandId::CopyPicture, CommandId::Print,
              CommandId::GraphExit, CommandId::None, CommandId::Red, CommandId::ZoomIn}) {
            QVERIFY2(!run(command), QByteArray::number(static_cast<int>(command)).constData());
        }
        QCOMPARE(program.quits, 0);
        program.Entry(1).selected = 1;
        QVERIFY(run(CommandId::Draw));
        QVERIFY(program.Graph().isVisible());
        QVERIFY(!run(CommandId::ZoomIn));
        QVERIFY(run(CommandId::GraphTable));
        QVERIFY(program.Editor().isVisible());
        QVERIFY(run(CommandId::Exit));
        QCOMPARE(program.quits, 1);
    }
    void GraphTableStoresTheView() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.application.graph.viewport.view.Xmin = -2.5;
        program.Graph().Run(CommandId::GraphTable);
        QVERIFY(program.store.registry.readText("", "Xmin") == u"-2.500000");
        QVERIFY(program.Editor().isVisible() && !program.Graph().isVisible());
        QVERIFY(program.shown.boxes->empty());
        QCOMPARE(program.quits, 0);
        program.OpenGraph();
        QCOMPARE(program.application.graph.viewport.view.Xmin, -2.5);
    }
    void TheClosedGraphReturnsToTheTable() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Graph().close();
        QVERIFY(program.Editor().isVisible() && !program.Graph().isVisible());
        QCOMPARE(CountOf(program, "writeText /Xmin"), std::size_t{1});
        QCOMPARE(program.quits, 0);
    }
    void AFailingViewIsReported() {
        for (const bool exit : {false, true}) {
            TestProgram program;
            program.Start();
            program.Entry(1).selected = 1;
            program.OpenGraph();
            *program.store.fails = Exactly("writeText /Ymax");
            program.Graph().Run(exit ? CommandId::GraphExit : CommandId::GraphTable);
            QCOMPARE(program.shown.boxes->size(), std::size_t{1});
            QVERIFY(program.LastBox().text == u"Error save value into registry!");
            QVERIFY(program.LastBox().caption == u"Error!");
            QVERIFY(program.LastBox().icon == MessageIcon::None);
            QCOMPARE(program.quits, exit ? 1 : 0);
            QVERIFY(exit || program.Editor().isVisible());
        }
    }
    void ExitOfTheGraphStoresEverythingOnce() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.store.log->clear();
        program.Entry(4).color = 7;
        program.Graph().Run(CommandId::GraphExit);
        EndApplication(program.application, program.shown.show);  // as aboutToQuit does
        QCOMPARE(program.quits, 1);
        QCOMPARE(CountOf(program, "writeText /Xmin"), std::size_t{1});
        QCOMPARE(CountOf(program, "writeNumber 4/color"), std::size_t{1});
        QCOMPARE(program.store.registry.readNumber("4", "Color").value_or(0), 7);
    }
    void ExitAndTheCloseButtonOfTheEditor() {
        for (const bool close : {false, true}) {
            TestProgram program;
            program.Start();
            program.store.log->clear();
            program.Entry(2).type = EquationType::Implicit;
            program.Line(3)->setText("7x");
            if (close) {
                program.Editor().close();
            } else {
                program.Editor().Run(CommandId::Exit);
            }
            QCOMPARE(program.quits, 1);
            QCOMPARE(program.store.registry.readNumber("2", "type").value_or(0), 5);
            QVERIFY(program.store.registry.readText("3", "equ") == u"7x");
            QCOMPARE(CountOf(program, "writeText /Xmin"), std::size_t{0});
            QCOMPARE(LoadWindowState(program.application.windowStatePath).size,
                     program.Editor().size());
        }
    }
    void TypedLinesSurvive() {
        TestProgram program;
        program.Start();
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Line(9)->setText("never drawn(");
        program.store.log->clear();
        program.Graph().Run(CommandId::GraphExit);
        QVERIFY(program.store.registry.readText("9", "equ") == u"neverdrawn(");
        const auto& log = *program.store.log;
        const auto place = [&log](const char* operation) {
            return std::find(log.begin(), log.end(), operation) - log.begin();
        };
        QVERIFY(place("writeText /MaxParam") < place("writeText 9/beta2"));
        QVERIFY(place("writeText 9/beta2") < place("writeText 1/equ"));
        QVERIFY(place("writeText 1/equ") < place("writeText 9/equ"));
    }
    void LinesAreStoredUntilTheFirstFailure() {
        const std::pair<const char*, std::size_t> cases[] = {
            {"writeText 9/beta2", 0}, {"open 1/", 0}, {"writeText 3/equ", 3}};
        for (const auto& [failing, stored] : cases) {
            TestProgram program;
            program.Start();
            program.store.log->clear();
            *program.store.fails = Exactly(failing);
            program.Editor().Run(CommandId::Exit);
            std::size_t lines = 0;
            for (const std::string& operation : *program.store.log)
                lines += operation.ends_with("/equ") ? 1 : 0;
            QCOMPARE(lines, stored);
            QVERIFY(program.shown.boxes->empty());
            QCOMPARE(program.quits, 1);
        }
    }
    void AFailingExitOfTheEditorIsSilent() {
        TestProgram program;
        program.Start();
        *program.store.fails = FromNth("write", 0);
        program.Editor().Run(CommandId::Exit);
        QVERIFY(program.shown.boxes->empty());
        QCOMPARE(program.quits, 1);
    }
    void WhatAKilledRunLeftIsRemoved() {
        TestProgram program;
        QVERIFY(QDir().mkpath(program.application.pictureFolder));
        const QString name = "/.kalvex-0123456789abcdef.tmp";
        for (const QString& folder : {program.folder.path(), program.application.pictureFolder}) {
            QFile left(folder + name);
            QVERIFY(left.open(QIODevice::WriteOnly));
        }
        program.Start();
        QVERIFY(!QFile::exists(program.folder.path() + name));
        QVERIFY(!QFile::exists(program.application.pictureFolder + name));
    }
    void TheSizeIsRemembered() {
        TestProgram program;
        SaveWindowState(program.application.windowStatePath, {QSize(500, 600), false, "/f"});
        program.Start();
        QCOMPARE(program.Editor().size(), QSize(500, 600));
        program.Entry(1).selected = 1;
        program.OpenGraph();
        program.Graph().resize(555, 565);
        EndApplication(program.application, program.shown.show);
        const WindowState state = LoadWindowState(program.application.windowStatePath);
        QCOMPARE(state.size, QSize(555, 565));
        QCOMPARE(state.folder, QString("/f"));
    }
    void MessageWindows() {
        const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
            {MessageIcon::None, QMessageBox::NoIcon},
            {MessageIcon::Stop, QMessageBox::Critical},
            {MessageIcon::Exclamation, QMessageBox::Warning},
            {MessageIcon::Information, QMessageBox::Information}};
        for (const auto& [icon, expected] : icons) {
            QMessageBox::Icon seen = QMessageBox::Question;
            QTimer::singleShot(0, this, [&seen] {
                auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                QVERIFY(box != nullptr);
                seen = box->icon();
                QCOMPARE(box->windowTitle(), QString("Error!"));
                QCOMPARE(box->text(), QString("<b>1 & 2"));
                QVERIFY(box->textFormat() == Qt::PlainText);
                QVERIFY(box->width() >= 280);
                QTest::keyClick(box, Qt::Key_Return);
            });
            QVERIFY(Answered({u"Error!", u"<b>1 & 2", icon, MessageButtons::Ok}) ==
                    MessageAnswer::Ok);
            QCOMPARE(seen, expected);
        }
        const std::pair<QMessageBox::StandardButton, MessageAnswer> answers[] = {
            {QMessageBox::Yes, MessageAnswer::Yes}, {QMessageBox::No, MessageAnswer::No}};
        for (const auto& [button, answer] : answers) {
            QTimer::singleShot(0, this, [pressed = button] {
                auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                QTest::mouseClick(box->button(pressed), Qt::LeftButton);
            });
            QVERIFY(Answered({u"a", u"b", MessageIcon::Stop, MessageButtons::YesNo}) == answer);
        }
        QTimer::singleShot(
            0, this, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        QVERIFY(Answered({u"a", u"b", MessageIcon::Stop, MessageButtons::YesNo}) ==
                MessageAnswer::No);
    }
    void LongTextsStayOnTheScreen() {
        const QString zero = QChar(0x200B);
        const QString word(20, 'x');
        const QString smile = QString::fromUcs4(U"\U0001F600", 1);
        const std::pair<QString, QString> cases[] = {
            {"", ""},
            {"Error in 1 function:\nx\nEmpty string", "Error in 1 function:\nx\nEmpty string"},
            {word, word},
            {word + "y", word + zero + "y"},
            {word + "\n" + word + word + "y z", word + "\n" + word + zero + word + zero + "y z"},
            {QString(19, 'x') + smile, QString(19, 'x') + smile},
            {QString(200, ' ') + "b" + QString(200, ' '),
             QString(200, ' ') + QChar(0x2026) + QString(200, ' ')},
        };
        for (const auto& [text, shown] : cases)
            QCOMPARE(ShowableText(text), shown);
        const std::u16string line(30000, u'x');
        QTimer::singleShot(0, this, [] {
            const QWidget* const box = QApplication::activeModalWidget();
            QVERIFY(box->width() <= box->screen()->availableGeometry().width());
            QVERIFY(box->height() <= box->screen()->availableGeometry().height());
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
        });
        QVERIFY(Answered({u"Error!", u"Error in 1 function:\n" + line, MessageIcon::Stop,
                          MessageButtons::Ok}) == MessageAnswer::Ok);
    }
};

QTEST_MAIN(ApplicationTest)
#include "application_test.moc"
