// The report on an analysis, on the screen.
#pragma once

#include <QWidget>
#include <functional>
#include <span>
#include <string_view>

#include "analysis/report.h"

namespace kalvex {

/// What the report cannot do itself. These are functions and not signals, because the report is a
/// plain dialog that a function puts together: there is no class that could declare signals.
struct ReportActions {
    /// `Function to file` and `Report to file`; the file dialog belongs to the report.
    std::function<void(QWidget* report)> saveTable;
    std::function<void(QWidget* report)> saveReport;
    /// Called whenever the report has closed, by a key or by the window's own button.
    std::function<void()> closed;
};

/// Opens the paged form over a window and returns at once: a tab for each page, the soft keys `Ok`
/// (Enter, Escape) and `Export` (F10). Pages are read-only text that can be selected and copied.
/// Control+S saves the report, Control+Shift+S the points.
void OpenPagedReport(QWidget* parent, std::span<const ReportPage> pages,
                     const ReportActions& actions);

/// The same for the form with a single text, whose `Export` entries are greyed.
void OpenSingleReport(QWidget* parent, std::u16string_view text, const ReportActions& actions);

}  // namespace kalvex
