// The first piece is small, because nothing is known yet about the time that a sample takes. Quick
// pieces make the next one larger, slow ones make it smaller.
#include "graph/curve_work.h"

#include <algorithm>
#include <chrono>

namespace kalvex {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kSmallest = 8;
constexpr std::size_t kLargest = 8192;
constexpr std::size_t kGrowth = 4;
constexpr std::chrono::milliseconds kQuick(1);
constexpr std::chrono::milliseconds kSlow(10);

std::size_t NextSize(std::size_t size, Clock::duration time) {
    if (time < kQuick) return std::min(size * kGrowth, kLargest);
    if (time > kSlow) return std::max(size / kGrowth, kSmallest);
    return size;
}

}  // namespace

std::size_t EvaluateInPieces(std::size_t count, const CurveWork& work, const EvaluatePiece& piece) {
    const bool watched = work.progress || work.interruption != nullptr;
    std::size_t size = watched ? kSmallest : count;
    std::size_t done = 0;
    while (done < count) {
        const Clock::time_point start = Clock::now();
        const std::size_t now = std::min(size, count - done);
        piece(done, now);
        if (IsStopped(work.interruption)) break;  // the piece may be incomplete
        done += now;
        const double part = static_cast<double>(done) / static_cast<double>(count);
        if (work.progress && !work.progress(part)) break;
        size = NextSize(size, Clock::now() - start);
    }
    return done;
}

}  // namespace kalvex
