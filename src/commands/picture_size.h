// How large a picture of pixels is saved.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "commands/number_input.h"

namespace kalvex {

/// In the order of the dialog's list.
enum class SizeChoice : std::int32_t { AsSeen = 0, Twice = 1, FourTimes = 2, OwnWidth = 3 };

struct PictureSize {
    SizeChoice choice = SizeChoice::AsSeen;
    std::int32_t ownWidth = 0;  ///< pixels; 0 as long as none has been typed
};

/// Width and height in pixels, each at least 1.
struct PixelSize {
    std::int32_t width = 1;
    std::int32_t height = 1;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// Greatest width and height of a saved picture, in pixels.
inline constexpr std::int32_t kMostSidePixels = 32767;

/// Most pixels of a saved picture; they take 1 GiB of memory.
inline constexpr std::int64_t kMostPixels = std::int64_t{1} << 28;

/// Pixels of the saved picture for each logical pixel of the one that is seen.
[[nodiscard]] double RatioOf(const PictureSize& size, const PixelSize& seen);

/// The size of the saved picture. Its height follows from its width.
[[nodiscard]] PixelSize SizeOf(const PictureSize& size, const PixelSize& seen);

/// What was chosen in the dialog: an entry of the list (field 0) and, for an own width, its text
/// (field 1). Refuses what is no whole number, and pictures that are too large; then `size` stays
/// as it was. A width that is not asked for is not read.
[[nodiscard]] std::optional<InputProblem> ReadPictureSize(SizeChoice choice,
                                                          std::u16string_view ownWidth,
                                                          const PixelSize& seen, PictureSize& size);

}  // namespace kalvex
