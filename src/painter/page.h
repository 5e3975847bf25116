// The graph on a printed page.
#pragma once

#include <QRectF>
#include <QSize>
#include <QSizeF>

#include "graph/draw_list.h"

class QPaintDevice;

namespace kalvex {

/// How a picture lies between the margins of a page.
enum class PageFit {
    Inside,    ///< as large as its proportions allow, in the middle
    Stretched  ///< over the whole room; its proportions become those of the room
};

/// Where a picture lies in the room between the margins, whose upper left corner is (0, 0). All
/// sizes are positive.
[[nodiscard]] QRectF PlaceOnPage(const QSizeF& picture, const QSizeF& room, PageFit fit);

/// The size in logical pixels of a picture that has the proportions of the room and about as many
/// pixels as the one that is seen, so that its texts are about as large. At least 1 x 1.
[[nodiscard]] QSize SizeForPage(const QSize& seen, const QSizeF& room);

/// Paints the picture on a page at its exact positions, as lines and texts where the device can
/// keep them. The room is what the device calls its width and height: of a printer or a PDF file
/// that is the page without its margins. False when the picture or the room has no size and when
/// the device cannot be drawn on.
[[nodiscard]] bool PaintPage(QPaintDevice& page, const DrawList& picture, PageFit fit);

}  // namespace kalvex
