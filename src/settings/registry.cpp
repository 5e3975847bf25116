// What all registries share: the comparison of names and the batch of writes. A store with batches
// writes its file once, at the end of the batch. The order of the writes, and the place where a
// failure stops them, are the same with and without a batch.
#include "settings/registry.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

namespace kalvex {

Batch::Batch(const Registry& of) : registry(of), exceptions(std::uncaught_exceptions()) {
    Begin();
}

Batch::~Batch() {
    if (!isOpen) return;
    const bool isLeftByException = std::uncaught_exceptions() > exceptions;
    try {
        if (isLeftByException && registry.discard) {
            registry.discard();
        } else {
            static_cast<void>(Commit());
        }
    } catch (const std::bad_alloc&) {
        // The batch has ended. There is no memory to store it.
    }
}

void Batch::Begin() {
    if (!registry.begin || !registry.commit) return;
    registry.begin();
    isOpen = true;
}

bool Batch::Commit() {
    return !std::exchange(isOpen, false) || registry.commit();
}

bool WriteTogether(const Registry& registry, const std::function<bool()>& writes) {
    Batch batch(registry);
    const bool written = writes();
    return batch.Commit() && written;
}

StoreRemarks RemarksOf(const Registry& registry) {
    return registry.remarks ? registry.remarks() : StoreRemarks{};
}

std::string FoldedName(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return folded;
}

}  // namespace kalvex
