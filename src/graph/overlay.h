// What lies over the kept picture in the pick modes: a cursor, a box, bands and texts, as data.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "graph/graph_state.h"
#include "workspace/options.h"

namespace kalvex {

/// A strip of the picture over its whole width, with a prompt in its middle.
struct OverlayBand {
    std::int32_t top = 0;
    std::int32_t bottom = 0;  ///< first row below
    std::u16string prompt;
};

struct Overlay {
    std::optional<PixelPoint> cross;
    std::optional<PixelPoint> corner;  ///< a box reaches from here to the cross
    std::vector<OverlayBand> bands;
    std::vector<std::u16string> texts;  ///< the read-out; a text may have several lines
};

/// The overlay of the present mode; empty in normal mode. The cross of a trace is absent on a
/// sample that is not plotted. Costs no evaluation.
[[nodiscard]] Overlay OverlayOf(const GraphState& state, const FunctionList& functions,
                                const Options& options);

}  // namespace kalvex
