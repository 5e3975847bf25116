// Run: scripts/fuzz
//
// Any samples, as a drawing could have left them and not, are analysed, and the report, its file
// and the table of the points are made. Counts agree with arrays, extremums are samples, the texts
// hold the name as it is, and the table has one line for each defined sample.
#include <algorithm>
#include <string>
#include <string_view>

#include "analysis/analysis.h"
#include "analysis/export_files.h"
#include "analysis/report.h"
#include "base/encoding.h"
#include "fuzz_input.h"

namespace {

using namespace kalvex;
using namespace kalvex::fuzz;

CurveSample TakeSample(Input& input, const CurveSample& before) {
    CurveSample sample;
    sample.column = TakeWhole(input);
    sample.row = TakeWhole(input);
    sample.y = TakeDouble(input);
    const bool steps = TakeChoice(input, 4) != 0;  // as a function's samples do
    sample.x = steps ? before.x + 0.25 : TakeDouble(input);
    sample.parameter = steps ? before.parameter + 0.5 : TakeDouble(input);
    sample.status = TakeChoice(input, 8) == 0 ? TakeWhole(input) : 0;
    return sample;
}

FunctionEntry TakeEntry(Input& input) {
    constexpr std::size_t kTypes = 6;
    constexpr std::size_t kMostBytes = 30;
    FunctionEntry entry;
    entry.type = static_cast<EquationType>(TakeChoice(input, kTypes));
    entry.text = ToUtf16(TakeText(input, kMostBytes));
    CurveSample sample;
    while (input.left > 0) {
        sample = TakeSample(input, sample);
        entry.samples.push_back(sample);
    }
    return entry;
}

bool IsSampleOf(const FunctionEntry& entry, const CurveSample& extremum) {
    return std::ranges::any_of(entry.samples, [&](const CurveSample& sample) {
        return Same(sample.x, extremum.x) && Same(sample.y, extremum.y);
    });
}

void CheckResult(const FunctionEntry& entry, const AnalysisResult& result) {
    Require(result.rootCount == static_cast<std::int32_t>(result.roots.size()));
    Require(result.minimumCount == static_cast<std::int32_t>(result.minimums.size()));
    Require(result.maximumCount == static_cast<std::int32_t>(result.maximums.size()));
    for (const CurveSample& extremum : result.minimums)
        Require(IsSampleOf(entry, extremum));
    for (const CurveSample& extremum : result.maximums)
        Require(IsSampleOf(entry, extremum));
}

void CheckTexts(const FunctionEntry& entry, const AnalysisResult& result) {
    for (const ReportPage& page : ReportPages(result, entry.text))
        Require(!page.title.empty() && page.text.find(entry.text) != page.text.npos);
    const std::u16string text = ReportText(result, entry.text);
    Require(text.find(entry.text) != text.npos);
    Require(ReportFile(text).size() == 2 + 2 * text.size());
    const std::string table = PointTableFile(entry.samples);
    const auto defined = std::ranges::count(entry.samples, 0, &CurveSample::status);
    Require(std::ranges::count(table, '\n') == defined);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input = {data, size};
    const auto viewHeight = static_cast<std::int32_t>(TakeByte(input));
    ViewWindow view;
    view.Xmin = TakeDouble(input);
    view.Xmax = TakeDouble(input);
    const FunctionEntry entry = TakeEntry(input);
    if (!CanAnalyse(entry)) return 0;
    AnalysisResult result;
    analyzeSampledCurve(result, entry, viewHeight, view);
    CheckResult(entry, result);
    CheckTexts(entry, result);
    ReleaseArrays(result);
    Require(!ReportText(result, entry.text).empty());
    return 0;
}
