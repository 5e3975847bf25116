#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>

#include "ui/parts/file_dialogs.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

struct DialogProgram : TestProgram {
    QPointer<QFileDialog> dialog;

    void ChooseFileType() {
        Editor().FocusLine(2);
        Editor().OpenMenu();
        QMenu* const menu = OpenedMenu(Editor(), "mainMenu");
        ActionOf(*menu, CommandId::File)->trigger();
        menu->close();
        dialog = Editor().findChild<QFileDialog*>("openFileDialog");
        QVERIFY(dialog != nullptr);
    }
    QString MakeFile(const QString& name) {
        QFile file(folder.filePath(name));
        const bool written = file.open(QIODevice::WriteOnly) && file.write("0 1\n1 2\n2 0\n") > 0;
        return written ? file.fileName() : QString();
    }
    void TypeName(const QString& name) {
        auto* const edit = dialog->findChild<QLineEdit*>("fileNameEdit");
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }
};

}  // namespace

class PointFileDialogTest final : public QObject {
    Q_OBJECT
  private slots:
    void ReadsAsItMust() {
        DialogProgram program;
        program.Start();
        program.ClearLines();
        program.ChooseFileType();
        QCOMPARE(program.dialog->windowTitle(), QString("Open File"));
        auto* const filters = program.dialog->findChild<QComboBox*>("fileTypeCombo");
        QVERIFY(filters != nullptr);
        QCOMPARE(filters->count(), 3);
        QCOMPARE(filters->itemText(0).trimmed(), QString("All (*.*)"));
        QCOMPARE(filters->itemText(1).trimmed(), QString("txt (*.txt)"));
        QCOMPARE(filters->itemText(2).trimmed(), QString("Kalvex files (*.kx)"));
        QCOMPARE(filters->currentIndex(), 0);
    }
    void TheChosenPathBecomesTheLine() {
        DialogProgram program;
        program.Start();
        program.ClearLines();
        const QString path = program.MakeFile("my points");  // a name without a dot
        program.ChooseFileType();
        program.dialog->setDirectory(program.folder.path());
        program.TypeName("my points");
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Line(3)->text(), path);
        QVERIFY(program.application.workspace.lines[2] == FromQString(path));
        QCOMPARE(program.Entry(3).type, EquationType::File);
        QCOMPARE(program.Label(3)->text(), QString(" F="));
        QCOMPARE(program.Editor().FocusedSlot().value_or(-1), 2);
        QCOMPARE(program.application.windowState.folder, program.folder.path());
        program.Editor().Run(CommandId::Select);
        program.OpenGraph();
        QCOMPARE(CountOf(program.Entry(3).points), std::size_t{3});
        QVERIFY(program.Entry(3).text == u"my points");
    }
    void StartsWhereTheLinesFileIs() {
        DialogProgram program;
        program.Start();
        program.ClearLines();
        program.application.windowState.folder = QDir::rootPath();
        program.ChooseFileType();
        QCOMPARE(program.dialog->directory().absolutePath(), QDir::rootPath());
        QTest::keyClick(program.dialog, Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        program.Line(3)->setText(program.MakeFile("points.txt"));
        program.ChooseFileType();
        QCOMPARE(program.dialog->directory().absolutePath(), program.folder.path());
    }
    void FitsASmallScreen() {
        for (const QSize& room : {QSize(480, 640), QSize(640, 400), QSize(1280, 800)}) {
            QFileDialog dialog;
            dialog.setOption(QFileDialog::DontUseNativeDialog);
            FitFileDialog(dialog, room);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowExposed(&dialog));
            QVERIFY(dialog.width() <= room.width() && dialog.height() <= room.height());
            auto* const places = dialog.findChild<QWidget*>("sidebar");
            QVERIFY(places != nullptr);
            QCOMPARE(places->isVisible(), room.width() > 700);
        }
    }
    void CancelKeepsTheLineButNotTheType() {
        DialogProgram program;
        program.Start();
        program.ClearLines();
        program.Line(3)->setText("x+1");
        program.ChooseFileType();
        QTest::keyClick(program.dialog, Qt::Key_Escape);
        QTRY_VERIFY(!program.dialog);
        QCOMPARE(program.Line(3)->text(), QString("x+1"));
        QCOMPARE(program.Entry(3).type, EquationType::File);
    }
};

QTEST_MAIN(PointFileDialogTest)
#include "point_file_dialog_test.moc"
