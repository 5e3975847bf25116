// A pinch is a zoom about the point between the fingers and a drag of that point.
#include "ui/graph/canvas_gestures.h"

#include <QLineF>
#include <cmath>

#include "numbers/truncate.h"

namespace kalvex {
namespace {

constexpr int kUnitsPerStep = 15;
constexpr double kStepsPerNotch = 8.0;
constexpr double kExtentPerNotch = 0.8;
constexpr double kLeastDistance = 10.0;  // pixels; closer fingers give no usable scale

}  // namespace

PixelPoint PixelOf(QPointF point) {
    return {TruncateToInt32(std::floor(point.x())), TruncateToInt32(std::floor(point.y()))};
}

int TakeWheelSteps(WheelRest& rest, int units) {
    // When the direction changes, the rest of the turns so far is dropped.
    if ((rest.units > 0 && units < 0) || (rest.units < 0 && units > 0)) rest.units = 0;
    rest.units = qBound(-100'000, rest.units, 100'000) + qBound(-100'000, units, 100'000);
    const int steps = rest.units / kUnitsPerStep;
    rest.units -= steps * kUnitsPerStep;
    return steps;
}

double ExtentOfSteps(int steps) {
    return std::pow(kExtentPerNotch, steps / kStepsPerNotch);
}

PictureChange ZoomStep(GraphState& state, ZoomGesture& gesture, QPointF fixed, double extent,
                       Qt::KeyboardModifiers modifiers) {
    const bool onlyX = modifiers.testFlag(Qt::ControlModifier);
    const bool onlyY = modifiers.testFlag(Qt::ShiftModifier);
    const bool both = onlyX == onlyY;
    return StepGesture(state, gesture, PixelOf(fixed), both || onlyX ? extent : 1.0,
                       both || onlyY ? extent : 1.0);
}

PictureChange MovePinch(GraphState& state, ZoomGesture& gesture, PinchState& pinch, QPointF first,
                        QPointF second, Qt::KeyboardModifiers modifiers) {
    const QPointF centre = (first + second) / 2;
    const double distance = qMax(QLineF(first, second).length(), kLeastDistance);
    if (!pinch.running) {
        pinch = {true, centre, distance};
        gesture.running = false;
        return PictureChange::None;
    }
    const double extent = pinch.distance / distance;
    // Panning changes the curves even if this does not.
    static_cast<void>(ZoomStep(state, gesture, pinch.centre, extent, modifiers));
    const PixelPoint to = PixelOf(centre);
    const PixelPoint from = PixelOf(pinch.centre);
    PanBy(state.viewport, to.x - from.x, to.y - from.y);
    pinch.centre = centre;
    pinch.distance = distance;
    return PictureChange::Curves;
}

}  // namespace kalvex
