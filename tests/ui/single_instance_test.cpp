#include "ui/single_instance.h"

#include <QTemporaryDir>
#include <QTest>
#include <string>

using namespace kalvex;

class SingleInstanceTest final : public QObject {
    Q_OBJECT
  private slots:
    void StepsInOrder() {
        struct Row {
            bool mutexFree;
            int foundAtLook;  // 0: never
            InstanceAnswer answer;
            std::string steps;
        };
        const Row rows[] = {
            {true, 0, InstanceAnswer::Start, "mutex "},
            {false, 1, InstanceAnswer::End, "mutex find beep raise "},
            {false, 2, InstanceAnswer::End, "mutex find wait500 find beep raise "},
            {false, 0, InstanceAnswer::Start, "mutex find wait500 find "},
            {false, 3, InstanceAnswer::Start, "mutex find wait500 find "},
        };
        for (const Row& row : rows) {
            std::string done;
            int looks = 0;
            InstanceSteps steps;
            steps.takeMutex = [&] { return done += "mutex ", row.mutexFree; };
            steps.findWindow = [&] { return done += "find ", ++looks == row.foundAtLook; };
            steps.wait = [&](int time) { done += "wait" + std::to_string(time) + " "; };
            steps.beep = [&] { done += "beep "; };
            steps.raiseWindow = [&] { done += "raise "; };
            QVERIFY(CheckInstance(steps) == row.answer);
            QCOMPARE(QString::fromStdString(done), QString::fromStdString(row.steps));
        }
    }
    void TheRunningWindowIsRaised() {
        const QTemporaryDir folder;
        InstanceGuard first;
        QVERIFY(CheckInstance(RealInstanceSteps(first, folder.path())) == InstanceAnswer::Start);
        int raised = 0;
        ListenForStarts(first, folder.path(), [&raised] { ++raised; });
        for (int start = 1; start <= 2; ++start) {
            InstanceGuard second;
            InstanceSteps steps = RealInstanceSteps(second, folder.path());
            int beeps = 0;
            steps.beep = [&beeps] { ++beeps; };
            QVERIFY(CheckInstance(steps) == InstanceAnswer::End);
            QTRY_COMPARE(raised, start);
            QCOMPARE(beeps, 1);
        }
        ReleaseInstance(first);
        InstanceGuard third;
        QVERIFY(CheckInstance(RealInstanceSteps(third, folder.path())) == InstanceAnswer::Start);
    }
    void WithoutAWindowItStarts() {
        const QTemporaryDir folder;
        InstanceGuard first;
        QVERIFY(CheckInstance(RealInstanceSteps(first, folder.path())) == InstanceAnswer::Start);
        InstanceGuard second;
        InstanceSteps steps = RealInstanceSteps(second, folder.path());
        int waited = 0;
        steps.wait = [&waited](int time) { waited += time; };
        QVERIFY(CheckInstance(steps) == InstanceAnswer::Start);
        QCOMPARE(waited, 500);
    }
    void AFolderThatCannotBeWritten() {
        InstanceGuard guard;
        QVERIFY(CheckInstance(RealInstanceSteps(guard, "/proc/none")) == InstanceAnswer::Start);
        ListenForStarts(guard, "/proc/none", [] {});
        ReleaseInstance(guard);
        ReleaseInstance(guard);
    }
};

QTEST_MAIN(SingleInstanceTest)
#include "single_instance_test.moc"
