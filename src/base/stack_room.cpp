// The memory is asked for in the usual way first, because that can fail with an exception. It is
// given back and then used by the stack.
#include "base/stack_room.h"

#include <cstddef>

#include "base/memory_room.h"

namespace kalvex {
namespace {

constexpr std::size_t kRoom = std::size_t{1} << 20;
constexpr std::size_t kPage = 4096;
constexpr std::size_t kSpare = std::size_t{1} << 16;  // the stack grows by more than is asked for

[[gnu::noinline]] void TouchStack() {
    char room[kRoom];
    volatile char* const used = room;
    for (std::size_t i = 0; i < kRoom; i += kPage)
        used[kRoom - 1 - i] = 0;
}

}  // namespace

void MakeStackRoom() {
    DemandMemory(kRoom + kSpare);
    TouchStack();
}

}  // namespace kalvex
