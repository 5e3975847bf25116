// Memory of the stack, which the system otherwise gives at the moment when it is used.
#pragma once

namespace kalvex {

/// Lets the stack of this thread grow by a megabyte at once. Throws std::bad_alloc when there is
/// not so much memory; later, the lack of it would end the process by a signal.
void MakeStackRoom();

}  // namespace kalvex
