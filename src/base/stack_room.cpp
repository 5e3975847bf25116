// The memory is asked for in the usual way first, because that can fail with an exception. It is
// given back and then used by the stack.
#include "base/stack_room.h"

#include <cstddef>
#include <memory>

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
    {
        const auto probe = std::make_unique_for_overwrite<char[]>(kRoom + kSpare);
        volatile char* const used = probe.get();
        used[0] = 0;  // so that the compiler keeps the allocation
    }
    TouchStack();
}

}  // namespace kalvex
