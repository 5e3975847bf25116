#include <gtest/gtest.h>

#include "graph/curves.h"
#include "graph/graph_fixtures.h"

namespace kalvex {
namespace {

constexpr std::int32_t kHeight = 10;  // a jump of more than 50 rows breaks the line

std::vector<CurveSample> SamplesOf(const std::vector<std::int32_t>& rows) {
    std::vector<CurveSample> samples;
    for (const std::int32_t row : rows)
        samples.push_back({static_cast<std::int32_t>(samples.size()) + 1, row, 0, 0, 0, 0});
    return samples;
}

TEST(PolylineRuns, BreakAtJumpsAndDropTheSampleBefore) {
    const struct {
        std::vector<std::int32_t> rows;
        std::vector<SampleRun> runs;
    } cases[] = {
        {{}, {}},
        {{1}, {}},
        {{1, 2}, {{0, 2}}},
        {{1, 51}, {{0, 2}}},
        {{1, 52}, {}},
        {{1, 2, 3, 4}, {{0, 4}}},
        {{1, 2, 3, 100, 101}, {{0, 2}, {3, 2}}},
        {{1, 2, 100, 101, 102}, {{2, 3}}},
        {{1, 2, 3, 100, 1, 2}, {{0, 2}, {4, 2}}},
        {{INT32_MIN, INT32_MAX, INT32_MAX}, {{1, 2}}},
        {{INT32_MAX, INT32_MIN, INT32_MAX, INT32_MIN}, {}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(PolylineRuns(SamplesOf(one.rows), kHeight), one.runs)
            << testing::PrintToString(one.rows);
}

TEST(PolylineRuns, BreakAtUnplottedSamples) {
    auto samples = SamplesOf({1, 2, 3, 4, 5, 6, 7});
    samples[3].column = samples[3].row = 0;
    EXPECT_EQ(PolylineRuns(samples, kHeight), (std::vector<SampleRun>{{0, 3}, {4, 3}}));
    samples = SamplesOf({1, 2, 3});
    samples[0].column = samples[0].row = 0;
    EXPECT_EQ(PolylineRuns(samples, kHeight), (std::vector<SampleRun>{{1, 2}}));
}

TEST(PolylineRuns, LeaveOutPiecesWithoutAPosition) {
    const Viewport viewport = fixtures::MakeViewport(0, 10, 0, 10, 10, 10);
    auto samples = SamplesOf({1, 2, 3, 4, 5, 6});
    for (CurveSample& sample : samples) {
        sample.x = sample.column;
        sample.y = 10 - sample.row;
    }
    samples[2].y = std::numeric_limits<double>::quiet_NaN();
    DrawList list;
    DrawRuns(samples, viewport, Pen{{1, 2, 3}, 4}, list);
    const auto lines = fixtures::RecordsOf<PolylineRecord>(list);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(fixtures::PixelsOf(lines[0].points), (std::vector<PixelPoint>{{1, 1}, {2, 2}}));
    EXPECT_EQ(fixtures::PixelsOf(lines[1].points),
              (std::vector<PixelPoint>{{4, 4}, {5, 5}, {6, 6}}));
    EXPECT_EQ(lines[1].pen.width, 4);
}

}  // namespace
}  // namespace kalvex
