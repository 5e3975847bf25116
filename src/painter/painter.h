// Plays drawing records with QPainter. Needs a QGuiApplication for texts.
#pragma once

#include <QImage>

#include "graph/draw_list.h"
#include "workspace/options.h"

class QPainter;

namespace kalvex {

/// How a picture is painted: as whole logical pixels, or at exact positions with soft edges.
enum class Playing { Classic, Smooth };

[[nodiscard]] Playing PlayingOf(const Options& options);

/// Draws all records as whole pixels; coordinates are logical pixels of the painter's device.
void PlayDrawList(QPainter& painter, const DrawList& list);

/// The picture on white, at a device pixel ratio (the image is list.width * ratio pixels wide and
/// carries the ratio). Format RGB32. A size of 0 or below gives a null image.
[[nodiscard]] QImage PaintPicture(const DrawList& list, double devicePixelRatio = 1.0,
                                  Playing playing = Playing::Classic);

/// Whether the fonts of all texts of the list could be loaded. The texts of a picture without its
/// fonts are empty boxes.
[[nodiscard]] bool HasFontsOf(const DrawList& list);

/// The text-measuring function that belongs to this painter's fonts. It throws std::bad_alloc when
/// the font library gives a number no width because it got no memory.
[[nodiscard]] MeasureText PainterTextMeasure();

}  // namespace kalvex
