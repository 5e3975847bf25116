// Nothing overtakes a flow that waits for the answer of a box.
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMenu>
#include <QPointer>
#include <QTreeView>

#include "boxes_fixture.h"
#include "ui/parts/gate.h"

using namespace kalvex;

namespace {

/// A form with a text that it refuses.
struct Form {
    const char* name;
    std::function<void(BoxesProgram&)> open;
    const char* field;
    const char* typed;
    const char* refused;  ///< how the box begins
};

void OpenInGraph(BoxesProgram& program, CommandId command) {
    program.StartWith("x");
    program.OpenGraph();
    QTest::qWait(30);
    program.Graph().Run(command);
}

void OpenMethod(BoxesProgram& program) {
    program.StartWith("x");
    program.SetFileLine(1, 3);
    program.Editor().FocusLine(0);
    program.Editor().Run(CommandId::BetaSplines);
}

void OpenInEditor(BoxesProgram& program, CommandId command) {
    program.StartWith("x");
    program.Editor().Run(command);
}

const std::vector<Form> kForms = {
    {"optionsDialog", [](BoxesProgram& program) { OpenInEditor(program, CommandId::Options); },
     "maxParam", "-1000", "MaxParam must be greater"},
    {"optionsDialog", [](BoxesProgram& program) { OpenInGraph(program, CommandId::Options); },
     "maxParam", "-1000", "MaxParam must be greater"},
    {"viewWindowDialog",
     [](BoxesProgram& program) { OpenInGraph(program, CommandId::ViewWindowDialog); }, "field2",
     "two", ""},
    {"factorDialog", [](BoxesProgram& program) { OpenInGraph(program, CommandId::ZoomFactor); },
     "field1", "0", ""},
    {"betaDialog", OpenMethod, "beta1", "one", ""},
    {"calculatorDialog",
     [](BoxesProgram& program) { OpenInEditor(program, CommandId::Calculator); }, "expression",
     "2*(x", "Error "},
};

QLineEdit* FieldOf(const Form& form) {
    QDialog* const dialog = OpenDialog(form.name);
    return dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>(form.field);
}

void PressButtonByAction(QWidget& window, QDialogButtonBox::StandardButton button) {
    QAbstractButton* const found = window.findChild<QDialogButtonBox*>()->button(button);
    QVERIFY(found != nullptr);
    QAccessible::queryAccessibleInterface(found)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
}

int BoxCount() {
    int count = 0;
    for (const QWidget* const window : QApplication::topLevelWidgets())
        count += qobject_cast<const QMessageBox*>(window) != nullptr && window->isVisible() ? 1 : 0;
    return count;
}

/// A file dialog that asks about a name, in an event loop of its own.
struct Asking {
    const char* name;
    std::function<void(BoxesProgram&)> open;
    QDialogButtonBox::StandardButton button;
    const char* typed;
    const char* question;
    QMessageBox::StandardButton no;
};

const std::vector<Asking> kAsking = {
    {"savePictureDialog",
     [](BoxesProgram& program) { OpenInGraph(program, CommandId::SavePictureAs); },
     QDialogButtonBox::Save, "old.png", "already exists", QMessageBox::No},
    {"saveResultDialog",
     [](BoxesProgram& program) {
         OpenInGraph(program, CommandId::Trace);
         program.Graph().Run(CommandId::Analyze);
         OpenDialog("report")->activateWindow();  // the offscreen platform leaves it inactive
         QTRY_VERIFY(QApplication::activeWindow() == OpenDialog("report"));
         QTest::keyClick(OpenDialog("report"), Qt::Key_S, Qt::ControlModifier);
     },
     QDialogButtonBox::Save, "old.png", "already exists", QMessageBox::No},
    {"openFileDialog", [](BoxesProgram& program) { OpenInEditor(program, CommandId::File); },
     QDialogButtonBox::Open, "missing.txt", "not found", QMessageBox::Ok},
};

QByteArray ContentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class FlowsTest final : public QObject {
    Q_OBJECT
  private slots:
    void AFormIsNotClosedBehindItsBox() {
        for (const Form& form : kForms) {
            BoxesProgram program;
            form.open(program);
            const QPointer<QDialog> dialog = OpenDialog(form.name);
            QVERIFY2(dialog && FieldOf(form) != nullptr, form.name);
            QString text;
            const bool done = BoxesProgram::Run({
                [&] { FieldOf(form)->setText(form.typed); },
                [&] { PressByAction(*dialog, "saveKey"); },
                [&] { text = TextInFront(); },
                [&] { PressByAction(*dialog, "saveKey"); },
                [&] { PressByAction(*dialog, "cancelKey"); },
                [&] { dialog->close(); },
                [&] { QVERIFY2(dialog && dialog->isVisible(), form.name); },
                [&] { QVERIFY2(BoxInFront() != nullptr, form.name); },
                [&] { BoxInFront()->accept(); },
            });
            QVERIFY2(done && !text.isEmpty() && text.startsWith(form.refused), form.name);
            QVERIFY2(BoxInFront() == nullptr, form.name);
            QVERIFY2(dialog && dialog->isVisible(), form.name);
            QCOMPARE(dialog->focusWidget(), FieldOf(form));
            PressByAction(*dialog, "cancelKey");
            QTRY_VERIFY2(!dialog, form.name);
        }
    }
    void AFileDialogIsNotClosedBehindItsQuestion() {
        for (const Asking& row : kAsking) {
            BoxesProgram program;
            const QString old = program.folder.filePath("old.png");
            QFile file(old);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
            file.close();
            row.open(program);
            const QPointer<QDialog> dialog = OpenDialog(row.name);
            QVERIFY2(dialog, row.name);
            QString question;
            int boxes = 0;
            const bool done = BoxesProgram::Run({
                [&] {
                    qobject_cast<QFileDialog*>(dialog)->setDirectory(program.folder.path());
                    auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
                    name->setText(row.typed);
                    QTimer::singleShot(0, name, [name] { QTest::keyClick(name, Qt::Key_Return); });
                },
                [&] { question = TextInFront(); },
                [&] { PressButtonByAction(*dialog, row.button); },
                [&] { PressButtonByAction(*dialog, QDialogButtonBox::Cancel); },
                [&] {
                    if (dialog) dialog->close();
                },
                [&] { boxes = BoxCount(); },
                [&] {
                    if (BoxInFront() != nullptr) BoxInFront()->button(row.no)->click();
                },
            });
            QVERIFY2(done && question.contains(row.question), qPrintable(question));
            QCOMPARE(boxes, 1);
            QVERIFY2(dialog && dialog->isVisible() && BoxCount() == 0, row.name);
            PressButtonByAction(*dialog, QDialogButtonBox::Cancel);
            QTRY_VERIFY2(!dialog, row.name);
            QCOMPARE(ContentsOf(old), QByteArray("old"));
        }
    }
    void AFileIsReplacedWhenTheQuestionIsAnswered() {
        BoxesProgram program;
        const QString old = program.folder.filePath("old.png");
        QFile file(old);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
        file.close();
        OpenInGraph(program, CommandId::SavePictureAs);
        const QPointer<QDialog> dialog = OpenDialog("savePictureDialog");
        const bool done = BoxesProgram::Run({
            [&] {
                qobject_cast<QFileDialog*>(dialog)->setDirectory(program.folder.path());
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText("old.png");
                QTimer::singleShot(0, qApp,
                                   [&] { PressButtonByAction(*dialog, QDialogButtonBox::Save); });
            },
            [&] { PressButtonByAction(*dialog, QDialogButtonBox::Cancel); },
            [&] { BoxInFront()->button(QMessageBox::Yes)->click(); },
            [&] { PressByAction(*OpenDialog("pictureSizeDialog"), "saveKey"); },
        });
        QVERIFY(done);
        QTRY_VERIFY(!dialog);
        QVERIFY(ContentsOf(old).startsWith("\x89PNG"));
        QVERIFY(!IsAnythingOpen());
    }
    // The menu waits for its answer inside a function of the dialog, as a question does.
    void AFileDialogIsClosedBehindItsMenu() {
        BoxesProgram program;
        program.StartWith("x");
        program.Editor().Run(CommandId::File);
        const QPointer<QDialog> dialog = OpenDialog("openFileDialog");
        QPointer<QWidget> menu;
        bool returned = false;
        const bool done = BoxesProgram::Run({
            [&] {
                QTimer::singleShot(0, qApp, [&] {
                    auto* const files = dialog->findChild<QTreeView*>("treeView");
                    emit files->customContextMenuRequested({});
                    returned = true;
                });
            },
            [&] { menu = QApplication::activePopupWidget(); },
            [&] { PressButtonByAction(*dialog, QDialogButtonBox::Cancel); },
        });
        QVERIFY(done && returned && !menu);
        QTRY_VERIFY(!dialog);
        QVERIFY(!IsAnythingOpen() && program.Editor().isVisible());
    }
    void DrawIsNotRunInsideDraw() {
        BoxesProgram program;
        program.StartWith("(x)(x)(x)");
        QStringList texts;
        const auto push = [&] {
            PressByAction(program.Editor(), "actionKey");
            QTest::keyClick(&program.Editor(), Qt::Key_F5);
            program.Editor().Run(CommandId::Draw);
            program.Editor().close();
            PressByAction(program.Editor(), "menuKey");
            PressByAction(program.Editor(), "insertKey");
            TypeByAction(*program.Line(1), "2");
        };
        const bool done = BoxesProgram::Run({
            [&] { PressByAction(program.Editor(), "actionKey"); },
            [&] { texts += TextInFront(); },
            push,
            [&] { QVERIFY(program.application.graphWindow == nullptr); },
            [&] { BoxInFront()->accept(); },
            [&] { texts += TextInFront(); },
            push,
            [&] { BoxInFront()->accept(); },
        });
        QVERIFY(done);
        QCOMPARE(texts, (QStringList{"(x)*(x)(x)", "(x)*(x)*(x)"}));
        QTRY_VERIFY(program.application.graphWindow != nullptr && program.Graph().isVisible());
        QVERIFY(BoxInFront() == nullptr && QApplication::activePopupWidget() == nullptr);
        QCOMPARE(program.quits, 0);
        // What was checked is drawn and stored, not what was typed meanwhile.
        QVERIFY(program.Entry(1).text == u"(x)(x)(x)");
        QVERIFY(program.store.registry.readText("1", "equ") == u"(x)(x)(x)");
    }
    // The line is stored when the boxes about it have been answered, not before.
    void StoringWaitsForTheAnswer() {
        BoxesProgram program;
        program.StartWith("(x)(x)");
        program.SetLine(2, "2*(x");
        program.store.log->clear();
        const auto stored = [&program](const char* operation) {
            const auto& log = *program.store.log;
            return std::count(log.begin(), log.end(), operation);
        };
        const bool done = BoxesProgram::Run({
            [&] { program.Editor().Run(CommandId::Draw); },
            [&] { QCOMPARE(TextInFront(), QString("(x)*(x)")); },
            [&] { QCOMPARE(stored("writeText 1/equ"), 0); },
            [&] { BoxInFront()->accept(); },
            [&] { QVERIFY(TextInFront().startsWith("Error in 2 function")); },
            [&] { QCOMPARE(stored("writeText 1/equ"), 1); },
            [&] { BoxInFront()->accept(); },
        });
        QVERIFY(done);
        QCOMPARE(stored("writeText 2/equ"), 0);
        QVERIFY(BoxInFront() == nullptr && program.application.graphWindow == nullptr);
    }
    void AQuestionDecides() {
        for (const bool yes : {true, false}) {
            BoxesProgram program;
            program.StartWith("x");
            program.SetFileLine(2, 51);
            const bool done = BoxesProgram::Run({
                [&] { program.Editor().Run(CommandId::Draw); },
                [&] { QVERIFY(TextInFront().startsWith("The file points.txt has very many")); },
                [&] { program.Editor().Run(CommandId::Draw); },
                [&] { BoxInFront()->button(yes ? QMessageBox::Yes : QMessageBox::No)->click(); },
            });
            QVERIFY(done && BoxInFront() == nullptr);
            QCOMPARE(program.application.graphWindow != nullptr, yes);
        }
    }
    void KeysBehindADialogAreRefused() {
        for (const CommandId command : {CommandId::Options, CommandId::About, CommandId::Help,
                                        CommandId::Calculator, CommandId::File}) {
            BoxesProgram program;
            program.StartWith("x");
            program.Editor().Run(command);
            QVERIFY(IsAnythingOpen());
            const QPointer<QWidget> front = QApplication::activeModalWidget();
            const bool done = BoxesProgram::Run({
                [&] { PressByAction(program.Editor(), "actionKey"); },
                [&] { PressByAction(program.Editor(), "menuKey"); },
                [&] { PressByAction(program.Editor(), "insertKey"); },
                [&] { emit program.Label(1)->Toggled(); },
                [&] { emit program.Line(1)->Toggled(); },
                [&] { emit program.Line(1)->PopupAsked({}); },
                [&] { program.Editor().close(); },
                [&] { program.Editor().Run(CommandId::Select); },
            });
            QVERIFY(done && front && QApplication::activeModalWidget() == front);
            QVERIFY(QApplication::activePopupWidget() == nullptr);
            QVERIFY(program.application.graphWindow == nullptr);
            QCOMPARE(int{program.Entry(1).selected}, 1);
            QCOMPARE(program.quits, 0);
            CloseWhatIsOpen();
        }
    }
    void AnExportWaitsUntilNothingIsOpen() {
        BoxesProgram program;
        program.StartWith("x");
        program.OpenGraph();
        QTest::qWait(30);
        program.Graph().Run(CommandId::Picture);
        program.Graph().Run(CommandId::Options);
        QTest::qWait(500);
        QVERIFY(BoxInFront() == nullptr && OpenDialog("optionsDialog") != nullptr);
        CloseWhatIsOpen();
        QTRY_COMPARE(TextInFront(), QString("Save"));
        BoxInFront()->accept();
    }
    void AWindowThatIsNotShownRunsNothing() {
        BoxesProgram program;
        program.StartWith("x");
        program.OpenGraph();
        QVERIFY(!program.Editor().Run(CommandId::Select));
        QCOMPARE(int{program.Entry(1).selected}, 1);
    }
    // A second start brings what is open to the front and changes nothing.
    void ASecondStartRunsNothing() {
        BoxesProgram program;
        program.StartWith("(x)(x)");
        const bool done = BoxesProgram::Run({
            [&] { program.Editor().Run(CommandId::Draw); },
            [&] { RaiseWindow(program.application); },
            [&] { QCOMPARE(TextInFront(), QString("(x)*(x)")); },
            [&] { BoxInFront()->accept(); },
        });
        QVERIFY(done && program.application.graphWindow != nullptr);
    }
};

QTEST_MAIN(FlowsTest)
#include "flows_test.moc"
