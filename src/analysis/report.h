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
/// @param name the function as its line shows it; any text, also one with "%" in it
std::array<ReportPage, 4> ReportPages(const AnalysisResult& result, std::u16string_view name);

/// The report in one text, the one that goes into a file too: summary, roots, maximums, minimums.
/// The integral is not in it.
std::u16string ReportText(const AnalysisResult& result, std::u16string_view name);

}  // namespace kalvex
