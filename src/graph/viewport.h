// The mapping between the plane and the pixels of the graph.
#pragma once

#include <cstdint>

#include "workspace/view_window.h"

namespace kalvex {

enum class QuickWindow { Init, Trig, LogX, ExpX, XSquared, MinusXSquared, Standart };

struct WorldPoint {
    double x = 0.0;
    double y = 0.0;
};

/// What the graph window shows and how: the current and the saved rectangle, the client size.
struct Viewport {
    ViewWindow view;
    ViewWindow PreviousWindow;
    std::int32_t ClientWidth = 0;  ///< logical pixels
    std::int32_t ClientHeight = 0;
};

/// Stores the client size and recomputes the derived fields of `view`. Bounds are not checked:
/// equal ones give infinite or not-a-number mapping numbers, reversed ones a mirrored picture.
void LayoutViewport(Viewport& viewport, std::int32_t clientWidth, std::int32_t clientHeight);

/// The same for the client size that is stored: after every change of the bounds.
void LayoutViewport(Viewport& viewport);

/// Pixel column of a world x (truncated toward zero, saturated, 0 for not-a-number).
std::int32_t WorldToScreenX(const ViewWindow& view, double x);

/// Pixel row of a world y.
std::int32_t WorldToScreenY(const ViewWindow& view, double y);

/// World point of a pixel, as a blend of the bounds.
WorldPoint ScreenToWorld(const Viewport& viewport, std::int32_t column, std::int32_t row);

/// Copies the whole record into PreviousWindow.
void SaveAsPrevious(Viewport& viewport);

/// Brings the four bounds back; PreviousWindow stays, so doing it twice changes nothing more.
void RestorePrevious(Viewport& viewport);

/// Saves the current record as previous, then sets the four bounds of a preset.
void ApplyQuickWindow(Viewport& viewport, QuickWindow preset);

/// Moves the bounds by world units; an axis stays where a bound would not be finite.
void MoveBounds(Viewport& viewport, double right, double up);

/// Moves the bounds so that the content follows a drag of (columns, rows) pixels.
void PanBy(Viewport& viewport, std::int32_t columns, std::int32_t rows);

}  // namespace kalvex
