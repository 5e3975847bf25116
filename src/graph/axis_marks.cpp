// A window of 1e300 units has 1e300 rungs on a few hundred pixels, so they are not counted one by
// one. The position is a monotone function of k, since each of its roundings is monotone. The next
// rung on another pixel is therefore found by doubling the step and then by bisection over k. k
// runs over all doubles that are whole numbers: every integer up to 2^53 and every double above it.
// An index numbers them in order.
#include "graph/axis_marks.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "numbers/truncate.h"

namespace kalvex {
namespace {

constexpr std::uint64_t kDenseEnd = std::uint64_t{1} << 53;
constexpr std::uint64_t kDenseEndBits = std::bit_cast<std::uint64_t>(9007199254740992.0);
constexpr std::uint64_t kLastIndex =
    kDenseEnd + (std::bit_cast<std::uint64_t>(std::numeric_limits<double>::max()) - kDenseEndBits);

double RungAt(std::uint64_t index) {
    if (index <= kDenseEnd) return static_cast<double>(index);
    return std::bit_cast<double>(kDenseEndBits + (index - kDenseEnd));
}

/// The smallest index >= from whose rung passes a test. The test must be monotone in k. kLastIndex
/// + 1 when no rung passes it.
template <typename Test>
std::uint64_t FirstIndex(std::uint64_t from, const Test& test) {
    std::uint64_t low = from;
    std::uint64_t high = from;
    for (std::uint64_t stride = 1; !test(RungAt(high)); stride *= 2) {
        if (high == kLastIndex) return kLastIndex + 1;
        low = high + 1;
        high = stride < kLastIndex - high ? high + stride : kLastIndex;
    }
    while (low < high) {
        const std::uint64_t middle = low + (high - low) / 2;
        if (test(RungAt(middle)))
            high = middle;
        else
            low = middle + 1;
    }
    return high;
}

AxisMark MarkAt(double rung, double position) {
    return {rung, TruncateToInt32(position), position};
}

/// Whether marks can be computed from the origin and the scale of one axis.
bool IsUsable(double origin, double scale) {
    return std::isfinite(origin) && std::isfinite(scale) && scale != 0.0 &&
           std::isfinite(GridStep(std::fabs(scale)));
}

}  // namespace

std::vector<AxisMark> MarksTowardZero(const AxisLadder& ladder, double first, std::int32_t end) {
    const auto position = [&](double k) { return ladder.origin - k * ladder.units * ladder.scale; };
    std::vector<AxisMark> marks;
    double bound = end;  // the next mark lies before this position
    std::uint64_t index = static_cast<std::uint64_t>(first);
    while (index <= kLastIndex) {
        index = FirstIndex(index, [&](double k) { return position(k) < bound; });
        if (index > kLastIndex || !(position(RungAt(index)) > 0.0)) break;
        const AxisMark mark = MarkAt(RungAt(index), position(RungAt(index)));
        marks.push_back(mark);
        bound = mark.pixel;
        ++index;
    }
    return marks;
}

std::vector<AxisMark> MarksAwayFromZero(const AxisLadder& ladder, double first, std::int32_t end) {
    const auto position = [&](double k) { return ladder.origin + k * ladder.units * ladder.scale; };
    std::vector<AxisMark> marks;
    std::uint64_t index =
        FirstIndex(static_cast<std::uint64_t>(first), [&](double k) { return position(k) > -1.0; });
    while (index <= kLastIndex) {
        if (!(position(RungAt(index)) < end)) break;
        const AxisMark mark = MarkAt(RungAt(index), position(RungAt(index)));
        marks.push_back(mark);
        const double bound = mark.pixel + 1.0;
        index = FirstIndex(index + 1, [&](double k) { return position(k) >= bound; });
    }
    return marks;
}

AxisLadder LadderX(const ViewWindow& view) {
    return {view.OriginX, 1.0, std::fabs(view.ScaleX)};
}

AxisLadder LadderY(const ViewWindow& view) {
    return {view.OriginY, 1.0, std::fabs(view.ScaleY)};
}

double GridStep(double scale) {
    return std::trunc(10.0 / scale) + 1.0;
}

bool HasUsableMapping(const ViewWindow& view) {
    return IsUsable(view.OriginX, view.ScaleX) && IsUsable(view.OriginY, view.ScaleY);
}

}  // namespace kalvex
