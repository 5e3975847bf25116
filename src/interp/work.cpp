#include "interp/work.h"

#include <algorithm>

namespace kalvex {
namespace {

constexpr double kQuiet = 4e6;     ///< least operations between two calls, a few milliseconds
constexpr double kCalls = 1000.0;  ///< about so many calls,
constexpr double kLongest = 2e7;   ///< but never a longer silence, some hundredths of a second

}  // namespace

bool Spend(Work& work, double operations) {
    if (work.stopped) return false;
    work.done += operations;
    if (work.progress == nullptr || !*work.progress) return true;
    if (work.done - work.told < std::clamp(work.total / kCalls, kQuiet, kLongest)) return true;
    work.told = work.done;
    const double part = work.total > 0.0 ? std::min(work.done / work.total, 1.0) : 1.0;
    work.stopped = !(*work.progress)(part);
    return !work.stopped;
}

}  // namespace kalvex
