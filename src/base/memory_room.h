// Memory that what follows will need.
#pragma once

#include <cstddef>
#include <memory>

namespace kalvex {

/// Bytes that are asked for before windows are opened or fonts are loaded. Chosen: a whole run of
/// the tool that draws a small picture takes less than half of it. It is no bound.
inline constexpr std::size_t kMemoryOfLibraries = std::size_t{64} << 20;

/// Throws std::bad_alloc when so much memory cannot be had now. To be called before libraries that
/// do not look at what they get; fontconfig, for one, writes damaged caches when memory is short.
inline void DemandMemory(std::size_t bytes) {
    const auto probe = std::make_unique_for_overwrite<char[]>(bytes);
    volatile char* const used = probe.get();
    used[0] = 0;  // so that the compiler keeps the allocation
}

}  // namespace kalvex
