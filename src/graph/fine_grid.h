// The rectangular grid at the steps of the numbers, with lighter lines between them.
#pragma once

#include <optional>

#include "graph/draw_list.h"
#include "graph/nice_steps.h"
#include "graph/viewport.h"

namespace kalvex {

inline constexpr Rgb kLightGridColor = {220, 220, 220};

/// The step of the lighter lines: a tenth of the step of the numbers, or the next larger step of
/// which the other is a multiple, so that the lines are at least eight pixels apart. Nothing when
/// they would be nearer at any such step.
[[nodiscard]] std::optional<NiceStep> LightStep(const AxisSpan& span, const NiceStep& step);

/// Lines at every step of x and y in the colour of the grid, and the lighter lines below them. An
/// axis without a step gets the one of StepFor. Draws nothing when the mapping cannot be used.
void DrawFineGrid(const Viewport& viewport, const std::optional<NiceStep>& stepX,
                  const std::optional<NiceStep>& stepY, DrawList& list);

}  // namespace kalvex
