// What the fault library tells of one run.
#pragma once

namespace kalvex {

/// The answer to one request, see fault_library.cpp.
struct FaultAnswer {
    int state = 0;         ///< as waitpid gives it
    bool reached = false;  ///< the program made the call that was to fail
};

}  // namespace kalvex
