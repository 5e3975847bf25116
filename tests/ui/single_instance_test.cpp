#include "ui/single_instance.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>
#include <string>

using namespace kalvex;

namespace {

std::string PathIn(const QTemporaryDir& folder, const char* name) {
    return folder.filePath(name).toStdString();
}

}  // namespace

class SingleInstanceTest final : public QObject {
    Q_OBJECT
  private slots:
    void StepsInOrder() {
        struct Row {
            bool mutexFree;
            int foundAtLook;  // 0: never
            bool answers;
            InstanceAnswer answer;
            std::string steps;
        };
        const Row rows[] = {
            {true, 0, false, InstanceAnswer::Start, "mutex "},
            {false, 1, true, InstanceAnswer::End, "mutex find beep raise "},
            {false, 1, false, InstanceAnswer::Refused, "mutex find beep raise "},
            {false, 2, true, InstanceAnswer::End, "mutex find wait500 find beep raise "},
            {false, 0, false, InstanceAnswer::Refused, "mutex find wait500 find "},
            {false, 3, true, InstanceAnswer::Refused, "mutex find wait500 find "},
        };
        for (const Row& row : rows) {
            std::string done;
            int looks = 0;
            InstanceSteps steps;
            steps.takeMutex = [&] { return done += "mutex ", row.mutexFree; };
            steps.findWindow = [&] { return done += "find ", ++looks == row.foundAtLook; };
            steps.wait = [&](int time) { done += "wait" + std::to_string(time) + " "; };
            steps.beep = [&] { done += "beep "; };
            steps.raiseWindow = [&] { return done += "raise ", row.answers; };
            QVERIFY(CheckInstance(steps) == row.answer);
            QCOMPARE(QString::fromStdString(done), QString::fromStdString(row.steps));
        }
    }
    void TheRunningWindowIsRaised() {
        const QTemporaryDir folder;
        const std::string settings = PathIn(folder, "kalvex.ini");
        InstanceGuard first;
        QVERIFY(CheckInstance(RealInstanceSteps(first, settings)) == InstanceAnswer::Start);
        int raised = 0;
        ListenForStarts(first, settings, [&raised] { ++raised; });
        for (int start = 1; start <= 2; ++start) {
            InstanceGuard second;
            InstanceSteps steps = RealInstanceSteps(second, settings);
            int beeps = 0;
            steps.beep = [&beeps] { ++beeps; };
            QVERIFY(CheckInstance(steps) == InstanceAnswer::End);
            QTRY_COMPARE(raised, start);
            QCOMPARE(beeps, 1);
        }
        ReleaseInstance(first);
        InstanceGuard third;
        QVERIFY(CheckInstance(RealInstanceSteps(third, settings)) == InstanceAnswer::Start);
    }
    // The system accepts connections for a program that is stopped or hangs.
    void AProgramThatDoesNotAnswer() {
        const QTemporaryDir folder;
        const std::string settings = PathIn(folder, "kalvex.ini");
        InstanceGuard first;
        QVERIFY(CheckInstance(RealInstanceSteps(first, settings)) == InstanceAnswer::Start);
        QLocalServer silent;
        silent.setSocketOptions(QLocalServer::AbstractNamespaceOption);
        QVERIFY(silent.listen(InstanceSocketName(settings)));
        InstanceGuard second;
        QElapsedTimer clock;
        clock.start();
        InstanceSteps steps = RealInstanceSteps(second, settings, 300);
        QVERIFY(CheckInstance(steps) == InstanceAnswer::Refused);
        QVERIFY(clock.elapsed() >= 290 && clock.elapsed() < 5000);
    }
    // It ends while the second start waits.
    void AProgramThatHangsUp() {
        const QTemporaryDir folder;
        const std::string settings = PathIn(folder, "kalvex.ini");
        InstanceGuard first;
        QVERIFY(CheckInstance(RealInstanceSteps(first, settings)) == InstanceAnswer::Start);
        QLocalServer leaving;
        leaving.setSocketOptions(QLocalServer::AbstractNamespaceOption);
        QVERIFY(leaving.listen(InstanceSocketName(settings)));
        connect(&leaving, &QLocalServer::newConnection, &leaving,
                [&leaving] { leaving.nextPendingConnection()->abort(); });
        InstanceGuard second;
        QElapsedTimer clock;
        clock.start();
        QVERIFY(CheckInstance(RealInstanceSteps(second, settings)) == InstanceAnswer::Refused);
        QVERIFY(clock.elapsed() < 3000);
    }
    void WithoutAWindowItIsRefused() {
        const QTemporaryDir folder;
        const std::string settings = PathIn(folder, "kalvex.ini");
        InstanceGuard first;
        QVERIFY(CheckInstance(RealInstanceSteps(first, settings)) == InstanceAnswer::Start);
        InstanceGuard second;
        InstanceSteps steps = RealInstanceSteps(second, settings);
        int waited = 0;
        steps.wait = [&waited](int time) { waited += time; };
        QVERIFY(CheckInstance(steps) == InstanceAnswer::Refused);
        QCOMPARE(waited, 500);
    }
    void OtherSettingsMayRunAtOnce() {
        const QTemporaryDir folder;
        InstanceGuard first;
        InstanceGuard second;
        const std::string one = PathIn(folder, "one.ini");
        const std::string other = PathIn(folder, "other.ini");
        QVERIFY(CheckInstance(RealInstanceSteps(first, one)) == InstanceAnswer::Start);
        QVERIFY(CheckInstance(RealInstanceSteps(second, other)) == InstanceAnswer::Start);
        QVERIFY(InstanceSocketName(one) != InstanceSocketName(other));
    }
    void ALongPathHasAShortSocket() {
        const QTemporaryDir folder;
        const std::string deep = PathIn(folder, "") + std::string(150, 'a') + '/' +
                                 std::string(150, 'b') + "/kalvex.ini";
        InstanceGuard first;
        QVERIFY(CheckInstance(RealInstanceSteps(first, deep)) == InstanceAnswer::Start);
        QVERIFY(InstanceSocketName(deep).size() < 30);
        int raised = 0;
        ListenForStarts(first, deep, [&raised] { ++raised; });
        InstanceGuard second;
        QVERIFY(CheckInstance(RealInstanceSteps(second, deep)) == InstanceAnswer::End);
        QTRY_COMPARE(raised, 1);
    }
    void AFolderThatCannotBeWritten() {
        InstanceGuard guard;
        const std::string nowhere = "/proc/none/kalvex.ini";
        QVERIFY(CheckInstance(RealInstanceSteps(guard, nowhere)) == InstanceAnswer::Start);
        ListenForStarts(guard, nowhere, [] {});
        ReleaseInstance(guard);
        ReleaseInstance(guard);
    }
};

QTEST_MAIN(SingleInstanceTest)
#include "single_instance_test.moc"
