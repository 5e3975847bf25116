// The data of the exported files are copied when the report opens, because the picture below it may
// be computed again while the report is on the screen.
#include "ui/report/analysis_flow.h"

#include <QFileInfo>
#include <string>

#include "analysis/export_files.h"
#include "analysis/report.h"
#include "resources/platform.h"
#include "ui/report/report_window.h"
#include "ui/report/result_export.h"

namespace kalvex {
namespace {

using Save = std::function<void(QWidget*)>;

/// Asks for a file and writes the bytes that `make` gives.
Save SaverOf(const AnalysisFlow& flow, std::function<std::string()> make) {
    return [&folder = flow.folder, show = flow.show, make = std::move(make)](QWidget* report) {
        OpenSaveResultDialog(report, folder, [&folder, show, make](const QString& path) {
            SaveResult(path, make(), show,
                       [&folder, path] { folder = QFileInfo(path).absolutePath(); });
        });
    };
}

}  // namespace

void OpenAnalysis(const AnalysisFlow& flow, const FunctionEntry& entry, const Viewport& viewport) {
    analyzeSampledCurve(flow.result, entry, viewport.ClientHeight, viewport.view);
    const std::u16string text = ReportText(flow.result, entry.text);
    ReportActions actions;
    actions.saveTable =
        SaverOf(flow, [samples = entry.samples] { return PointTableFile(samples); });
    actions.saveReport = SaverOf(flow, [text] { return ReportFile(text); });
    actions.closed = [&result = flow.result] { ReleaseArrays(result); };
    if (flow.platform == kPocketPc) {
        OpenPagedReport(flow.parent, ReportPages(flow.result, entry.text), actions);
    } else {
        OpenSingleReport(flow.parent, text, actions);
    }
}

}  // namespace kalvex
