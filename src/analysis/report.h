// The texts of a report on an analysis. Line ends are \r\n, numbers have six decimals.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "analysis/analysis.h"

namespace kalvex {

struct ReportPage {
    std::u16string_view title;
    std::u16string text;
};

/// The four pages in their order: `General` (summary and integral), `Roots`, `Maximums`,
/// `Minimums`.
/// @param name the function as its line shows it; any text is allowed, "%" has no special meaning
[[nodiscard]] std::array<ReportPage, 4> ReportPages(const AnalysisResult& result,
                                                    std::u16string_view name);

/// The report as one text, the form that is also written to a file: summary, roots, maximums,
/// minimums. It does not contain the integral.
[[nodiscard]] std::u16string ReportText(const AnalysisResult& result, std::u16string_view name);

}  // namespace kalvex
