// Sizes that a pen and a finger need.
#pragma once

namespace kalvex {

/// Least width and height of anything that can be tapped, logical pixels.
inline constexpr int kTouchTarget = 40;

/// Height of the bar with the soft keys.
inline constexpr int kBottomBarHeight = 52;

}  // namespace kalvex
