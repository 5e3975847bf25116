// The pixels behind a painter, for what is quicker to write than to paint.
#pragma once

#include <QImage>
#include <cstdint>

#include "graph/draw_list.h"

class QPainter;

namespace kalvex {

/// The image that a painter draws on, when its pixels can be written directly: 32 bits per pixel, a
/// scale that is the same in both directions, no translation and no clipping. `image` is null when
/// they cannot.
struct DirectImage {
    QImage* image = nullptr;
    double ratio = 0.0;  ///< device pixels per logical pixel
};

[[nodiscard]] DirectImage DirectImageOf(const QPainter& painter);

/// A rectangle of device pixels, which may lie off the image.
struct DeviceRect {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;  ///< the first column behind it
    std::int64_t bottom = 0;
};

/// The device pixels of a run; neighbouring runs meet without a gap at any ratio.
[[nodiscard]] DeviceRect RectOf(const PixelRun& run, double ratio);

void Fill(const DirectImage& target, const DeviceRect& rect, const Rgb& color);

}  // namespace kalvex
