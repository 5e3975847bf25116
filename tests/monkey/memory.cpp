#include "monkey/memory.h"

#include <malloc.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/allocator_interface.h>
#endif

namespace kalvex::monkey {

std::size_t AllocatedBytes() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

}  // namespace kalvex::monkey
