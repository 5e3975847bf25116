// The modes of the graph window, driven by menus, soft keys, mouse, wheel, fingers and keys.
#include <QtTest/qtesttouch.h>

#include <QPointingDevice>
#include <QStyleHints>
#include <QWheelEvent>
#include <cmath>

#include "graph/pick.h"
#include "ui/graph/overlay_painter.h"
#include "window_fixture.h"

using namespace kalvex;

namespace {

struct ModesProgram : TestProgram {
    std::unique_ptr<QPointingDevice> finger{QTest::createTouchDevice()};

    void Open(const std::vector<std::pair<int, const char*>>& lines) {
        Start();
        ClearLines();
        for (std::size_t i = 0; i < lines.size(); ++i) {
            Entry(static_cast<int>(i) + 1).type = static_cast<EquationType>(lines[i].first);
            Entry(static_cast<int>(i) + 1).selected = 1;
        }
        Editor().ShowLines();
        for (std::size_t i = 0; i < lines.size(); ++i)
            Line(static_cast<int>(i) + 1)->setText(lines[i].second);
        OpenGraph();
        Settle();
    }
    void Settle() { QTest::qWait(30); }
    /// Chooses an entry of the open menu or its submenus as a click does.
    void Choose(CommandId command) {
        Graph().OpenMenu();
        QMenu* const menu = OpenedMenu(Graph(), "graphMenu");
        ActionOf(*menu, command)->trigger();
        menu->close();
    }
    void Drag(QPoint from, QPoint to) {
        QTest::mousePress(&Canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&Canvas(), (from + to) / 2);
        QTest::mouseMove(&Canvas(), to);
        QTest::mouseRelease(&Canvas(), Qt::LeftButton, {}, to);
    }
    void Tap(QPoint at) { QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, at); }
    void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&Graph(), static_cast<Qt::Key>(key), modifiers);
    }
    void Wheel(QPoint at, QPoint turned, Qt::KeyboardModifiers modifiers = {}) {
        QWheelEvent event(at, Canvas().mapToGlobal(at), {}, turned, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Canvas(), &event);
    }
    QPushButton* LeftKey() { return Graph().findChild<QPushButton*>("menuKey"); }
    QPushButton* RightKey() { return Graph().findChild<QPushButton*>("actionKey"); }
    GraphState& State() { return application.graph; }
    ViewWindow& View() { return application.graph.viewport.view; }
    QString Title() { return Graph().windowTitle(); }
    int W() { return Canvas().width(); }
    int H() { return Canvas().height(); }
};

void CompareBounds(const ViewWindow& view, double xmin, double xmax, double ymin, double ymax) {
    const auto near = [](double a, double b) {
        return std::abs(a - b) <= 1e-12 * (1 + std::abs(b));
    };
    QVERIFY2(
        near(view.Xmin, xmin) && near(view.Xmax, xmax) && near(view.Ymin, ymin) &&
            near(view.Ymax, ymax),
        qPrintable(
            QString("%1 %2 %3 %4").arg(view.Xmin).arg(view.Xmax).arg(view.Ymin).arg(view.Ymax)));
}

}  // namespace

