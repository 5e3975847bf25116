// The painter takes from 1/8 to 64 pixels for a logical one; an own width stays within that.
#include "commands/picture_size.h"

#include <algorithm>
#include <cmath>

#include "resources/strings.h"

namespace kalvex {
namespace {

constexpr std::int32_t kLeastParts = 8;
constexpr std::int32_t kMostParts = 64;

/// The own width, or why it is refused.
struct WidthRead {
    std::int32_t width = 0;
    std::optional<InputProblem> problem;
};

WidthRead ReadOwnWidth(std::u16string_view text, std::int32_t seen) {
    const std::int32_t least = (seen - 1) / kLeastParts + 1;
    const auto most = static_cast<std::int32_t>(
        std::min(std::int64_t{kMostParts} * seen, std::int64_t{kMostSidePixels}));
    const std::optional<double> number = WholeNumber(text);
    if (number && *number >= least && *number <= most && *number == std::floor(*number))
        return {static_cast<std::int32_t>(*number), std::nullopt};
    return {0, InputProblem{1, FillIn(Text(StringId::PictureWidthInvalid),
                                      {NumberText(least), NumberText(most)})}};
}

std::int32_t Scaled(std::int32_t pixels, double ratio) {
    const double scaled = std::round(pixels * ratio);
    return static_cast<std::int32_t>(std::clamp(scaled, 1.0, 2e9));
}

bool IsTooLarge(const PixelSize& size) {
    return std::max(size.width, size.height) > kMostSidePixels ||
           std::int64_t{size.width} * size.height > kMostPixels;
}

}  // namespace

double RatioOf(const PictureSize& size, const PixelSize& seen) {
    switch (size.choice) {
        case SizeChoice::Twice:
            return 2.0;
        case SizeChoice::FourTimes:
            return 4.0;
        case SizeChoice::OwnWidth:
            return static_cast<double>(size.ownWidth) / seen.width;
        case SizeChoice::AsSeen:
            break;
    }
    return 1.0;
}

PixelSize SizeOf(const PictureSize& size, const PixelSize& seen) {
    const double ratio = RatioOf(size, seen);
    return {Scaled(seen.width, ratio), Scaled(seen.height, ratio)};
}

std::optional<InputProblem> ReadPictureSize(SizeChoice choice, std::u16string_view ownWidth,
                                            const PixelSize& seen, PictureSize& size) {
    PictureSize chosen{choice, size.ownWidth};
    const bool isOwn = choice == SizeChoice::OwnWidth;
    if (isOwn) {
        auto [width, problem] = ReadOwnWidth(ownWidth, seen.width);
        if (problem) return problem;
        chosen.ownWidth = width;
    }
    const PixelSize made = SizeOf(chosen, seen);
    if (IsTooLarge(made)) {
        return InputProblem{
            isOwn ? std::size_t{1} : std::size_t{0},
            FillIn(Text(StringId::PictureTooLarge),
                   {NumberText(made.width), NumberText(made.height), NumberText(kMostSidePixels),
                    NumberText(kMostPixels / 1'000'000)})};
    }
    size = chosen;
    return std::nullopt;
}

}  // namespace kalvex
