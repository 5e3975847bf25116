// Both forms of the report consist of the same parts; they differ in the summary and in the
// indentation of the lines.
#include "analysis/report.h"

#include "numbers/decimal.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

/// The texts in which the two forms differ.
struct ReportForm {
    StringId summary;
    StringId root;
    StringId maximum;
    StringId minimum;
};

constexpr ReportForm kPagedForm = {StringId::SummaryOfPages, StringId::RootOfPage,
                                   StringId::ExtremumOfPage, StringId::ExtremumOfPage};
constexpr ReportForm kSingleForm = {StringId::SummaryOfText, StringId::RootOfText,
                                    StringId::MaximumOfText, StringId::MinimumOfText};

struct Report {
    const AnalysisResult& result;
    std::u16string_view name;
    const ReportForm& form;
};

std::u16string Summary(const Report& report) {
    const AnalysisResult& result = report.result;
    // KEEP: the least value has the caption of a maximum, as in all reports so far.
    return FillIn(
        Text(report.form.summary),
        {FixedText(result.a), FixedText(result.b), report.name, NumberText(result.rootCount),
         NumberText(result.maximumCount), NumberText(result.minimumCount),
         FixedText(result.greatestY), FixedText(result.leastY), FixedText(result.meanValue)});
}

std::u16string IntegralText(const Report& report, std::u16string_view summary) {
    const AnalysisResult& result = report.result;
    const StringId format =
        result.integralUndefined ? StringId::IntegralUndefined : StringId::Integral;
    return FillIn(Text(format), {summary, report.name, FixedText(result.a), FixedText(result.b),
                                 FixedText(result.integral)});
}

std::u16string Header(const Report& report, std::int32_t count, StringId some, StringId none) {
    return FillIn(Text(count != 0 ? some : none),
                  {report.name, FixedText(report.result.a), FixedText(report.result.b)});
}

std::u16string Roots(const Report& report) {
    std::u16string text =
        Header(report, report.result.rootCount, StringId::RootsHeader, StringId::NoRoots);
    for (const double root : report.result.roots)
        text += FillIn(Text(report.form.root), {FixedText(root)});
    return text;
}

std::u16string PointLines(const std::vector<CurveSample>& points, StringId format) {
    std::u16string text;
    for (const CurveSample& point : points)
        text += FillIn(Text(format), {FixedText(point.x), FixedText(point.y)});
    return text;
}

std::u16string Maximums(const Report& report) {
    return Header(report, report.result.maximumCount, StringId::MaximumsHeader,
                  StringId::NoMaximums) +
           PointLines(report.result.maximums, report.form.maximum);
}

std::u16string Minimums(const Report& report) {
    return Header(report, report.result.minimumCount, StringId::MinimumsHeader,
                  StringId::NoMinimums) +
           PointLines(report.result.minimums, report.form.minimum);
}

}  // namespace

std::array<ReportPage, 4> ReportPages(const AnalysisResult& result, std::u16string_view name) {
    const Report report{result, name, kPagedForm};
    return {{{Text(StringId::GeneralPage), IntegralText(report, Summary(report))},
             {Text(StringId::RootsPage), Roots(report)},
             {Text(StringId::MaximumsPage), Maximums(report)},
             {Text(StringId::MinimumsPage), Minimums(report)}}};
}

std::u16string ReportText(const AnalysisResult& result, std::u16string_view name) {
    const Report report{result, name, kSingleForm};
    return Summary(report) + Roots(report) + Maximums(report) + Minimums(report);
}

}  // namespace kalvex
