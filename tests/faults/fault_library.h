// Which call of the program fails. The program shares no code with the fault library, and memory
// must not be taken here.
#pragma once

#include <dlfcn.h>

namespace kalvex {

enum class Fault {
    None,
    Alloc,
    Open,
    Read,
    Write,
    Full,
    Short,
    Interrupt,
    Sync,
    Rename,
    Link,
    Kill
};

/// Counts a call and tells whether it fails.
bool Fails(Fault kind);

/// The function of the C library that this library stands before.
template <typename Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace kalvex
