// The commands that look at the graph: zoom, fixed windows, trace, and the same by keys and wheel.
#pragma once

#include <optional>

#include "graph/pick.h"
#include "resources/command_ids.h"

namespace kalvex {

/// Runs a command of the Zoom or QUICK submenu that needs no dialog, or `Trace`. Automatic zoom and
/// the fixed windows leave the mode as it is. Returns nothing for any other command.
[[nodiscard]] std::optional<PictureChange> RunExploreCommand(GraphState& state,
                                                             const FunctionList& functions,
                                                             CommandId command,
                                                             const ShowMessage& show);

/// Zooms about a pixel at once, without a mode in which the user picks the point. The popup of the
/// full-screen mode does this. Saves the present window as the previous one, then returns to normal
/// mode.
[[nodiscard]] PictureChange ZoomAtOnce(GraphState& state, const PixelPoint& centre,
                                       ZoomDirection direction);

/// A series of small zooms by wheel, pinch or a held key. Only its first step saves the present
/// window as the previous one.
struct ZoomGesture {
    bool running = false;
};

/// One step of a gesture; the world point at `fixed` stays where it is.
[[nodiscard]] PictureChange StepGesture(GraphState& state, ZoomGesture& gesture,
                                        const PixelPoint& fixed, double extentX, double extentY);

/// One step of a gesture in the middle of the picture by the zoom factors.
[[nodiscard]] PictureChange StepGestureByFactors(GraphState& state, ZoomGesture& gesture,
                                                 ZoomDirection direction);

/// Moves the window by tenths of its extent: to the right and upward where positive.
[[nodiscard]] PictureChange PanByTenths(GraphState& state, int right, int up);

}  // namespace kalvex
