// What every registry shares: how names compare and how several writes become one. A store that
// knows batches postpones the costly part (a file written and moved into place) to the end; the
// order of the writes and where they stop stay those of single writes.
#include "settings/registry.h"

#include <algorithm>

namespace kalvex {

bool WriteTogether(const Registry& registry, const std::function<bool()>& writes) {
    if (!registry.begin || !registry.commit) return writes();
    registry.begin();
    const bool written = writes();
    return registry.commit() && written;
}

std::string FoldedName(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return folded;
}

}  // namespace kalvex
