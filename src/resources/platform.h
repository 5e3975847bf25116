// The platform type of this program. The completion list, the equation type `File` and the report
// in pages depend on it.
#pragma once

#include <string_view>

namespace kalvex {

inline constexpr std::u16string_view kPocketPc = u"PocketPC";

/// With any text other than kPocketPc all three are switched off.
inline constexpr std::u16string_view kPlatformType = kPocketPc;

}  // namespace kalvex
