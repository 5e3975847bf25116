// Domain errors of an evaluation, as a code and as texts.
#pragma once

#include <cstdint>
#include <string>

#include "base/message_box.h"

namespace kalvex {

/// Stored wherever a value could not be computed.
inline constexpr double UndefinedValue = 1e30;

/// Code of the first primitive that failed in the last evaluation on this thread; 0: none. The
/// caller clears it before an evaluation and reads it afterwards.
extern thread_local std::int32_t EvalError;

/// Title ("%s error" with the primitive's name) and message of a code 1 to 21 or 1000. Any other
/// code, 0 included, shows a diagnostic box first, gets the name "Unknown" and leaves `message`
/// as it was.
void DescribeEvalError(std::int32_t code, std::u16string& title, std::u16string& message,
                       const ShowMessage& show);

}  // namespace kalvex
