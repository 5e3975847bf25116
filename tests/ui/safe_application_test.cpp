// Too little memory in a handler of an event. The application is the program's own.
#include "ui/safe_application.h"

#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "resources/message_boxes.h"
#include "ui/parts/message_window.h"
#include "window_fixture.h"

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
#include <sys/resource.h>
#endif

using namespace kalvex;

namespace {

/// Answers the box about the lack of memory as soon as it is there.
class Answerer final : public QObject {
  public:
    Answerer() {
        connect(&timer, &QTimer::timeout, this, [this] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            texts += box->text();
            box->reject();
        });
        timer.start(5);
    }
    QStringList texts;

  private:
    QTimer timer;
};

SafeApplication& Program() {
    return *static_cast<SafeApplication*>(QCoreApplication::instance());
}

void TellInABox() {
    Program().tellLackOfMemory = [](const std::function<void()>& answered) {
        OpenMessageWindow(ErrorBox(Text(StringId::OutOfMemory)),
                          [answered](MessageAnswer) { answered(); });
    };
}

}  // namespace

class SafeApplicationTest final : public QObject {
    Q_OBJECT
  private slots:
    void AHandlerWithoutMemoryGivesABox() {
        TellInABox();
        Answerer answerer;
        bool goesOn = false;
        QTimer::singleShot(0, this, [] { throw std::bad_alloc(); });
        QTimer::singleShot(50, this, [&goesOn] { goesOn = true; });
        QTRY_COMPARE(answerer.texts.size(), 1);
        QCOMPARE(answerer.texts.first(), TextOf(StringId::OutOfMemory));
        QTRY_VERIFY(goesOn);
    }
    void APictureWithoutMemoryIsGivenUp() {
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
        TellInABox();
        TestProgram program;
        program.Start();
        program.ClearLines();
        program.Entry(1).selected = 1;
        program.Editor().ShowLines();
        program.Line(1)->setText("x");
        program.OpenGraph();
        QVERIFY(program.Entry(1).samples.size() > 0);
        program.Entry(1).type = EquationType::Polar;
        program.application.workspace.options.MaxAngle = 1000;
        Answerer answerer;
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_AS, &before), 0);
        rlimit little = before;
        little.rlim_cur = 1 << 20;  // less than is in use: nothing large can be had any more
        QCOMPARE(setrlimit(RLIMIT_AS, &little), 0);
        program.Canvas().ScheduleRedraw();
        QTest::qWait(200);
        QCOMPARE(setrlimit(RLIMIT_AS, &before), 0);
        QTRY_COMPARE(answerer.texts.size(), 1);
        QVERIFY(!program.Canvas().IsComputing());
        QVERIFY(program.Entry(1).samples.empty());
        QVERIFY(program.Canvas().Picture().records.empty());
        const int count = program.Canvas().RedrawCount();
        program.Canvas().ScheduleRedraw();
        QTRY_COMPARE(program.Canvas().RedrawCount(), count + 1);
        QVERIFY(!program.Canvas().Picture().records.empty());
#else
        QSKIP("a limit of the address space does not go with the sanitizer");
#endif
    }
};

int main(int argc, char** argv) {
    SafeApplication application(argc, argv);
    SafeApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "safe_application_test.moc"
