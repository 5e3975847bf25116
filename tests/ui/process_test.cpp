// The program as separate processes.
#include <fcntl.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "settings/settings_lock.h"
#include "ui/single_instance.h"

namespace {

struct Home {
    QTemporaryDir folder;
    QString runtime;     ///< XDG_RUNTIME_DIR, where it is another folder
    bool talks = false;  ///< the program writes to standard error while it starts

    QString Path(const char* name) const { return folder.filePath(name); }
    void Start(QProcess& process) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"}) {
            environment.insert(name, folder.path());
        }
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("LC_ALL", "C.UTF-8");  // Qt remarks on a locale without UTF-8
        if (!runtime.isEmpty()) environment.insert("XDG_RUNTIME_DIR", runtime);
        if (talks) environment.insert("QT_DEBUG_PLUGINS", "1");
        process.setProcessEnvironment(environment);
        process.start(KALVEX_PROGRAM, QStringList());
    }
    QByteArray Settings() const {
        QFile file(Path("kalvex/kalvex.ini"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void ReplaceInSettings(const char* before, const char* after) const {
        QByteArray bytes = Settings();
        QVERIFY(bytes.contains(before));
        QFile file(Path("kalvex/kalvex.ini"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes.replace(before, after)) > 0);
    }
    /// Whether no process has the settings.
    bool IsFree() const {
        kalvex::Descriptor lock;
        return kalvex::LockSettings(Path("kalvex/kalvex.ini").toStdString(), lock) ==
               kalvex::LockAnswer::Got;
    }
    /// Whether another process finds the program's window.
    bool IsFound() const {
        QLocalSocket socket;
        socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
        socket.connectToServer(kalvex::InstanceSocketName(Path("kalvex/kalvex.ini").toStdString()));
        return socket.waitForConnected(100);
    }
};

}  // namespace

class ProcessTest final : public QObject {
    Q_OBJECT
  private slots:
    void SecondStartAndTerminate() {
        const Home home;
        QProcess first;
        home.Start(first);
        QVERIFY(first.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        QVERIFY(QFileInfo::exists(home.Path("kalvex/kalvex.ini")));

        QProcess second;
        home.Start(second);
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(second.readAllStandardError(), QByteArray());
        QCOMPARE(first.state(), QProcess::Running);

        QVERIFY(!QFileInfo::exists(home.Path("kalvex/window.ini")));
        home.ReplaceInSettings("equ=Gamma(x)", "equ=elsewhere");
        QCOMPARE(kill(static_cast<pid_t>(first.processId()), SIGTERM), 0);
        QVERIFY(first.waitForFinished(20000));
        QCOMPARE(first.exitStatus(), QProcess::NormalExit);
        QCOMPARE(first.exitCode(), 0);
        QVERIFY(QFileInfo::exists(home.Path("kalvex/window.ini")));
        QVERIFY(home.Settings().contains("equ=Gamma(x)\n"));  // the text of the editor
        QVERIFY(home.IsFree());
    }
    void TerminatedWhileAMessageOfTheStartIsUp() {
        const Home home;
        QVERIFY(QDir(home.folder.path()).mkpath("kalvex"));
        QFile settings(home.Path("kalvex/kalvex.ini"));
        QVERIFY(settings.open(QIODevice::WriteOnly) && settings.write("rubbish") > 0);
        settings.close();
        QProcess process;
        home.Start(process);
        QTRY_VERIFY_WITH_TIMEOUT(!home.IsFree(), 20000);
        QTest::qWait(1000);
        QVERIFY(!home.IsFound());  // the window is not shown yet
        process.terminate();
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QVERIFY(home.IsFree());
    }
    void ACrashLeavesNothingBehind() {
        const Home home;
        QProcess first;
        home.Start(first);
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        first.kill();
        QVERIFY(first.waitForFinished(20000));
        QVERIFY(home.IsFree());
        QProcess second;
        home.Start(second);
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        QCOMPARE(second.state(), QProcess::Running);
        second.terminate();
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitCode(), 0);
    }
    void ASecondStartThatCannotRaiseTheFirstIsRefused() {
        const Home home;
        QVERIFY(QDir(home.folder.path()).mkpath("kalvex"));
        kalvex::Descriptor lock;
        const std::string settings = home.Path("kalvex/kalvex.ini").toStdString();
        QVERIFY(kalvex::LockSettings(settings, lock) == kalvex::LockAnswer::Got);
        QProcess second;
        home.Start(second);
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 1);
        const QByteArray line = second.readAllStandardError();
        QVERIFY2(line.contains("already running") && line.count('\n') == 1, line);
        QVERIFY(!QFileInfo::exists(home.Path("kalvex/kalvex.ini")));
    }
    void ASecondStartIsRefusedWhenTheFirstIsStopped() {
        const Home home;
        QProcess first;
        home.Start(first);
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        const pid_t number = static_cast<pid_t>(first.processId());
        QCOMPARE(kill(number, SIGSTOP), 0);
        QProcess second;
        home.Start(second);
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(kill(number, SIGCONT), 0);
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 1);
        const QByteArray line = second.readAllStandardError();
        QVERIFY2(line.contains("already running") && line.count('\n') == 1, line);
        first.terminate();
        QVERIFY(first.waitForFinished(20000));
        QCOMPARE(first.exitCode(), 0);
    }
    void TheSettingsVanishDuringTheRun() {
        const Home home;
        QProcess process;
        home.Start(process);
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        const QByteArray before = home.Settings();
        QVERIFY(before.contains("equ=Gamma(x)\n"));
        QVERIFY(QFile::remove(home.Path("kalvex/kalvex.ini")));
        process.terminate();
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(home.Settings(), before);
    }
    void TheRuntimeFolderDoesNotMatter() {
        Home home;
        QProcess first;
        home.Start(first);
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        const QTemporaryDir other;
        home.runtime = other.path();
        QProcess second;
        home.Start(second);
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(first.state(), QProcess::Running);
        first.terminate();
        QVERIFY(first.waitForFinished(20000));
    }
    void NobodyReadsStandardError() {
        Home home;
        home.talks = true;
        int ends[2] = {};
        QCOMPARE(pipe(ends), 0);
        close(ends[0]);
        QProcess process;
        process.setChildProcessModifier([&ends] { dup2(ends[1], STDERR_FILENO); });
        home.Start(process);
        close(ends[1]);
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        home.ReplaceInSettings("equ=Gamma(x)", "equ=elsewhere");
        process.terminate();
        QVERIFY(process.waitForFinished(20000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(home.Settings().contains("equ=Gamma(x)\n"));
    }
    // A reader that has the pipe open and does not read holds up whoever writes to it.
    void StandardErrorIsFull() {
        Home home;
        home.talks = true;
        int ends[2] = {};
        QCOMPARE(pipe(ends), 0);
        QCOMPARE(fcntl(ends[1], F_SETFL, O_NONBLOCK), 0);
        const QByteArray filler(4096, '.');
        while (write(ends[1], filler.constData(), 4096) > 0) {
        }
        QCOMPARE(fcntl(ends[1], F_SETFL, 0), 0);
        QProcess process;
        process.setChildProcessModifier([&ends] { dup2(ends[1], STDERR_FILENO); });
        home.Start(process);
        QTRY_VERIFY_WITH_TIMEOUT(home.IsFound(), 20000);
        home.ReplaceInSettings("equ=Gamma(x)", "equ=elsewhere");
        process.terminate();
        const bool finished = process.waitForFinished(20000);
        process.kill();
        close(ends[0]);
        close(ends[1]);
        QVERIFY(finished);
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(home.Settings().contains("equ=Gamma(x)\n"));
    }
};

QTEST_MAIN(ProcessTest)
#include "process_test.moc"
