// The runs depend on the pixels of the samples only. Which pieces of a run are painted is decided
// afterwards, by the exact position of each sample.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "graph/curves.h"

namespace kalvex {
namespace {

bool IsUnplotted(const CurveSample& sample) {
    return sample.column == 0 && sample.row == 0;
}

Position PositionOf(const ViewWindow& view, const CurveSample& sample) {
    return {PositionX(view, sample.x), PositionY(view, sample.y)};
}

void AddPolyline(std::span<const CurveSample> samples, const ViewWindow& view, const Pen& pen,
                 DrawList& list) {
    if (samples.size() < 2) return;
    PolylineRecord line{pen, {}};
    line.points.reserve(samples.size());
    for (const CurveSample& sample : samples)
        line.points.push_back(PositionOf(view, sample));
    list.records.emplace_back(std::move(line));
}

}  // namespace

bool HasPosition(const ViewWindow& view, double x, double y) {
    return !std::isnan(PositionX(view, x)) && !std::isnan(PositionY(view, y));
}

std::vector<SampleRun> PolylineRuns(std::span<const CurveSample> samples,
                                    std::int32_t clientHeight) {
    std::vector<SampleRun> runs;
    const std::int64_t threshold = 5 * std::int64_t{clientHeight};
    std::size_t start = 0;
    const auto add = [&](std::size_t end) {
        if (end >= start + 2) runs.push_back({start, end - start});
    };
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const std::int64_t jump = std::int64_t{samples[i - 1].row} - samples[i].row;
        if (std::abs(jump) <= threshold && !IsUnplotted(samples[i - 1])) continue;
        // KEEP: sample i - 1 belongs to neither run; that takes away the marker of an unplotted
        // sample and the far end of a near-vertical jump.
        add(i - 1);
        start = i;
    }
    add(samples.size());
    return runs;
}

void DrawRuns(std::span<const CurveSample> samples, const Viewport& viewport, const Pen& pen,
              DrawList& list) {
    for (const SampleRun& run : PolylineRuns(samples, viewport.ClientHeight)) {
        std::size_t start = run.first;
        const std::size_t end = run.first + run.count;
        for (std::size_t i = start; i < end; ++i) {
            if (HasPosition(viewport.view, samples[i].x, samples[i].y)) continue;
            AddPolyline(samples.subspan(start, i - start), viewport.view, pen, list);
            start = i + 1;
        }
        AddPolyline(samples.subspan(start, end - start), viewport.view, pen, list);
    }
}

void DrawJoined(std::span<const CurveSample> samples, std::span<const std::uint8_t> joined,
                const Viewport& viewport, const Pen& pen, DrawList& list) {
    const ViewWindow& view = viewport.view;
    SegmentsRecord record{pen, {}};
    for (std::size_t i = 0; i + 1 < samples.size(); ++i) {
        const CurveSample& a = samples[i];
        const CurveSample& b = samples[i + 1];
        if (joined[i] == 0 || !HasPosition(view, a.x, a.y) || !HasPosition(view, b.x, b.y))
            continue;
        const Segment segment{PositionOf(view, a), PositionOf(view, b)};
        if (segment.from != segment.to) record.segments.push_back(segment);
    }
    if (!std::ranges::all_of(record.segments, IsWithinPixel))
        list.records.emplace_back(std::move(record));
}

}  // namespace kalvex
