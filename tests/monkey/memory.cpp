#include "monkey/memory.h"

#include <malloc.h>

#ifdef __SANITIZE_ADDRESS__
// The sanitizer's own interface. Its header does not come with every GCC.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(void);
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
