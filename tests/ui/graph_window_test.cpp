#include "ui/graph/graph_window.h"

#include <QElapsedTimer>
#include <QFile>
#include <QPaintEvent>
#include <cmath>

#include "painter/painter.h"
#include "ui/parts/touch.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

/// Notes how long the progress bar is at each paint of the canvas.
class PaintWatch final : public QObject {
  public:
    explicit PaintWatch(GraphCanvas& watched) : canvas(watched) { canvas.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) bars.push_back(canvas.ProgressColumns());
        return false;
    }
    GraphCanvas& canvas;
    std::vector<int> bars;
};

void StartWith(TestProgram& program, int type, const char* text) {
    program.Start();
    program.ClearLines();
    program.Entry(1).type = static_cast<EquationType>(type);
    program.Entry(1).selected = 1;
    program.Editor().ShowLines();
    program.Line(1)->setText(text);
}

/// An implicit curve that takes long enough to be interrupted: more than a microsecond per point
/// and level of nesting.
std::string SlowCurve(int depth = 14) {
    std::string text = "x*y";
    for (int i = 0; i < depth; ++i)
        text = "Y(0.3,abs(" + text + ")+1)";
    return text;
}

/// A text of x each value of which takes one or two milliseconds.
std::string SlowText() {
    // Parameters that are close to each other take sums of many digits.
    std::string text;
    for (int i = 0; i < 11; ++i)
        text += (i == 0 ? "" : "+") + std::string("Hyper(0-900.3-abs(x)/7,0-901.57,0-902.") +
                std::to_string(70 + i) + ",0.99)";
    return text;
}

/// Two lines of a type, each of which takes half a second or longer.
void AddSlowLines(TestProgram& program, EquationType type) {
    std::string text = SlowText();
    if (type == EquationType::Parametric) text = "x;" + text;
    if (type == EquationType::Implicit) text = "y-" + text;
    if (type == EquationType::File) {
        const QString path = program.folder.filePath("many.txt");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < 20000; ++i)
            file.write(QByteArray::number(-9.9 * std::cos(i * 1.57e-4), 'g', 17) + " 1\n");
        text = path.toStdString();
    }
    program.application.workspace.options.MaxAngle = 2147483647;
    for (const int line : {1, 2}) {
        program.Entry(line).type = type;
        program.Entry(line).selected = 1;
        program.Entry(line).method.approx = 12;
        program.Line(line)->setText(text.c_str());
    }
}

/// Whether the picture has a curve of a line.
bool HasCurve(TestProgram& program, int line) {
    for (const DrawRecord& record : program.Canvas().Picture().records) {
        const RecordOrigin origin = std::visit([](const auto& one) { return one.origin; }, record);
        if (origin.layer == DrawLayer::Curve && origin.slot == line - 1) return true;
    }
    return false;
}

QPushButton* StopKey(TestProgram& program) {
    return program.Graph().findChild<QPushButton*>("menuKey");
}

/// Does something once during a computation; with `atStopKey` only after the stop key shows.
class InTheMiddle final : public QObject {
  public:
    InTheMiddle(TestProgram& program, std::function<void()> run, bool atStopKey = false)
        : action(std::move(run)) {
        connect(&timer, &QTimer::timeout, this, [this, &program, atStopKey] {
            if (!program.application.graphWindow || !program.Canvas().IsComputing()) return;
            if (program.Canvas().ProgressColumns() == 0) return;
            if (atStopKey && StopKey(program)->text() != "Escape") return;
            timer.stop();
            action();
            done = true;
        });
        timer.start(5);
    }
    bool done = false;

  private:
    QTimer timer;
    std::function<void()> action;
};

bool WasStopped(TestProgram& program) {
    return program.Canvas().accessibleDescription().endsWith("Stopped");
}

}  // namespace