class GraphModesTest final : public QObject {
    Q_OBJECT
  private slots:
    void BoxByTaps() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Choose(CommandId::ZoomBox);
        QCOMPARE(program.Title(), QString("Choose First point"));
        QCOMPARE(program.LeftKey()->text(), QString("Escape"));
        QVERIFY(!program.RightKey()->isVisible());
        const int count = program.Canvas().RedrawCount();
        program.Tap(QPoint(program.W() / 4, program.H() / 4));
        QCOMPARE(program.Title(), QString("Choose Second point"));
        program.Settle();
        QCOMPARE(program.Canvas().RedrawCount(), count);  // only the overlay was painted
        program.Tap(QPoint(program.W() / 2, program.H() / 2));
        QCOMPARE(program.Title(), QString("Kalvex"));
        QCOMPARE(program.LeftKey()->text(), QString("Menu"));
        QVERIFY(program.RightKey()->isVisible());
        QTRY_VERIFY(program.Canvas().RedrawCount() > count);
        CompareBounds(program.View(), -5, 0, 0, 5);
        program.Choose(CommandId::ZoomPre);
        CompareBounds(program.View(), -10, 10, -10, 10);
    }
    void BoxByADrag() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Choose(CommandId::ZoomBox);
        program.Drag(QPoint(program.W() / 2, program.H() / 2), QPoint(program.W() / 4, 0));
        CompareBounds(program.View(), -5, 0, 0, 10);
    }
    void BoxOfNoHeight() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Choose(CommandId::ZoomBox);
        program.Tap(QPoint(10, 50));
        const int count = program.Canvas().RedrawCount();
        program.Tap(QPoint(90, 50));
        QVERIFY(program.LastBox().text == u"You choose points with same X of Y!");
        QVERIFY(program.LastBox().caption == u"Error!");
        CompareBounds(program.View(), -10, 10, -10, 10);
        QCOMPARE(program.Title(), QString("Kalvex"));
        QTRY_VERIFY(program.Canvas().RedrawCount() > count);
    }
    void BoxModeLastsUntilTheRefusalIsAnswered() {
        ModesProgram program;
        QStringList seen;
        program.application.show = [&](const MessageBox&) {
            // A new size while the box is open makes the window show its mode again.
            const int count = program.Canvas().RedrawCount();
            program.Graph().resize(program.Graph().width() - 20, program.Graph().height() - 20);
            const auto isRedrawn = [&] { return program.Canvas().RedrawCount() > count; };
            if (!QTest::qWaitFor(isRedrawn)) seen << "not drawn again";
            seen << program.Title() << program.LeftKey()->text();
            return MessageAnswer::Ok;
        };
        program.Open({{2, "x"}});
        program.Choose(CommandId::ZoomBox);
        program.Tap(QPoint(10, 50));
        program.Tap(QPoint(90, 50));
        QCOMPARE(seen, QStringList({"Choose Second point", "Escape"}));
        QCOMPARE(program.Title(), QString("Kalvex"));
        QCOMPARE(program.LeftKey()->text(), QString("Menu"));
    }
    void BoxByKeysAlone() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Choose(CommandId::ZoomBox);
        const PixelPoint middle = program.State().trace.pixel;
        QCOMPARE(middle.x, program.W() / 2);
        program.Key(Qt::Key_Left, Qt::ControlModifier);
        program.Key(Qt::Key_Up);
        QCOMPARE(program.State().trace.pixel.x, middle.x - 10);
        QCOMPARE(program.State().trace.pixel.y, middle.y - 1);
        program.Key(Qt::Key_Return);
        QCOMPARE(program.Title(), QString("Choose Second point"));
        program.Key(Qt::Key_Right, Qt::ControlModifier);
        program.Key(Qt::Key_Down, Qt::ControlModifier);
        program.Key(Qt::Key_Space);
        QCOMPARE(program.Title(), QString("Kalvex"));
        QVERIFY(program.View().Xmax - program.View().Xmin < 1.0);
    }
    void ZoomAboutAPickedCentre() {
        const struct {
            CommandId command;
            double half;
        } rows[] = {{CommandId::ZoomIn, 5}, {CommandId::ZoomOut, 20}};
        for (const auto& row : rows) {
            ModesProgram program;
            program.Open({{2, "x"}});
            program.Choose(row.command);
            QCOMPARE(program.Title(), QString("Choose middle point"));
            program.Drag(QPoint(3, 3), QPoint(program.W() / 4, program.H() / 2));
            CompareBounds(program.View(), -5 - row.half, -5 + row.half, -row.half, row.half);
            QCOMPARE(program.Title(), QString("Kalvex"));
            program.Key(Qt::Key_Backspace);
            CompareBounds(program.View(), -10, 10, -10, 10);
        }
    }
    void EscapeLeavesAPick() {
        for (const CommandId command :
             {CommandId::ZoomBox, CommandId::ZoomIn, CommandId::ZoomOut, CommandId::Trace}) {
            for (const bool byKey : {true, false}) {
                ModesProgram program;
                program.Open({{2, "x"}});
                program.Graph().Run(command);
                QVERIFY(program.State().mode != GraphMode::Normal);
                if (command != CommandId::Trace) program.Tap(QPoint(0, 0));
                if (program.State().mode == GraphMode::Normal) program.Graph().Run(command);
                const ViewWindow before = program.View();
                if (byKey) {
                    program.Key(Qt::Key_Escape);
                } else {
                    QTest::mouseClick(program.LeftKey(), Qt::LeftButton);
                }
                QVERIFY(program.State().mode == GraphMode::Normal);
                QVERIFY(program.Graph().isVisible());
                QCOMPARE(program.Title(), QString("Kalvex"));
                QCOMPARE(program.View().Xmin, before.Xmin);
                QCOMPARE(program.View().Ymax, before.Ymax);
            }
        }
    }
    void AutomaticZoom() {
        ModesProgram program;
        program.Open({{2, "x^2"}});
        program.View().Ymax = 4;
        program.Choose(CommandId::ZoomAuto);
        double least = 100.0;
        for (const CurveSample& sample : program.Entry(1).samples)
            least = std::min(least, sample.y);
        QVERIFY(least > 0.0);  // with an even number of columns none is exactly in the middle
        CompareBounds(program.View(), -10, 10, least * 1.1, 100 * 1.1);
        QCOMPARE(program.State().viewport.PreviousWindow.Ymax, 10.0);
        ModesProgram large;
        large.Open({{2, "x+200"}});
        large.Choose(CommandId::ZoomAuto);
        QVERIFY(large.LastBox().text == u"Certain automatically coordinates are too big!");
        CompareBounds(large.View(), -10, 10, -10, 10);
        ModesProgram none;
        none.Open({{2, "ln(x-100)"}, {5, "x*y"}});
        none.Choose(CommandId::ZoomAuto);
        QVERIFY(none.LastBox().text ==
                u"We can not determine the boundaries automatically. Just enter a border by hand "
                u"in the window 'Window View'");
    }
    void QuickWindows() {
        const struct {
            CommandId command;
            double xmin, xmax, ymin, ymax;
        } rows[] = {
            {CommandId::QuickInit, -6.5, 6.5, -3.3, 3.3},
            {CommandId::QuickTrig, -9.4245, 9.4245, -1.5, 1.5},
            {CommandId::QuickLogX, -0.5, 5.5, -3.75, 2.75},
            {CommandId::QuickExpX, -2.2, 2.2, -0.5, 4.0},
            {CommandId::QuickXSquared, -6.5, 6.5, -0.5, 8.0},
            {CommandId::QuickMinusXSquared, -6.5, 6.5, -8.0, 0.5},
            {CommandId::QuickStandart, -10, 10, -10, 10},
        };
        ModesProgram program;
        program.Open({{2, "x"}});
        for (const auto& row : rows) {
            const int count = program.Canvas().RedrawCount();
            program.Choose(row.command);
            QCOMPARE(program.View().Xmin, row.xmin);
            QCOMPARE(program.View().Xmax, row.xmax);
            QCOMPARE(program.View().Ymin, row.ymin);
            QCOMPARE(program.View().Ymax, row.ymax);
            QTRY_VERIFY(program.Canvas().RedrawCount() > count);
        }
    }
    void TraceByTheSoftKey() {
        ModesProgram program;
        program.Open({{2, "x^2"}, {1, "3"}, {5, "x-y"}});
        QVERIFY(program.RightKey()->isEnabled());
        QCOMPARE(program.RightKey()->text(), QString("Trace"));
        const int count = program.Canvas().RedrawCount();
        QTest::mouseClick(program.RightKey(), Qt::LeftButton);
        QVERIFY(program.State().mode == GraphMode::Trace);
        QCOMPARE(program.Title(), QString("x^2"));
        QCOMPARE(program.RightKey()->text(), QString("Analyze"));
        QVERIFY(program.RightKey()->isVisible());
        program.Tap(QPoint(33, program.H() - 2));
        QCOMPARE(program.State().trace.index, 33);
        QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, QPoint(40, program.H() - 5));
        QTest::mouseMove(&program.Canvas(), QPoint(90, 10));
        QCOMPARE(program.State().trace.index, 90);
        QTest::mouseRelease(&program.Canvas(), Qt::LeftButton, {}, QPoint(91, 10));
        QCOMPARE(program.State().trace.index, 91);
        program.Drag(QPoint(100, 5), QPoint(160, 5));  // the upper band: another function
        QCOMPARE(program.Title(), QString("3"));
        QVERIFY(!program.RightKey()->isVisible());  // no analysis of a polar curve
        program.Drag(QPoint(160, 5), QPoint(100, 5));
        QCOMPARE(program.Title(), QString("x^2"));
        QVERIFY(program.RightKey()->isVisible());
        program.Settle();
        QCOMPARE(program.Canvas().RedrawCount(), count);  // nothing was computed
        CompareBounds(program.View(), -10, 10, -10, 10);
    }
    void TraceByKeysAlone() {
        ModesProgram program;
        program.Open({{2, "x^2"}, {3, "x;2x"}});
        program.Key(Qt::Key_T);
        const int middle = program.State().trace.index;
        QCOMPARE(middle, program.W() / 2);
        const struct {
            int key;
            Qt::KeyboardModifiers modifiers;
            int index;
        } rows[] = {{Qt::Key_Right, {}, middle + 1},
                    {Qt::Key_Right, Qt::ControlModifier, middle + 11},
                    {Qt::Key_Left, {}, middle + 10},
                    {Qt::Key_Left, Qt::ControlModifier, middle},
                    {Qt::Key_Home, {}, 0},
                    {Qt::Key_Left, {}, 0},
                    {Qt::Key_End, {}, program.W() - 1},
                    {Qt::Key_Right, Qt::ControlModifier, program.W() - 1}};
        for (const auto& row : rows) {
            program.Key(row.key, row.modifiers);
            QCOMPARE(program.State().trace.index, row.index);
        }
        program.Key(Qt::Key_Down);
        QCOMPARE(program.Title(), QString("x;2x"));
        program.Key(Qt::Key_Down);
        QCOMPARE(program.Title(), QString("x^2"));
        program.Key(Qt::Key_Up);
        QCOMPARE(program.Title(), QString("x;2x"));
        QVERIFY(program.Canvas().accessibleDescription().contains("T="));
        CompareBounds(program.View(), -10, 10, -10, 10);
    }
    void TraceShowsTheError() {
        ModesProgram program;
        program.Open({{2, "1/(x-x)"}});
        program.Key(Qt::Key_T);
        const QString spoken = program.Canvas().accessibleDescription();
        QVERIFY(spoken.contains("Division by 0 not allowed"));
        QVERIFY(spoken.contains("dy/dx: error"));
    }
    void TraceNeedsACurve() {
        ModesProgram program;
        program.Open({{5, "x-y"}});
        QVERIFY(!program.RightKey()->isEnabled());
        program.Key(Qt::Key_T);
        QVERIFY(program.State().mode == GraphMode::Normal);
    }
    void DrawResetsTheTrace() {
        ModesProgram program;
        program.Open({{2, "x"}, {2, "2x"}});
        program.Key(Qt::Key_T);
        program.Key(Qt::Key_Down);
        QCOMPARE(program.State().trace.function.value_or(-1), 1);
        program.Key(Qt::Key_F5);
        QVERIFY(program.Editor().isVisible());
        program.OpenGraph();
        program.Settle();
        QVERIFY(program.State().mode == GraphMode::Normal);
        QCOMPARE(program.State().trace.function.value_or(-1), 0);
        QCOMPARE(program.Title(), QString("Kalvex"));
    }
    void OverlayIsLegibleAndLeavesNoTrace() {
        ModesProgram program;
        program.Open({{2, "x"}});
        const QImage before = program.Canvas().grab().toImage();
        program.Key(Qt::Key_T);
        const QImage traced = program.Canvas().grab().toImage();
        QVERIFY(traced != before);
        program.Key(Qt::Key_Escape);
        QVERIFY(program.Canvas().grab().toImage() == before);
    }
    void WheelZoomsAboutThePointer() {
        ModesProgram program;
        program.Open({{2, "x"}});
        const QPoint at(program.W() / 4, program.H() / 4);
        const WorldPoint before = ScreenToWorld(program.State().viewport, at.x(), at.y());
        program.Wheel(at, QPoint(0, 120));
        program.Wheel(at, QPoint(0, 120));
        const WorldPoint after = ScreenToWorld(program.State().viewport, at.x(), at.y());
        QVERIFY(std::abs(before.x - after.x) < 1e-12 && std::abs(before.y - after.y) < 1e-12);
        QVERIFY(std::abs(program.View().Xmax - program.View().Xmin - 20 * 0.64) < 1e-12);
        QCOMPARE(program.State().viewport.PreviousWindow.Xmin, -10.0);
        QTest::qWait(600);  // a pause: the next turn is another gesture
        const double xmin = program.View().Xmin;
        program.Wheel(at, QPoint(0, -120), Qt::ControlModifier);
        QCOMPARE(program.State().viewport.PreviousWindow.Xmin, xmin);
        QVERIFY(std::abs(program.View().Xmax - program.View().Xmin - 16) < 1e-12);
        QVERIFY(std::abs(program.View().Ymax - program.View().Ymin - 20 * 0.64) < 1e-12);
        program.Wheel(at, QPoint(0, -240), Qt::ShiftModifier);
        QVERIFY(std::abs(program.View().Ymax - program.View().Ymin - 20) < 1e-12);
    }
    void ATouchPadTurnsInSmallPortions() {
        ModesProgram program;
        program.Open({{2, "x"}});
        for (int i = 0; i < 14; ++i)
            program.Wheel(QPoint(100, 100), QPoint(0, 1));
        CompareBounds(program.View(), -10, 10, -10, 10);
        for (int i = 0; i < 106; ++i)
            program.Wheel(QPoint(100, 100), QPoint(0, 1));
        QVERIFY(std::abs(program.View().Xmax - program.View().Xmin - 16) < 1e-9);
    }
    void TwoFingersZoom() {
        ModesProgram program;
        program.Open({{2, "x"}});
        GraphCanvas& canvas = program.Canvas();
        QPointingDevice* const device = program.finger.get();
        QTest::touchEvent(&canvas, device).press(0, QPoint(100, 100)).press(1, QPoint(200, 100));
        QTest::touchEvent(&canvas, device).move(0, QPoint(50, 100)).move(1, QPoint(250, 100));
        QTest::touchEvent(&canvas, device).release(0, QPoint(50, 100)).stationary(1);
        QTest::touchEvent(&canvas, device).move(1, QPoint(20, 20));
        QTest::touchEvent(&canvas, device).release(1, QPoint(20, 20));
        QVERIFY(std::abs(program.View().Xmax - program.View().Xmin - 10) < 1e-9);
        QVERIFY(std::abs(program.View().Ymax - program.View().Ymin - 10) < 1e-9);
        const WorldPoint held = ScreenToWorld(program.State().viewport, 150, 100);
        QVERIFY(std::abs(held.x - (-10 + 20.0 * 150 / program.W())) < 1e-9);
        QCOMPARE(program.State().viewport.PreviousWindow.Xmin, -10.0);
    }
    void OneFingerPansAndPicks() {
        ModesProgram program;
        program.Open({{2, "x"}});
        GraphCanvas& canvas = program.Canvas();
        QPointingDevice* const device = program.finger.get();
        QTest::touchEvent(&canvas, device).press(0, QPoint(100, 100));
        QTest::touchEvent(&canvas, device).move(0, QPoint(100 + program.W() / 2, 100));
        QTest::touchEvent(&canvas, device).release(0, QPoint(100 + program.W() / 2, 100));
        CompareBounds(program.View(), -10 - 20.0 * (program.W() / 2) / program.W(),
                      10 - 20.0 * (program.W() / 2) / program.W(), -10, 10);
        program.Choose(CommandId::QuickStandart);
        program.Choose(CommandId::ZoomIn);
        QTest::touchEvent(&canvas, device).press(0, QPoint(program.W() / 2, program.H() / 2));
        QTest::touchEvent(&canvas, device).release(0, QPoint(program.W() / 2, program.H() / 2));
        CompareBounds(program.View(), -5, 5, -5, 5);
    }
    void KeysPanAndZoom() {
        const struct {
            int key;
            double xmin, xmax, ymin, ymax;
        } rows[] = {
            {Qt::Key_Left, -12, 8, -10, 10},   {Qt::Key_Right, -8, 12, -10, 10},
            {Qt::Key_Up, -10, 10, -8, 12},     {Qt::Key_Down, -10, 10, -12, 8},
            {Qt::Key_Plus, -5, 5, -5, 5},      {Qt::Key_Equal, -5, 5, -5, 5},
            {Qt::Key_Minus, -20, 20, -20, 20}, {Qt::Key_Home, -6.5, 6.5, -3.3, 3.3},
        };
        ModesProgram program;
        program.Open({{2, "x"}});
        for (const auto& row : rows) {
            program.View() = {};
            LayoutViewport(program.State().viewport);
            program.Key(row.key);
            // The middle pixel of an odd number of columns is half a pixel off the middle.
            QVERIFY(std::abs(program.View().Xmin - row.xmin) < 0.1);
            QVERIFY(std::abs(program.View().Xmax - row.xmax) < 0.1);
            QVERIFY(std::abs(program.View().Ymin - row.ymin) < 0.1);
            QVERIFY(std::abs(program.View().Ymax - row.ymax) < 0.1);
        }
    }
    void FullScreen() {
        ModesProgram program;
        program.Open({{2, "x"}});
        const QSize place = program.Graph().size();
        program.Graph().Run(CommandId::ZoomBox);
        program.Choose(CommandId::FullScreen);
        QVERIFY(program.Graph().isFullScreen());
        QVERIFY(program.State().mode == GraphMode::Normal);
        QTRY_COMPARE(program.Canvas().size(), program.Graph().size());
        QVERIFY(!program.LeftKey()->isVisible());
        QTRY_COMPARE(program.State().viewport.ClientHeight, program.Graph().height());
        CompareBounds(program.View(), -10, 10, -10, 10);
        // The offscreen platform has no window manager that hands the focus back after the menu.
        program.Graph().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&program.Graph()));
        program.Key(Qt::Key_Escape);
        QVERIFY(!program.Graph().isFullScreen());
        QVERIFY(program.Graph().isVisible());
        QTRY_VERIFY(program.LeftKey()->isVisible());
        QTRY_COMPARE(program.Graph().size(), place);
        QTest::keyClicks(&program.Graph(), "#");
        QVERIFY(program.Graph().isFullScreen());
        QTest::keyClicks(&program.Graph(), "#");
        QVERIFY(!program.Graph().isFullScreen());
        program.Key(Qt::Key_F11);
        QVERIFY(program.Graph().isFullScreen());
        program.Key(Qt::Key_F5);  // back to the lines, out of the full screen first
        QVERIFY(program.Editor().isVisible() && !program.Editor().isFullScreen());
        QVERIFY(!program.Graph().isFullScreen());
        QCOMPARE(program.Editor().size(), place);
    }
    void AHoldOpensThePopup() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Key(Qt::Key_F11);
        program.Settle();
        const int hold = QGuiApplication::styleHints()->mousePressAndHoldInterval();
        const QPoint at(program.W() * 3 / 4, program.H() / 4);
        QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, at);
        QVERIFY(OpenedMenu(program.Graph(), "fullScreenPopup") == nullptr);
        QTest::qWait(hold + 100);
        QMenu* popup = OpenedMenu(program.Graph(), "fullScreenPopup");
        QVERIFY(popup != nullptr);
        QVERIFY(ActionOf(*popup, CommandId::PopupFullScreen)->isChecked());
        ActionOf(*popup, CommandId::PopupZoomIn)->trigger();
        popup->close();
        QTest::mouseRelease(&program.Canvas(), Qt::LeftButton, {}, at);
        const double x = -10 + 20.0 * at.x() / program.W();
        const double y = 10 - 20.0 * at.y() / program.H();
        CompareBounds(program.View(), x - 5, x + 5, y - 5, y + 5);
        program.Key(Qt::Key_Backspace);
        CompareBounds(program.View(), -10, 10, -10, 10);
        QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, at);
        QTest::qWait(hold + 100);
        popup = OpenedMenu(program.Graph(), "fullScreenPopup");
        ActionOf(*popup, CommandId::PopupZoomOut)->trigger();
        popup->close();
        CompareBounds(program.View(), x - 20, x + 20, y - 20, y + 20);
        QTest::mouseClick(&program.Canvas(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, program.Canvas().mapToGlobal(at));
        QApplication::sendEvent(&program.Canvas(), &event);
        popup = OpenedMenu(program.Graph(), "fullScreenPopup");
        QVERIFY(popup != nullptr);
        ActionOf(*popup, CommandId::PopupFullScreen)->trigger();
        popup->close();
        QVERIFY(!program.Graph().isFullScreen());
    }
    void AMovedOrShortHoldOpensNothing() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Key(Qt::Key_F11);
        program.Settle();
        const int hold = QGuiApplication::styleHints()->mousePressAndHoldInterval();
        QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, QPoint(50, 50));
        QTest::mouseMove(&program.Canvas(), QPoint(51, 51));
        CompareBounds(program.View(), -10, 10, -10, 10);  // a trembling hand does not pan
        QTest::mouseMove(&program.Canvas(), QPoint(50 + program.W() / 2, 50));
        QTest::qWait(hold + 100);
        QVERIFY(OpenedMenu(program.Graph(), "fullScreenPopup") == nullptr);
        QVERIFY(program.View().Xmin < -19);
        QTest::mouseRelease(&program.Canvas(), Qt::LeftButton, {},
                            QPoint(50 + program.W() / 2, 50));
        program.Tap(QPoint(50, 50));
        QTest::qWait(hold + 100);
        QVERIFY(OpenedMenu(program.Graph(), "fullScreenPopup") == nullptr);
        program.Key(Qt::Key_Escape);
        QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, QPoint(50, 50));
        QTest::qWait(hold + 100);  // not in full screen
        QVERIFY(OpenedMenu(program.Graph(), "fullScreenPopup") == nullptr);
        QTest::mouseRelease(&program.Canvas(), Qt::LeftButton, {}, QPoint(50, 50));
    }
    void ACommandEndsAHold() {
        const int hold = QGuiApplication::styleHints()->mousePressAndHoldInterval();
        for (const int key : {int{Qt::Key_F5}, int{Qt::Key_Escape}, int{Qt::Key_T}, 0}) {
            ModesProgram program;
            program.Open({{2, "x"}});
            program.Key(Qt::Key_F11);
            program.Settle();
            QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, QPoint(50, 50));
            if (key != 0) program.Key(key);
            if (key == 0) program.Wheel(QPoint(60, 60), QPoint(0, 120));
            QTest::qWait(hold + 100);
            QVERIFY2(OpenedMenu(program.Graph(), "fullScreenPopup") == nullptr,
                     qPrintable(QString::number(key)));
        }
    }
    void ACancelledTouchPicksNothing() {
        ModesProgram program;
        program.Open({{2, "x"}});
        const auto cancel = [&program] {
            QTouchEvent event(QEvent::TouchCancel, program.finger.get());
            QApplication::sendEvent(&program.Canvas(), &event);
        };
        program.Choose(CommandId::ZoomBox);
        QTest::touchEvent(&program.Canvas(), program.finger.get()).press(0, QPoint(50, 50));
        QCOMPARE(program.Title(), QString("Choose Second point"));
        cancel();
        QCOMPARE(program.Title(), QString("Choose First point"));
        QVERIFY(!program.State().firstCorner);
        program.Key(Qt::Key_Escape);
        program.Key(Qt::Key_F11);
        program.Settle();
        QTest::touchEvent(&program.Canvas(), program.finger.get()).press(1, QPoint(50, 50));
        cancel();
        QTest::qWait(QGuiApplication::styleHints()->mousePressAndHoldInterval() + 100);
        QVERIFY(OpenedMenu(program.Graph(), "fullScreenPopup") == nullptr);
    }
    void AHeldKeyIsOneGesture() {
        const auto hold = [](ModesProgram& program, int key) {
            for (int i = 0; i < 4; ++i) {
                QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), i > 0);
                QApplication::sendEvent(&program.Graph(), &event);
            }
        };
        for (const int key : {Qt::Key_Home, Qt::Key_Plus, Qt::Key_Minus}) {
            ModesProgram program;
            program.Open({{2, "x"}});
            hold(program, key);
            QCOMPARE(program.State().viewport.PreviousWindow.Xmin, -10.0);
            QVERIFY(program.View().Xmin != -10.0);
        }
        ModesProgram program;
        program.Open({{2, "x"}});
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_NumberSign, Qt::NoModifier, "#", true);
        QApplication::sendEvent(&program.Graph(), &repeated);
        QVERIFY(!program.Graph().isFullScreen());
    }
    void ACommandEndsAGesture() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Wheel(QPoint(100, 100), QPoint(0, 120));
        program.Choose(CommandId::QuickTrig);
        program.Wheel(QPoint(100, 100), QPoint(0, 120));
        QCOMPARE(program.State().viewport.PreviousWindow.Xmin, -9.4245);
    }
    void ResizingInAPickKeepsTheCursorOnThePicture() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Graph().resize(780, 600);
        program.Settle();
        program.Choose(CommandId::ZoomIn);
        for (int i = 0; i < 35; ++i)
            program.Key(Qt::Key_Right, Qt::ControlModifier);
        QVERIFY(program.State().trace.pixel.x > 700);
        program.Graph().resize(480, 600);
        program.Settle();
        QCOMPARE(program.State().trace.pixel.x, program.W() - 1);
    }
    void FullScreenKeepsAMaximisedWindow() {
        for (const bool byCommand : {true, false}) {
            ModesProgram program;
            program.Open({{2, "x"}});
            program.Graph().setWindowState(Qt::WindowMaximized);
            program.Settle();
            program.Key(Qt::Key_F11);
            program.Settle();
            QVERIFY(program.Graph().isFullScreen());
            // Some window managers forget that the window was maximised.
            program.Graph().setWindowState(Qt::WindowFullScreen);
            program.Settle();
            if (byCommand) {
                program.Key(Qt::Key_F5);
                QTRY_VERIFY(program.Editor().isVisible());
                QVERIFY(program.Editor().isMaximized());
            } else {
                EndApplication(program.application, program.shown.show);
                QVERIFY(program.application.windowState.maximised);
            }
        }
    }
    void FullScreenComputesOnePicture() {
        ModesProgram program;
        program.Open({{2, "x"}});
        int count = program.Canvas().RedrawCount();
        for (int i = 0; i < 2; ++i) {
            program.Key(Qt::Key_F11);
            QTest::qWait(200);
            QCOMPARE(program.Canvas().RedrawCount(), ++count);
        }
    }
    void AHiddenGraphComputesNothing() {
        ModesProgram program;
        program.Open({{2, "x"}});
        const int count = program.Canvas().RedrawCount();
        program.Key(Qt::Key_Right);
        program.Key(Qt::Key_F5);
        program.Settle();
        QVERIFY(program.Editor().isVisible());
        QCOMPARE(program.Canvas().RedrawCount(), count);
    }
    void DrawForgetsTheOldPicture() {
        ModesProgram program;
        program.Open({{2, "x"}});
        program.Key(Qt::Key_F5);
        program.Line(1)->setText("2x");
        program.Editor().Run(CommandId::Draw);
        QVERIFY(program.Canvas().Picture().records.empty());
        QTRY_VERIFY(!program.Canvas().Picture().records.empty());
    }
    void LongNumbersStayOnThePicture() {
        ModesProgram program;
        program.Open({{2, "exp(60x)"}});
        program.Key(Qt::Key_T);
        program.Key(Qt::Key_End);
        for (int i = 0; i < 15; ++i)
            program.Key(Qt::Key_Left, Qt::ControlModifier);
        const Overlay overlay = OverlayOf(program.State(), program.application.workspace.functions,
                                          program.application.workspace.options);
        QVERIFY(overlay.texts.at(1).size() > 90);
        const QRect box = ReadoutBox(overlay, program.Canvas().size(), 14);
        QVERIFY(QRect(QPoint(0, 0), program.Canvas().size()).contains(box));
    }
    void CommandsInTheMiddleOfAPick() {
        const struct {
            CommandId command;
            GraphMode mode;
        } rows[] = {
            {CommandId::ZoomBox, GraphMode::Box},       {CommandId::ZoomIn, GraphMode::Centre},
            {CommandId::ZoomOut, GraphMode::Centre},    {CommandId::ZoomAuto, GraphMode::Box},
            {CommandId::ZoomPre, GraphMode::Normal},    {CommandId::QuickTrig, GraphMode::Box},
            {CommandId::FullScreen, GraphMode::Normal}, {CommandId::Trace, GraphMode::Trace},
            {CommandId::Picture, GraphMode::Box},       {CommandId::CopyPicture, GraphMode::Box},
            {CommandId::GraphTable, GraphMode::Normal},
        };
        for (const auto& row : rows) {
            ModesProgram program;
            program.Open({{2, "x"}});
            program.Choose(CommandId::ZoomBox);
            program.Tap(QPoint(50, 60));
            QTest::mousePress(&program.Canvas(), Qt::LeftButton, {}, QPoint(70, 80));
            program.Graph().Run(row.command);
            QVERIFY(program.State().mode == row.mode);
            const bool goesOn =
                row.command == CommandId::ZoomAuto || row.command == CommandId::QuickTrig ||
                row.command == CommandId::Picture || row.command == CommandId::CopyPicture;
            QCOMPARE(program.State().firstCorner.has_value(), goesOn);
            QCOMPARE(ToQString(TitleOf(program.State(), program.application.workspace.functions)),
                     program.Title());
            const ViewWindow before = program.View();
            QTest::mouseRelease(&program.Canvas(), Qt::LeftButton, {}, QPoint(90, 95));
            // Lifting the pointer ends only the pick in which it was pressed.
            QCOMPARE(program.View().Xmin != before.Xmin, goesOn);
            program.Settle();
        }
    }
    void ManyZoomsAndTinyWindows() {
        ModesProgram program;
        program.Open({{2, "x"}, {1, "x"}, {3, "x;x"}});
        for (const int key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Minus}) {
            for (int i = 0; i < 1100; ++i)
                program.Key(key);
            program.Settle();
            QVERIFY(std::isfinite(program.View().Xmin) && std::isfinite(program.View().Xmax));
            QVERIFY(program.View().Xmin < program.View().Xmax);
        }
        program.Graph().setMinimumSize(0, 0);
        program.Graph().resize(1, 60);
        program.Settle();
        program.Key(Qt::Key_T);
        program.Canvas().grab();
        program.Graph().Run(CommandId::ZoomBox);
        program.Tap(QPoint(0, 0));
        program.Canvas().grab();
    }
};

QTEST_MAIN(GraphModesTest)
#include "graph_modes_test.moc"
