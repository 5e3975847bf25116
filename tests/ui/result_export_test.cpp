#include "ui/report/result_export.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>
#include <csignal>
#include <filesystem>

#include "ui/parts/file_dialogs.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

void ExpectFailure(const ShownBoxes& shown) {
    QCOMPARE(shown.boxes->size(), std::size_t{2});
    QVERIFY(shown.boxes->front().text == u"file error");
    QVERIFY(shown.boxes->front().caption == u"endl");
    QVERIFY(shown.boxes->front().icon == MessageIcon::None);
    QVERIFY(shown.boxes->back().text == u"Saved!");
}

}  // namespace

class ResultExportTest final : public QObject {
    Q_OBJECT
  private slots:
    void TheDialog() {
        QWidget window;
        QTemporaryDir folder;
        QString chosen;
        OpenSaveResultDialog(&window, folder.path(),
                             [&chosen](const QString& path) { chosen = path; });
        auto* const dialog = window.findChild<QFileDialog*>("saveResultDialog");
        QVERIFY(dialog != nullptr);
        QCOMPARE(dialog->windowTitle(), QString("Save File As"));
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog->nameFilters(),
                 QStringList({"Text (*.txt) (*.txt)", "Kalvex files (*.kx) (*.kx)"}));
        const auto* const filters = dialog->findChild<QComboBox*>("fileTypeCombo");
        QCOMPARE(filters->itemText(0), QString("Text (*.txt)"));
        QCOMPARE(filters->itemText(1), QString("Kalvex files (*.kx)"));
        QCOMPARE(filters->currentIndex(), 0);
        QCOMPARE(dialog->defaultSuffix(), QString("txt"));
        auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
        QCOMPARE(name->text(), QString("result.kx"));
        QTest::keyClick(name, Qt::Key_Return);
        QTRY_COMPARE(chosen, folder.filePath("result.kx"));
    }
    void ANameWithoutEndingGetsTheDefaultOne() {
        QWidget window;
        QTemporaryDir folder;
        QString chosen;
        OpenSaveResultDialog(&window, folder.path(),
                             [&chosen](const QString& path) { chosen = path; });
        auto* const dialog = window.findChild<QFileDialog*>("saveResultDialog");
        auto* const name = dialog->findChild<QLineEdit*>("fileNameEdit");
        name->setText("sine");
        QTest::keyClick(name, Qt::Key_Return);
        QTRY_COMPARE(chosen, folder.filePath("sine.txt"));
    }
    // The box that follows must not share the keyboard with the dialog.
    void TheDialogIsGoneWhenItsFileIsKnown() {
        QWidget window;
        QTemporaryDir folder;
        bool gone = false;
        OpenSaveResultDialog(&window, folder.path(), [&](const QString&) {
            const auto* const dialog = window.findChild<QFileDialog*>("saveResultDialog");
            gone = dialog == nullptr || !dialog->isVisible();
        });
        auto* const dialog = window.findChild<QFileDialog*>("saveResultDialog");
        QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        QTRY_VERIFY(gone);
    }
    void StartsInTheDocuments() {
        QCOMPARE(StartFolder("/somewhere"), QString("/somewhere"));
        const QString documents =
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        QVERIFY(!QDir(documents).exists() || documents == QDir::homePath());
        QCOMPARE(StartFolder({}), QDir::homePath());
        QVERIFY(QDir().mkpath(documents));
        QCOMPARE(StartFolder({}), documents);
        if (documents != QDir::homePath()) QDir().rmdir(documents);
    }
    // A writable file in a folder that is not: the file would have to be written in place, which
    // could fail half-way, so it is not tried.
    void AFolderThatCannotBeWrittenTo() {
        QTemporaryDir folder;
        ShownBoxes shown;
        const QString path = folder.filePath("old.txt");
        Write(path, "good old points\n");
        QVERIFY(QFile::setPermissions(path, QFile::Permissions(0x6666)));
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x5555)));
        const uid_t self = geteuid();
        if (self == 0) QCOMPARE(seteuid(65534), 0);  // root may write everywhere
        static_cast<void>(SaveResult(path, "new", shown.show));
        if (self == 0) QCOMPARE(seteuid(0), 0);
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7777)));
        ExpectFailure(shown);
        QCOMPARE(Contents(path), QByteArray("good old points\n"));
    }
    // Qt's text of such a name leads to another file.
    void ANameThatIsNotUtf8IsRefused() {
        const QTemporaryDir folder;
        ShownBoxes shown;
        const QString path = QFile::decodeName((folder.path() + "/a").toUtf8() + "\xFF.txt");
        static_cast<void>(SaveResult(path, "new", shown.show));
        ExpectFailure(shown);
        QVERIFY(std::filesystem::is_empty(folder.path().toStdString()));
    }
    void ReplacesAnOldFile() {
        QTemporaryDir folder;
        for (const char* const name : {"a.txt", "a b.kx", "график ∫.txt", "\U0001D453.txt"}) {
            ShownBoxes shown;
            const QString path = folder.filePath(QString::fromUtf8(name));
            Write(path, QByteArray(10000, 'x'));
            static_cast<void>(SaveResult(path, "1 2\n", shown.show));
            QCOMPARE(Contents(path), QByteArray("1 2\n"));
            QCOMPARE(shown.boxes->size(), std::size_t{1});
            QVERIFY(shown.boxes->front().text == u"Saved!");
            QVERIFY(shown.boxes->front().caption == u"Saved!");
            QVERIFY(shown.boxes->front().icon == MessageIcon::Information);
        }
    }
    void SaysThatAFileCannotBeMade() {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("folder.txt"));
        for (const QString& path : {folder.filePath("folder.txt"), folder.filePath("no/file.txt"),
                                    QString("/proc/no.txt"), QString("/dev/full"), QString()}) {
            ShownBoxes shown;
            static_cast<void>(SaveResult(path, QByteArray(10000, 'x').toStdString(), shown.show));
            ExpectFailure(shown);
        }
        QVERIFY(QFileInfo(folder.filePath("folder.txt")).isDir());
        QVERIFY(!QFileInfo("/dev/full").isFile());
    }
    void AFullDiskLeavesTheOldFile() {
        QTemporaryDir folder;
        ShownBoxes shown;
        const QString path = folder.filePath("old.txt");
        Write(path, "good old points\n");
        // A limit on the size of files acts like a full disk.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit small{4096, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        static_cast<void>(SaveResult(path, std::string(100000, 'x'), shown.show));
        setrlimit(RLIMIT_FSIZE, &before);
        ExpectFailure(shown);
        QCOMPARE(Contents(path), QByteArray("good old points\n"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }
};

QTEST_MAIN(ResultExportTest)
#include "result_export_test.moc"
