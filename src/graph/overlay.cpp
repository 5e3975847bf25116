// Each mode has its own part of the overlay. On a picture of a few rows the bands have no height
// and are left out.
#include "graph/overlay.h"

#include "graph/pick.h"
#include "graph/trace.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

void AddBand(Overlay& overlay, std::int32_t top, std::int32_t bottom, StringId prompt) {
    if (top < bottom) overlay.bands.push_back({top, bottom, std::u16string(Text(prompt))});
}

void AddTrace(Overlay& overlay, const GraphState& state, const FunctionEntry& entry,
              const Options& options) {
    const Viewport& viewport = state.viewport;
    AddBand(overlay, 0, UpperBandEnd(viewport), StringId::SlideToSelect);
    AddBand(overlay, LowerBandStart(viewport), viewport.ClientHeight, StringId::TouchToSelect);
    overlay.texts = TraceTexts(entry, state.trace.index, options.Diff != 0);
    // Pixel (0, 0) marks a sample that is not plotted.
    if (state.trace.pixel != PixelPoint{}) overlay.cross = state.trace.pixel;
}

}  // namespace

Overlay OverlayOf(const GraphState& state, const FunctionList& functions, const Options& options) {
    Overlay overlay;
    if (state.mode == GraphMode::Trace) {
        if (const FunctionEntry* const entry = TracedFunction(state, functions))
            AddTrace(overlay, state, *entry, options);
    } else if (state.mode != GraphMode::Normal) {
        overlay.cross = state.trace.pixel;
    }
    if (state.firstCorner) {
        const ViewWindow& view = state.viewport.view;
        overlay.corner = PixelPoint{WorldToScreenX(view, state.firstCorner->x),
                                    WorldToScreenY(view, state.firstCorner->y)};
    }
    return overlay;
}

}  // namespace kalvex
