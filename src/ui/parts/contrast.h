// Readable colours on any background.
#pragma once

#include <QColor>

namespace kalvex {

/// Contrast ratio of two opaque colours, 1 (equal) to 21 (black on white). Relative luminance as
/// the Web Content Accessibility Guidelines define it.
[[nodiscard]] double ContrastRatio(const QColor& first, const QColor& second);

/// The colour nearest to `color` on its way to black or white (whichever is farther from the
/// background) whose contrast reaches `ratio`; black or white itself when none does.
[[nodiscard]] QColor ReadableColor(const QColor& color, const QColor& background, double ratio);

/// Whether light text reads better on a ground than dark text.
[[nodiscard]] bool IsDark(const QColor& ground);

}  // namespace kalvex
