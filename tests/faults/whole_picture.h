// Whether a picture is whole, where its bytes may differ.
#pragma once

#include <string>

namespace kalvex {

/// Whether `picture` is complete, of the format that the name ends in, and as large as `good`. Of
/// drawing records everything but the texts must be the same as in `good`, and the numbers of the
/// axes must stand at their ticks.
[[nodiscard]] bool IsWholePicture(const std::string& name, const std::string& picture,
                                  const std::string& good);

/// The bytes of a picture with zeros in the place of the time at which a PDF was made.
[[nodiscard]] std::string WithoutTime(std::string bytes);

}  // namespace kalvex
