#include "ui/graph/canvas_gestures.h"

#include <QTest>
#include <cmath>
#include <limits>

using namespace kalvex;

namespace {

GraphState StateOf(double low, double high, int width = 400, int height = 200) {
    GraphState state;
    ViewWindow& view = state.viewport.view;
    view.Xmin = view.Ymin = low;
    view.Xmax = view.Ymax = high;
    LayoutViewport(state.viewport, width, height);
    return state;
}

bool Near(double a, double b) {
    return std::abs(a - b) < 1e-12;
}

}  // namespace

class CanvasGesturesTest final : public QObject {
    Q_OBJECT
  private slots:
    void WheelStepsAddUp() {
        WheelRest rest;
        QCOMPARE(TakeWheelSteps(rest, 120), 8);
        QCOMPARE(TakeWheelSteps(rest, 14), 0);
        QCOMPARE(TakeWheelSteps(rest, 1), 1);
        QCOMPARE(TakeWheelSteps(rest, 29), 1);
        QCOMPARE(TakeWheelSteps(rest, 1), 1);
        QCOMPARE(TakeWheelSteps(rest, 10), 0);
        QCOMPARE(TakeWheelSteps(rest, -10), 0);  // a change of direction drops the rest
        QCOMPARE(TakeWheelSteps(rest, -5), -1);
        QCOMPARE(TakeWheelSteps(rest, -14), 0);
        QCOMPARE(TakeWheelSteps(rest, 0), 0);  // no turn, no change
        QCOMPARE(TakeWheelSteps(rest, -1), -1);
        QVERIFY(std::isfinite(ExtentOfSteps(TakeWheelSteps(rest, INT_MAX))));
        QVERIFY(std::isfinite(ExtentOfSteps(TakeWheelSteps(rest, INT_MIN))));
    }
    void ManySmallTurnsAreOneNotch() {
        WheelRest rest;
        double extent = 1.0;
        for (int i = 0; i < 40; ++i)
            extent *= ExtentOfSteps(TakeWheelSteps(rest, 3));
        QVERIFY(Near(extent, ExtentOfSteps(8)));
        QVERIFY(Near(extent, 0.8));
        QVERIFY(Near(ExtentOfSteps(-8), 1.25));
    }
    void ModifiersChooseTheAxis() {
        const struct {
            Qt::KeyboardModifiers modifiers;
            bool x, y;
        } rows[] = {{Qt::NoModifier, true, true},
                    {Qt::ControlModifier, true, false},
                    {Qt::ShiftModifier, false, true},
                    {Qt::ControlModifier | Qt::ShiftModifier, true, true},
                    {Qt::AltModifier, true, true}};
        for (const auto& row : rows) {
            GraphState state = StateOf(-10, 10);
            ZoomGesture gesture;
            QVERIFY(ZoomStep(state, gesture, QPointF(200, 100), 0.5, row.modifiers) ==
                    PictureChange::Curves);
            QCOMPARE(state.viewport.view.Xmax, row.x ? 5.0 : 10.0);
            QCOMPARE(state.viewport.view.Ymax, row.y ? 5.0 : 10.0);
            QCOMPARE(state.viewport.PreviousWindow.Xmax, 10.0);
        }
    }
    void FingersKeepWhatIsBetweenThem() {
        GraphState state = StateOf(-10, 10);
        ZoomGesture gesture;
        PinchState pinch;
        QVERIFY(MovePinch(state, gesture, pinch, {100, 50}, {200, 50}, {}) == PictureChange::None);
        const WorldPoint held = ScreenToWorld(state.viewport, 150, 50);
        QVERIFY(MovePinch(state, gesture, pinch, {110, 80}, {310, 80}, {}) ==
                PictureChange::Curves);
        const WorldPoint now = ScreenToWorld(state.viewport, 210, 80);
        QVERIFY(Near(now.x, held.x) && Near(now.y, held.y));
        QVERIFY(Near(state.viewport.view.Xmax - state.viewport.view.Xmin, 10.0));
        QCOMPARE(state.viewport.PreviousWindow.Xmax, 10.0);
        static_cast<void>(MovePinch(state, gesture, pinch, {150, 80}, {250, 80}, {}));
        QCOMPARE(state.viewport.PreviousWindow.Xmax, 10.0);  // one window per gesture
        pinch = {};
        static_cast<void>(MovePinch(state, gesture, pinch, {100, 50}, {200, 50}, {}));
        const double before = state.viewport.view.Xmax;
        static_cast<void>(MovePinch(state, gesture, pinch, {100, 50}, {300, 50}, {}));
        QCOMPARE(state.viewport.PreviousWindow.Xmax, before);
    }
    void FingersOnOnePointDoNoHarm() {
        GraphState state = StateOf(-10, 10);
        ZoomGesture gesture;
        PinchState pinch;
        static_cast<void>(MovePinch(state, gesture, pinch, {100, 50}, {100, 50}, {}));
        static_cast<void>(MovePinch(state, gesture, pinch, {100, 50}, {100, 50}, {}));
        QCOMPARE(state.viewport.view.Xmax, 10.0);
    }
    void TenThousandStepsEndAndComeBack() {
        for (const int steps : {8, -8}) {
            GraphState state = StateOf(-10, 10);
            ZoomGesture gesture;
            for (const int turned : {steps, -steps}) {
                for (int i = 0; i < 10'000; ++i)
                    static_cast<void>(
                        ZoomStep(state, gesture, QPointF(37, 61), ExtentOfSteps(turned), {}));
                const ViewWindow& view = state.viewport.view;
                QVERIFY(std::isfinite(view.Xmin) && std::isfinite(view.Xmax));
                QVERIFY(view.Xmin < view.Xmax && view.Ymin < view.Ymax);
            }
        }
    }
    void StrangeWindowsDoNoHarm() {
        const double infinity = std::numeric_limits<double>::infinity();
        for (const auto& [low, high] :
             {std::pair(0.0, 0.0), {-infinity, infinity}, {std::nan(""), 1.0}, {1e300, -1e300}}) {
            GraphState state = StateOf(low, high, 1, 0);
            ZoomGesture gesture;
            PinchState pinch;
            static_cast<void>(ZoomStep(state, gesture, QPointF(0, 0), 0.8, {}));
            static_cast<void>(MovePinch(state, gesture, pinch, {0, 0}, {50, 0}, {}));
            static_cast<void>(MovePinch(state, gesture, pinch, {0, 0}, {90, 70}, {}));
        }
    }
};

QTEST_APPLESS_MAIN(CanvasGesturesTest)
#include "canvas_gestures_test.moc"
