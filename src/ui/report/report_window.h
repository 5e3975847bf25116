// The report on an analysis, on the screen.
#pragma once

#include <QWidget>
#include <functional>
#include <span>
#include <string_view>

#include "analysis/report.h"

namespace kalvex {

/// What the window cannot do itself.
struct ReportActions {
    std::function<void(QWidget* report)> saveTable;   ///< `Function to file`
    std::function<void(QWidget* report)> saveReport;  ///< `Report to file`
    std::function<void()> closed;                     ///< called whenever the report has closed
};

/// Opens the paged form over a window and returns at once: a tab for each page, the soft keys `Ok`
/// (Enter, Escape) and `Export` (F10). Pages are read-only text that can be selected and copied.
/// Control+S saves the report, Control+Shift+S the points.
void OpenPagedReport(QWidget* parent, std::span<const ReportPage> pages,
                     const ReportActions& actions);

/// The same for the form with a single text, whose `Export` entries are greyed.
void OpenSingleReport(QWidget* parent, std::u16string_view text, const ReportActions& actions);

}  // namespace kalvex
