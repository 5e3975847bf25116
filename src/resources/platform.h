// The platform type that the program gives itself. It decides on the completion list, the `File`
// equation type and the paged form of the report.
#pragma once

#include <string_view>

namespace kalvex {

inline constexpr std::u16string_view kPocketPc = u"PocketPC";

/// Any text but kPocketPc selects the other form.
inline constexpr std::u16string_view kPlatformType = kPocketPc;

}  // namespace kalvex
