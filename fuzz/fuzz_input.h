// What the fuzz targets share: taking an input apart, and requirements.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

namespace kalvex::fuzz {

/// Ends the run with a finding when a requirement does not hold.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

/// Whether two doubles are the same number; all not-a-numbers are.
[[nodiscard]] inline bool Same(double a, double b) {
    return (a != a && b != b) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// The bytes of an input that are left. Beyond its end everything is 0 or empty.
struct Input {
    const std::uint8_t* at = nullptr;
    std::size_t left = 0;
};

[[nodiscard]] inline std::uint8_t TakeByte(Input& input) {
    if (input.left == 0) return 0;
    --input.left;
    return *input.at++;
}

/// A number from 0 to count-1.
[[nodiscard]] inline std::size_t TakeChoice(Input& input, std::size_t count) {
    return TakeByte(input) % count;
}

template <typename Number>
[[nodiscard]] Number TakeRaw(Input& input) {
    std::array<std::uint8_t, sizeof(Number)> bytes = {};
    for (std::uint8_t& byte : bytes)
        byte = TakeByte(input);
    return std::bit_cast<Number>(bytes);
}

/// Any double. Most bytes give a quarter of a small integer, so that short inputs say much.
[[nodiscard]] inline double TakeDouble(Input& input) {
    using Limits = std::numeric_limits<double>;
    constexpr std::array<double, 12> kEnds = {-Limits::infinity(),
                                              Limits::infinity(),
                                              Limits::quiet_NaN(),
                                              -Limits::max(),
                                              Limits::max(),
                                              Limits::min(),
                                              Limits::denorm_min(),
                                              -0.0,
                                              1e30,
                                              -1e100,
                                              1e-9,
                                              2147483648.0};
    constexpr int kRaw = 12;
    const int byte = TakeByte(input);
    const int special = byte - (256 - kRaw - 1);
    if (special < 0) return (byte - 120) / 4.0;
    if (special == kRaw) return TakeRaw<double>(input);
    return kEnds[static_cast<std::size_t>(special)];
}

/// Any whole number; most bytes give a small one.
[[nodiscard]] inline std::int32_t TakeWhole(Input& input) {
    constexpr int kRaw = 255;
    const int byte = TakeByte(input);
    return byte == kRaw ? TakeRaw<std::int32_t>(input) : byte - 8;
}

/// A text of at most `most` bytes, up to the next zero byte.
[[nodiscard]] inline std::string TakeText(Input& input, std::size_t most) {
    std::string text;
    while (input.left > 0 && text.size() < most) {
        const std::uint8_t byte = TakeByte(input);
        if (byte == 0) break;
        text.push_back(static_cast<char>(byte));
    }
    return text;
}

}  // namespace kalvex::fuzz
