// Sample caches written by hand, and caches filled by drawing.
#pragma once

#include <string_view>
#include <vector>

#include "analysis/analysis.h"
#include "graph/graph.h"

namespace kalvex::fixtures {

/// A sample; by default its row is 0 and it is defined.
inline CurveSample At(double x, double y, std::int32_t row = 0, std::int32_t status = 0) {
    CurveSample sample;
    sample.x = x;
    sample.y = y;
    sample.row = row;
    sample.status = status;
    return sample;
}

inline FunctionEntry EntryOf(std::vector<CurveSample> samples,
                             EquationType type = EquationType::Decart) {
    FunctionEntry entry;
    entry.type = type;
    entry.samples = std::move(samples);
    return entry;
}

/// Samples with these values at x = 0, 1, 2 and so on.
inline FunctionEntry EntryOfValues(const std::vector<double>& values) {
    std::vector<CurveSample> samples;
    for (const double y : values)
        samples.push_back(At(static_cast<double>(samples.size()), y));
    return EntryOf(std::move(samples));
}

struct Window {
    double xmin = -10.0;
    double xmax = 10.0;
    double ymin = -10.0;
    double ymax = 10.0;
    std::int32_t width = 240;
    std::int32_t height = 268;
};

struct DrawnLine {
    GraphState state;
    FunctionList functions;
};

/// Draws one line in slot 1 and leaves its samples there.
inline DrawnLine Draw(EquationType type, std::u16string_view text, const Window& window,
                      std::u16string_view yText = {}) {
    DrawnLine drawn;
    FunctionEntry& entry = drawn.functions[0];
    entry.type = type;
    entry.color = 1;
    entry.selected = 1;
    entry.text = text;
    entry.compiled[0] = CompileExpression(text);
    if (!yText.empty()) entry.compiled[1] = CompileExpression(yText);
    ViewWindow& view = drawn.state.viewport.view;
    view.Xmin = window.xmin;
    view.Xmax = window.xmax;
    view.Ymin = window.ymin;
    view.Ymax = window.ymax;
    drawn.state.viewport.ClientWidth = window.width;
    drawn.state.viewport.ClientHeight = window.height;
    const auto measure = [](std::u16string_view, std::int32_t) { return TextExtent{}; };
    static_cast<void>(DrawGraph(drawn.state, drawn.functions, {}, measure, {}));
    return drawn;
}

inline AnalysisResult Analyse(const DrawnLine& drawn) {
    AnalysisResult result;
    analyzeSampledCurve(result, drawn.functions[0], drawn.state.viewport.ClientHeight,
                        drawn.state.viewport.view);
    return result;
}

/// Analyses hand-made samples on a picture 100 rows high, Xmin = -3, Xmax = 7.
inline AnalysisResult Analyse(const FunctionEntry& entry) {
    AnalysisResult result;
    ViewWindow view;
    view.Xmin = -3.0;
    view.Xmax = 7.0;
    analyzeSampledCurve(result, entry, 100, view);
    return result;
}

}  // namespace kalvex::fixtures
