// The sample point files that come with the program.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kalvex {

/// A noisy series (41 points), a smooth peak with uneven spacing (17), a monotone step (11). All
/// lie in the view -10..10.
inline constexpr std::array<std::string_view, 3> kSampleFiles = {"measurements.txt", "peak.txt",
                                                                 "step.txt"};

inline constexpr std::string_view kPeakSample = kSampleFiles[1];

/// The path of a sample file (UTF-8): beside the installed program or in its build tree, wherever
/// those are; empty when there is none.
[[nodiscard]] std::string SamplePath(std::string_view name);

}  // namespace kalvex
