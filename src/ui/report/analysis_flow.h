// `Analyze`: analyses the traced function, opens the report, and exports its files.
#pragma once

#include <QString>
#include <string_view>

#include "analysis/analysis.h"
#include "base/flow.h"
#include "graph/graph_state.h"

class QWidget;

namespace kalvex {

struct AnalysisFlow {
    QWidget* parent;         ///< the window below the report
    AnalysisResult& result;  ///< filled; its arrays are released when the report closes
    QString& folder;         ///< where files are saved; the folder that the user chose last
    ShowBox show;
    std::u16string_view platform;  ///< decides on the form of the report
};

/// Analyses a function on the samples of the last picture and opens the report; returns at once.
/// The report and its exported files do not change with the picture.
void OpenAnalysis(const AnalysisFlow& flow, const FunctionEntry& entry, const Viewport& viewport);

}  // namespace kalvex
