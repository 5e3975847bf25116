// Painting through QPainter takes about a microsecond for each rectangle, however small; an
// implicit curve has thousands of them.
#include "painter/direct_image.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "painter/qt_color.h"

namespace kalvex {

DirectImage DirectImageOf(const QPainter& painter) {
    auto* const image = dynamic_cast<QImage*>(painter.device());
    if (image == nullptr || image->format() != QImage::Format_RGB32 || !image->isDetached() ||
        painter.hasClipping())
        return {};
    const QTransform transform = painter.deviceTransform();
    const double ratio = transform.m11();
    const bool scalesOnly = transform == QTransform::fromScale(ratio, ratio);
    if (!scalesOnly || !(ratio > 0.0) || ratio > 64.0) return {};
    return {image, ratio};
}

DeviceRect RectOf(const PixelRun& run, double ratio) {
    const auto at = [ratio](double pixel) { return std::llround(pixel * ratio); };
    return {at(run.column), at(run.row), at(static_cast<double>(run.column) + run.length),
            at(run.row + 1.0)};
}

void Fill(const DirectImage& target, const DeviceRect& rect, const Rgb& color) {
    const std::int64_t width = target.image->width();
    const std::int64_t left = std::clamp<std::int64_t>(rect.left, 0, width);
    const std::int64_t right = std::clamp<std::int64_t>(rect.right, left, width);
    const std::int64_t top = std::max<std::int64_t>(rect.top, 0);
    const std::int64_t bottom = std::min<std::int64_t>(rect.bottom, target.image->height());
    const QRgb value = ToQColor(color).rgb();
    for (std::int64_t y = top; y < bottom; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(target.image->scanLine(static_cast<int>(y)));
        std::fill(row + left, row + right, value);
    }
}

}  // namespace kalvex
