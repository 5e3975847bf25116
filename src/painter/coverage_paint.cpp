// Painting what a mask has collected: groups that nothing covers are left out by their flags, words
// of eight pixels by a comparison, and the others are mixed with vector instructions.
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "painter/coverage.h"

namespace kalvex {
namespace {

constexpr std::int32_t kWord = 8;  ///< pixels that are painted together
constexpr std::size_t kChannels = 4 * std::size_t{kWord};

/// The bytes of a word of pixels, or of their covered parts.
using WordBytes = std::array<std::uint8_t, kChannels>;

WordBytes Repeated(std::uint32_t pixel) {
    WordBytes bytes;
    for (std::size_t i = 0; i < bytes.size(); i += sizeof pixel)
        std::memcpy(bytes.data() + i, &pixel, sizeof pixel);
    return bytes;
}

/// Mixes channel by channel, (below * (255 - part) + above * part) / 255 rounded, in 16 bits each,
/// which compilers turn into vector instructions.
void PaintWord(const std::uint8_t* parts, const WordBytes& above, std::uint32_t* pixels) {
    WordBytes part;
    for (std::size_t i = 0; i < std::size_t{kWord}; ++i) {
        const std::uint32_t repeated = parts[i] * 0x01010101U;
        std::memcpy(part.data() + 4 * i, &repeated, sizeof repeated);
    }
    WordBytes bytes;
    std::memcpy(bytes.data(), pixels, sizeof bytes);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto rest = static_cast<std::uint16_t>(255 - part[i]);
        const auto sum = static_cast<std::uint16_t>(bytes[i] * rest + above[i] * part[i] + 128);
        bytes[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(sum + (sum >> 8)) >> 8);
    }
    std::memcpy(pixels, bytes.data(), sizeof bytes);
}

/// @param count at most kCoverageGroup
void PaintGroup(std::uint8_t* parts, std::int32_t count, const WordBytes& above,
                std::uint32_t* pixels) {
    for (std::int32_t i = 0; i < count; i += kWord) {
        const auto size = static_cast<std::size_t>(std::min(kWord, count - i));
        std::array<std::uint8_t, kWord> word = {};
        std::memcpy(word.data(), parts + i, size);
        if (std::bit_cast<std::uint64_t>(word) == 0) continue;  // most words have nothing covered
        std::memset(parts + i, 0, size);
        std::array<std::uint32_t, kWord> last = {};
        const bool isWhole = size == std::size_t{kWord};
        if (!isWhole) std::memcpy(last.data(), pixels + i, size * sizeof *pixels);
        PaintWord(word.data(), above, isWhole ? pixels + i : last.data());
        if (!isWhole) std::memcpy(pixels + i, last.data(), size * sizeof *pixels);
    }
}

}  // namespace

void PaintCovered(CoverageMask& mask, std::uint32_t color, std::uint32_t* pixels,
                  std::ptrdiff_t stride) {
    const WordBytes above = Repeated(0xFF000000U | color);
    // A line goes on a few rows below where it is now. Fetching these pixels beforehand halves the
    // time of steep lines, which would wait for each of them.
    constexpr std::int32_t kAhead = 8;
    for (std::int32_t row = mask.firstRow; row < mask.endRow; ++row) {
        std::uint8_t* const touched = mask.touched.data() + std::ptrdiff_t{row} * mask.groups;
        std::uint8_t* const parts = mask.parts.data() + std::ptrdiff_t{row} * mask.width;
        for (std::int32_t group = 0; group < mask.groups; ++group) {
            const auto* const next = static_cast<const std::uint8_t*>(
                std::memchr(touched + group, 1, static_cast<std::size_t>(mask.groups - group)));
            if (next == nullptr) break;
            group = static_cast<std::int32_t>(next - touched);
            touched[group] = 0;
            const std::int32_t first = group * kCoverageGroup;
            std::uint32_t* const target = pixels + row * stride + first;
            if (row + kAhead < mask.endRow) {
                __builtin_prefetch(target + kAhead * stride, 1);
                __builtin_prefetch(target + kAhead * stride + kCoverageGroup / 2, 1);
            }
            PaintGroup(parts + first, std::min(kCoverageGroup, mask.width - first), above, target);
        }
    }
    mask.firstRow = 0;
    mask.endRow = 0;
}

}  // namespace kalvex
