// The automatic zoom: the y bounds from the values of the last redraw.
#pragma once

#include "base/message_box.h"
#include "graph/viewport.h"
#include "workspace/function_entry.h"

namespace kalvex {

/// Sets Ymin and Ymax from the sample caches of the drawn functions; those without any defined
/// value (not-a-number counts as undefined) are left out. False, with a message and unchanged
/// bounds, when a value lies beyond -131 or 131 or when there is none at all. A constant 0 gives
/// equal bounds.
[[nodiscard]] bool AutoZoom(Viewport& viewport, const FunctionList& functions,
                            const ShowMessage& show);

}  // namespace kalvex
