// The keys of the graph window that are not short cuts of commands.
#pragma once

#include <Qt>
#include <optional>

#include "graph/explore_commands.h"

namespace kalvex {

struct GraphKey {
    int key = 0;  ///< Qt::Key
    Qt::KeyboardModifiers modifiers;
    bool repeated = false;  ///< by being held down
};

/// Normal mode: arrows pan by a tenth of the window, Home shows the first fixed window. Trace:
/// left and right step through the samples (Ctrl: ten), Home and End go to the first and last one,
/// up and down change the function. Picking: arrows move the cursor (Ctrl: ten pixels).
/// Everywhere: + and - zoom by the factors. `gesture` belongs to the + and - keys. No value for any
/// other key. Of the keys that repeat while they are held down only arrows, + and
/// - count.
[[nodiscard]] std::optional<PictureChange> RunGraphKey(GraphState& state,
                                                       const FunctionList& functions,
                                                       ZoomGesture& gesture, const GraphKey& key);

/// Whether a key picks the cursor's pixel: Return and Space, while a point is being picked.
[[nodiscard]] bool IsPickKey(const GraphState& state, const GraphKey& key);

}  // namespace kalvex
