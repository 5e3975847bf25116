// Most commands end a pick mode. Automatic zoom and the fixed windows do not, so that they can be
// used while a point is being picked.
#include "graph/explore_commands.h"

#include <cmath>

#include "graph/auto_zoom.h"
#include "graph/trace.h"
#include "graph/zoom.h"

namespace kalvex {
namespace {

std::optional<QuickWindow> QuickWindowOf(CommandId command) {
    if (command < CommandId::QuickInit || command > CommandId::QuickStandart) return std::nullopt;
    return static_cast<QuickWindow>(static_cast<int>(command) -
                                    static_cast<int>(CommandId::QuickInit));
}

/// To be called after a change of the bounds: the mapping must be right before the next event.
PictureChange LaidOut(GraphState& state) {
    LayoutViewport(state.viewport);
    return PictureChange::Curves;
}

/// The factor of a zoom step; 1 for one that cannot be used.
double UsableFactor(double factor) {
    return std::isfinite(factor) && factor > 0.0 ? factor : 1.0;
}

}  // namespace

std::optional<PictureChange> RunExploreCommand(GraphState& state, const FunctionList& functions,
                                               CommandId command, const ShowMessage& show) {
    if (const auto preset = QuickWindowOf(command)) {
        ApplyQuickWindow(state.viewport, *preset);
        return LaidOut(state);
    }
    switch (command) {
        case CommandId::ZoomBox:
            EnterBoxMode(state);
            return PictureChange::Overlay;
        case CommandId::ZoomIn:
            EnterCentreMode(state, ZoomDirection::In);
            return PictureChange::Overlay;
        case CommandId::ZoomOut:
            EnterCentreMode(state, ZoomDirection::Out);
            return PictureChange::Overlay;
        case CommandId::ZoomAuto:
            // When no bounds can be found, `show` has said so and the window stays as it is.
            static_cast<void>(AutoZoom(state.viewport, functions, show));
            return LaidOut(state);
        case CommandId::ZoomPre:
            RestorePrevious(state.viewport);
            EnterNormalMode(state);
            return LaidOut(state);
        case CommandId::Trace:
            return EnterTraceMode(state, functions) ? PictureChange::Overlay : PictureChange::None;
        default:
            return std::nullopt;
    }
}

PictureChange ZoomAtOnce(GraphState& state, const PixelPoint& centre, ZoomDirection direction) {
    SaveAsPrevious(state.viewport);
    EnterNormalMode(state);
    ZoomAbout(state.viewport, ScreenToWorld(state.viewport, centre.x, centre.y), direction);
    return LaidOut(state);
}

PictureChange StepGesture(GraphState& state, ZoomGesture& gesture, const PixelPoint& fixed,
                          double extentX, double extentY) {
    if (!gesture.running) SaveAsPrevious(state.viewport);
    gesture.running = true;
    ZoomAtPixel(state.viewport, fixed, extentX, extentY);
    return LaidOut(state);
}

PictureChange StepGestureByFactors(GraphState& state, ZoomGesture& gesture,
                                   ZoomDirection direction) {
    const double x = UsableFactor(state.viewport.view.Xfactor);
    const double y = UsableFactor(state.viewport.view.Yfactor);
    const bool in = direction == ZoomDirection::In;
    return StepGesture(state, gesture, MiddleOf(state.viewport), in ? 1.0 / x : x,
                       in ? 1.0 / y : y);
}

PictureChange PanByTenths(GraphState& state, int right, int up) {
    const ViewWindow& view = state.viewport.view;
    MoveBounds(state.viewport, right * (view.Xmax - view.Xmin) * 0.1,
               up * (view.Ymax - view.Ymin) * 0.1);
    return LaidOut(state);
}

}  // namespace kalvex
