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
/// equal ones make origin and scale infinite or not-a-number, reversed ones mirror the picture.
void LayoutViewport(Viewport& viewport, std::int32_t clientWidth, std::int32_t clientHeight);

/// The same for the stored client size. To be called after every change of the bounds.
void LayoutViewport(Viewport& viewport);

/// Column of a world x, not rounded.
[[nodiscard]] double PositionX(const ViewWindow& view, double x);

/// Row of a world y, not rounded.
[[nodiscard]] double PositionY(const ViewWindow& view, double y);

/// Pixel column of a world x (truncated toward zero, saturated, 0 for not-a-number).
[[nodiscard]] std::int32_t WorldToScreenX(const ViewWindow& view, double x);

/// Pixel row of a world y.
[[nodiscard]] std::int32_t WorldToScreenY(const ViewWindow& view, double y);

/// World point of a pixel, interpolated between the bounds.
[[nodiscard]] WorldPoint ScreenToWorld(const Viewport& viewport, std::int32_t column,
                                       std::int32_t row);

/// The distance of two neighbouring columns or rows at which curves are evaluated, the first and
/// the last of them at the bounds; 0 when there is only one.
[[nodiscard]] double PixelStep(double low, double high, std::int32_t pixels);

/// Copies the whole record into PreviousWindow.
void SaveAsPrevious(Viewport& viewport);

/// Copies the four bounds of PreviousWindow back. PreviousWindow stays, so a second call changes
/// nothing.
void RestorePrevious(Viewport& viewport);

/// Saves the current record as previous, then sets the four bounds of a preset.
void ApplyQuickWindow(Viewport& viewport, QuickWindow preset);

/// Moves the bounds by world units. An axis is not moved when one of its bounds would not be
/// finite.
void MoveBounds(Viewport& viewport, double right, double up);

/// Moves the bounds so that the content follows a drag of (columns, rows) pixels.
void PanBy(Viewport& viewport, std::int32_t columns, std::int32_t rows);

}  // namespace kalvex