class GraphWindowTest final : public QObject {
    Q_OBJECT
  private slots:
    void TakesTheEditorsPlace() {
        TestProgram program;
        StartWith(program, 2, "x^2");
        const QRect place = program.Editor().geometry();
        program.Click(program.Editor(), "actionKey");
        QTRY_VERIFY(program.application.graphWindow && program.Canvas().RedrawCount() > 0);
        QVERIFY(!program.Editor().isVisible());
        QCOMPARE(program.Graph().geometry(), place);
        QCOMPARE(program.Graph().windowTitle(), QString("Kalvex"));
        const Viewport& viewport = program.application.graph.viewport;
        QCOMPARE(viewport.ClientWidth, program.Canvas().width());
        QCOMPARE(viewport.ClientHeight, program.Canvas().height());
        QCOMPARE(program.Canvas().Picture().width, place.width());
        QCOMPARE(program.Canvas().Picture().height, place.height() - kBottomBarHeight);
        QVERIFY(program.Canvas().accessibleDescription().contains("Y(x)=x^2"));
    }
    void ShowsThePictureAsComputed() {
        for (const Playing playing : {Playing::Smooth, Playing::Classic}) {
            TestProgram program;
            StartWith(program, 2, "3sin(x)");
            program.application.workspace.options.Smooth = playing == Playing::Smooth ? 1 : 0;
            program.OpenGraph();
            const QImage expected = PaintPicture(program.Canvas().Picture(), 1.0, playing);
            const QImage shown =
                program.Canvas().grab().toImage().convertToFormat(QImage::Format_RGB32);
            QCOMPARE(shown.size(), expected.size());
            for (int y = 0; y < shown.height(); ++y) {
                for (int x = 0; x < shown.width(); ++x)
                    QCOMPARE(shown.pixel(x, y), expected.pixel(x, y));
            }
        }
    }
    void PaintingDoesNotCompute() {
        TestProgram program;
        StartWith(program, 2, "x");
        program.OpenGraph();
        QTest::qWait(30);
        const int count = program.Canvas().RedrawCount();
        for (int i = 0; i < 5; ++i) {
            program.Canvas().repaint();
            QTest::qWait(5);
        }
        QCOMPARE(program.Canvas().RedrawCount(), count);
    }
    void MenuEntries() {
        TestProgram program;
        StartWith(program, 2, "x");
        program.OpenGraph();
        program.Click(program.Graph(), "menuKey");
        QMenu* const menu = OpenedMenu(program.Graph(), "graphMenu");
        QVERIFY(menu != nullptr);
        for (const CommandId command :
             {CommandId::GraphTable, CommandId::FullScreen, CommandId::ViewWindowDialog,
              CommandId::ZoomBox, CommandId::ZoomFactor, CommandId::ZoomIn, CommandId::ZoomAuto,
              CommandId::QuickTrig, CommandId::Picture, CommandId::GraphExit,
              CommandId::SavePictureAs, CommandId::CopyPicture, CommandId::Print,
              CommandId::Options, CommandId::Calculator, CommandId::Help, CommandId::About}) {
            QVERIFY(ActionOf(*menu, command)->isEnabled());
        }
        QCOMPARE(ActionOf(*menu, CommandId::FullScreen)->text(), QString("Full Screen (#)"));
        QAction* const table = ActionOf(*menu, CommandId::GraphTable);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(table).center());
        QVERIFY(program.Editor().isVisible());
        QVERIFY(!program.Graph().isVisible());
    }
    void DraggingPans() {
        TestProgram program;
        StartWith(program, 2, "x");
        program.OpenGraph();
        const ViewWindow before = program.application.graph.viewport.view;
        const ViewWindow saved = program.application.graph.viewport.PreviousWindow;
        GraphCanvas& canvas = program.Canvas();
        const int count = canvas.RedrawCount();
        QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(100, 100));
        for (const QPoint point : {QPoint(110, 95), QPoint(130, 120), QPoint(148, 149)}) {
            QTest::mouseMove(&canvas, point);
        }
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, QPoint(148, 149));
        QTRY_VERIFY(canvas.RedrawCount() > count);
        const ViewWindow after = program.application.graph.viewport.view;
        const double width = 20.0 / canvas.width();
        const double height = 20.0 / canvas.height();
        QVERIFY(std::abs(after.Xmin - (before.Xmin - 48 * width)) < 1e-9);
        QVERIFY(std::abs(after.Xmax - (before.Xmax - 48 * width)) < 1e-9);
        QVERIFY(std::abs(after.Ymin - (before.Ymin + 49 * height)) < 1e-9);
        QVERIFY(std::abs(after.Ymax - (before.Ymax + 49 * height)) < 1e-9);
        QCOMPARE(program.application.graph.viewport.PreviousWindow.Xmin, saved.Xmin);
        const int settled = canvas.RedrawCount();
        QTest::mouseMove(&canvas, QPoint(10, 10));
        QTest::mousePress(&canvas, Qt::RightButton, {}, QPoint(100, 100));
        QTest::mouseMove(&canvas, QPoint(50, 50));
        QTest::qWait(20);
        QCOMPARE(canvas.RedrawCount(), settled);
        QCOMPARE(program.application.graph.viewport.view.Xmin, after.Xmin);
    }
    /// An implicit curve that takes long moves as pixels; its lines follow when the pointer rests.
    void ADragOfASlowCurveIsQuick() {
        TestProgram program;
        StartWith(program, 5, "J(0,x^2+y^2)-0.1");
        program.OpenGraph();
        GraphCanvas& canvas = program.Canvas();
        const auto hasContours = [&canvas] {
            return std::ranges::any_of(canvas.Picture().records, [](const DrawRecord& record) {
                const auto* const curve = std::get_if<PixelRunsRecord>(&record);
                return curve != nullptr && curve->contours.has_value();
            });
        };
        QTRY_VERIFY(hasContours());
        QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(100, 100));
        QTest::mouseMove(&canvas, QPoint(110, 95));
        QTRY_VERIFY(!hasContours());
        QVERIFY(HasCurve(program, 1));
        QTRY_VERIFY(hasContours());  // the pointer rests
        QTest::mouseMove(&canvas, QPoint(120, 95));
        QTRY_VERIFY(!hasContours());
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, QPoint(120, 95));
        QVERIFY(canvas.BringUpToDate());  // as a command does that needs the picture
        QVERIFY(hasContours());
    }
    void WaitingDragsMakeOneComputation() {
        TestProgram program;
        StartWith(program, 2, "x");
        program.OpenGraph();
        QTest::qWait(30);
        GraphCanvas& canvas = program.Canvas();
        const int count = canvas.RedrawCount();
        const double xmin = program.application.graph.viewport.view.Xmin;
        const auto send = [&canvas](QEvent::Type type, int x, Qt::MouseButton button) {
            QMouseEvent event(type, QPointF(x, 50), canvas.mapToGlobal(QPointF(x, 50)), button,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&canvas, &event);
        };
        send(QEvent::MouseButtonPress, 50, Qt::LeftButton);
        for (int x = 51; x <= 80; ++x)
            send(QEvent::MouseMove, x, Qt::NoButton);
        QTRY_VERIFY(canvas.RedrawCount() > count);
        QTest::qWait(30);
        QCOMPARE(canvas.RedrawCount(), count + 1);
        const double moved = xmin - program.application.graph.viewport.view.Xmin;
        QVERIFY(std::abs(moved - 30 * 20.0 / canvas.width()) < 1e-9);
    }
    void ResizingKeepsTheBounds() {
        TestProgram program;
        StartWith(program, 2, "x");
        program.OpenGraph();
        const int count = program.Canvas().RedrawCount();
        program.Graph().resize(620, 555);
        QTRY_VERIFY(program.Canvas().RedrawCount() > count);
        const Viewport& viewport = program.application.graph.viewport;
        QCOMPARE(viewport.ClientWidth, 620);
        QCOMPARE(viewport.ClientHeight, 555 - kBottomBarHeight);
        QCOMPARE(viewport.view.Xmin, -10.0);
        QCOMPARE(viewport.view.Ymax, 10.0);
        QCOMPARE(viewport.view.ScaleX, 31.0);
        QTRY_COMPARE(program.Canvas().Picture().width, 620);
    }
    void TheProgressBarGrowsAndLeavesNoTrace() {
        TestProgram program;
        StartWith(program, 5, "J(0.3,abs(x*y)+1)-5");
        program.application.workspace.options.Label = 0;
        program.application.workspace.options.Coord = 0;
        program.application.workspace.options.Axex = 0;
        program.application.workspace.options.Setka = 0;
        program.Editor().Run(CommandId::Draw);
        PaintWatch watch(program.Canvas());
        QTRY_VERIFY_WITH_TIMEOUT(program.Canvas().RedrawCount() > 0, 60000);
        QTRY_VERIFY(!watch.bars.empty() && watch.bars.back() == 0);
        QCOMPARE(watch.bars.front(), 0);  // the window is painted before the computation begins
        std::vector<int> grown;
        for (const int bar : watch.bars) {
            if (bar > 0) grown.push_back(bar);
        }
        QVERIFY2(grown.size() >= 3, qPrintable(QString::number(grown.size())));
        QVERIFY(std::is_sorted(grown.begin(), grown.end()));
        QVERIFY(grown.front() < grown.back() && grown.back() <= program.Canvas().width());
        const QImage picture = PaintPicture(program.Canvas().Picture(), 1.0, Playing::Smooth);
        for (int x = 0; x < picture.width(); ++x)
            QCOMPARE(picture.pixel(x, 1), 0xffffffffU);
    }
    void StrangeBoundsDoNoHarm() {
        const double infinity = std::numeric_limits<double>::infinity();
        const double bounds[][2] = {{1e300, -1e300}, {0, 0},  {1e-300, 2e-300},
                                    {-infinity, 1},  {5, -5}, {std::nan(""), 3}};
        TestProgram program;
        StartWith(program, 2, "x");
        program.OpenGraph();
        GraphCanvas& canvas = program.Canvas();
        for (const auto& pair : bounds) {
            ViewWindow& view = program.application.graph.viewport.view;
            view.Xmin = view.Ymin = pair[0];
            view.Xmax = view.Ymax = pair[1];
            const int count = canvas.RedrawCount();
            canvas.ScheduleRedraw();
            QTRY_VERIFY(canvas.RedrawCount() > count);
            QTest::mousePress(&canvas, Qt::LeftButton, {}, QPoint(10, 10));
            QTest::mouseMove(&canvas, QPoint(60, 70));
            QTest::mouseRelease(&canvas, Qt::LeftButton, {}, QPoint(60, 70));
            QTest::qWait(5);
        }
    }
    void AKeyStopsASlowCurve() {
        const std::pair<Qt::Key, bool> cases[] = {{Qt::Key_Escape, true}, {Qt::Key_F5, false}};
        for (const auto& [key, stays] : cases) {
            TestProgram program;
            StartWith(program, 5, SlowCurve().c_str());
            const InTheMiddle middle(program, [&program, pressed = key] {
                QTest::keyClick(program.Graph().windowHandle(), pressed);
                QVERIFY(program.Canvas().IsComputing() && program.Graph().isVisible());
            });
            program.OpenGraph();
            QVERIFY(middle.done && WasStopped(program));
            QVERIFY(!program.Canvas().IsComputing());
            QTRY_COMPARE(program.Graph().isVisible(), stays);
            QCOMPARE(program.Canvas().RedrawCount(), 1);
        }
    }
    void EveryTypeOfLineIsStoppedAtOnce() {
        for (const auto type : {EquationType::Polar, EquationType::Decart, EquationType::Parametric,
                                EquationType::File, EquationType::Implicit}) {
            TestProgram program;
            program.Start();
            program.ClearLines();
            AddSlowLines(program, type);
            program.Editor().ShowLines();
            QElapsedTimer sinceStop;
            const InTheMiddle middle(
                program,
                [&] {
                    QVERIFY(program.Canvas().ProgressColumns() > 0);
                    sinceStop.start();
                    QTest::keyClick(program.Graph().windowHandle(), Qt::Key_Escape);
                },
                true);
            program.OpenGraph();
            const auto what =
                std::to_string(static_cast<int>(type)) + ": " + std::to_string(sinceStop.elapsed());
            QVERIFY2(middle.done && WasStopped(program), what.c_str());
            QVERIFY2(sinceStop.elapsed() < 400, what.c_str());
            QVERIFY2(!HasCurve(program, 2), what.c_str());
            QVERIFY2(program.Entry(1).samples.empty(), what.c_str());
            QVERIFY2(program.Entry(2).samples.empty(), what.c_str());
            QCOMPARE(program.Canvas().RedrawCount(), 1);
        }
    }
    void AStaleResizeDoesNotLeaveAPartOfAPicture() {
        TestProgram program;
        StartWith(program, 5, SlowCurve(3).c_str());
        const InTheMiddle middle(program, [&program] {
            const QSize size = program.Graph().size();
            QResizeEvent stale(size, size);
            QApplication::sendEvent(program.Graph().windowHandle(), &stale);
        });
        program.OpenGraph();
        QVERIFY(middle.done && WasStopped(program));
        QTRY_COMPARE_WITH_TIMEOUT(program.Canvas().RedrawCount(), 2, 60000);
        QVERIFY(!WasStopped(program));
    }
    void AnalysisNeedsAllSamples() {
        TestProgram program;
        StartWith(program, 2, SlowText().c_str());
        const InTheMiddle middle(program, [&program] {
            QTest::keyClick(program.Graph().windowHandle(), Qt::Key_Escape);
        });
        program.OpenGraph();
        QVERIFY(middle.done && WasStopped(program));
        program.Graph().Run(CommandId::Trace);
        const InTheMiddle again(program, [&program] {
            QTest::keyClick(program.Graph().windowHandle(), Qt::Key_Escape);
        });
        program.Graph().Run(CommandId::Analyze);
        QVERIFY(again.done && WasStopped(program));
        QVERIFY(program.Graph().findChild<QWidget*>("reportPages") == nullptr);
    }
    void ADialogOpensBehindASlowCurve() {
        const struct {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            const char* name;
        } rows[] = {{Qt::Key_Comma, Qt::ControlModifier, "optionsDialog"},
                    {Qt::Key_F9, Qt::NoModifier, "calculatorDialog"}};
        for (const auto& row : rows) {
            TestProgram program;
            StartWith(program, 5, SlowCurve().c_str());
            const InTheMiddle middle(program, [&] {
                QTest::keyClick(program.Graph().windowHandle(), row.key, row.modifiers);
                QVERIFY(program.Canvas().IsComputing());
                QVERIFY(program.Graph().findChild<QWidget*>(row.name) == nullptr);
            });
            program.OpenGraph();
            QVERIFY(middle.done && WasStopped(program));
            QTRY_VERIFY(program.Graph().findChild<QWidget*>(row.name) != nullptr);
            QVERIFY(!program.Canvas().IsComputing());
        }
    }
    void ThePenStopsASlowCurve() {
        TestProgram program;
        StartWith(program, 5, SlowCurve().c_str());
        const InTheMiddle middle(
            program,
            [&program] {
                QPushButton* const key = StopKey(program);
                const QPoint at = key->mapTo(&program.Graph(), key->rect().center());
                QTest::mouseClick(program.Graph().windowHandle(), Qt::LeftButton, {}, at);
            },
            true);
        program.OpenGraph();
        QVERIFY(middle.done && WasStopped(program));
        QTest::qWait(30);
        QVERIFY(OpenedMenu(program.Graph(), "graphMenu") == nullptr);
        QCOMPARE(StopKey(program)->text(), QString("Menu"));
        QCOMPARE(program.Canvas().RedrawCount(), 1);
    }
    void EscapeInAnotherWindowStopsASlowCurve() {
        TestProgram program;
        StartWith(program, 5, SlowCurve().c_str());
        QWidget other;
        other.show();
        const InTheMiddle middle(program, [&other] {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(other.windowHandle(), &press);
        });
        program.Editor().Run(CommandId::Draw);
        QTRY_VERIFY_WITH_TIMEOUT(program.Canvas().RedrawCount() > 0, 60000);
        QVERIFY(middle.done && WasStopped(program));
    }
    void ABoxWaitsForASlowCurve() {
        TestProgram program;
        program.Start();
        program.ClearLines();
        const QString path = program.folder.filePath("even.txt");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("0 1\n1 2\n2 0\n3 1\n");
        file.close();
        program.Entry(1).type = EquationType::File;
        program.Entry(1).method.approx = 9;
        program.Entry(2).type = EquationType::Implicit;
        program.Entry(1).selected = program.Entry(2).selected = 1;
        program.Editor().ShowLines();
        program.Line(1)->setText(path);
        program.Line(2)->setText(SlowCurve(1).c_str());
        bool computing = false;
        program.application.show = [&](const MessageBox&) {
            computing = computing || program.Canvas().IsComputing();
            program.shown.boxes->push_back({});
            return MessageAnswer::Ok;
        };
        program.Editor().Run(CommandId::Draw);
        QTRY_VERIFY_WITH_TIMEOUT(program.Canvas().RedrawCount() > 0, 60000);
        program.Canvas().ScheduleRedraw();
        QTRY_COMPARE_WITH_TIMEOUT(program.shown.boxes->size(), std::size_t{1}, 60000);
        QVERIFY(!computing);
    }
    void InputWaitsForASlowCurve() {
        TestProgram program;
        StartWith(program, 5, SlowCurve(1).c_str());
        const double before = program.application.graph.viewport.view.Xmin;
        const InTheMiddle middle(program, [&] {
            QWindow* const window = program.Graph().windowHandle();
            QTest::mousePress(window, Qt::LeftButton, {}, QPoint(50, 50));
            QTest::mouseMove(window, QPoint(60, 50));
            QTest::mouseMove(window, QPoint(90, 50));
            QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(90, 50));
            program.Graph().Run(CommandId::Picture);
            program.Canvas().ScheduleRedraw();
            QCOMPARE(program.application.graph.viewport.view.Xmin, before);
        });
        program.OpenGraph();
        QVERIFY(middle.done && !WasStopped(program));
        QTRY_VERIFY(program.application.graph.viewport.view.Xmin < before);
        QTRY_VERIFY(program.Canvas().RedrawCount() >= 2);
        QTRY_COMPARE(program.shown.boxes->size(), std::size_t{1});
        QVERIFY(program.LastBox().text == u"Save");
    }
    void TheEndOfTheProgramStopsASlowCurve() {
        TestProgram program;
        StartWith(program, 5, SlowCurve().c_str());
        const InTheMiddle middle(
            program, [&program] { EndApplication(program.application, program.shown.show); });
        program.OpenGraph();
        QVERIFY(middle.done && WasStopped(program));
    }
};

QTEST_MAIN(GraphWindowTest)
#include "graph_window_test.moc"
