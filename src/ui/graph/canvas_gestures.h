// Wheel and pinch as zoom steps.
#pragma once

#include <QPointF>
#include <Qt>

#include "graph/explore_commands.h"

namespace kalvex {

/// The pixel that a point lies in.
[[nodiscard]] PixelPoint PixelOf(QPointF point);

/// The part of the wheel turns that did not make a whole step yet. A notch of an ordinary wheel is
/// 120 units, which are eight steps; touch pads send a few units at a time.
struct WheelRest {
    int units = 0;
};

/// The whole steps in what has been turned so far, positive away from the user (closer).
[[nodiscard]] int TakeWheelSteps(WheelRest& rest, int units);

/// The factor by which the window's extents change after some steps; a notch closer gives 4/5.
[[nodiscard]] double ExtentOfSteps(int steps);

/// The two fingers of a pinch.
struct PinchState {
    bool running = false;
    QPointF centre;
    double distance = 0.0;
};

/// One movement of two fingers: the point of the plane between them stays between them. With Ctrl
/// only x is zoomed, with Shift only y.
[[nodiscard]] PictureChange MovePinch(GraphState& state, ZoomGesture& gesture, PinchState& pinch,
                                      QPointF first, QPointF second,
                                      Qt::KeyboardModifiers modifiers);

/// A zoom step about a point; Ctrl and Shift as above.
[[nodiscard]] PictureChange ZoomStep(GraphState& state, ZoomGesture& gesture, QPointF fixed,
                                     double extent, Qt::KeyboardModifiers modifiers);

}  // namespace kalvex
