#pragma once

#include <cstddef>

namespace kalvex::monkey {

/// Bytes that the program has allocated and not freed.
[[nodiscard]] std::size_t AllocatedBytes();

}  // namespace kalvex::monkey
